// What the user answers outside of dialogs: whoever drives the workbench sets the answers.
#pragma once

#include "host/UserInput.h"
#include "workbench/dialogs/DialogState.h"

#include <functional>

namespace workbench {

class UserInputRole : public host::UserInput {
public:
    explicit UserInputRole(const OpenDialogs& dialogs) : dialogs(dialogs) {}

    std::optional<host::PickerColour> PickColour(const host::PickerColour& present) override {
        return colourAnswer ? colourAnswer(present) : std::nullopt;
    }
    /// None also while a modal dialog keeps the user from the plan.
    std::optional<host::Point> PickPoint(const std::string& prompt) override {
        return pointAnswer && !dialogs.HasModal() ? pointAnswer(prompt) : std::nullopt;
    }

    std::optional<std::string> PickSaveFile(const host::SaveFileQuestion& question) override {
        return fileAnswer ? fileAnswer(question) : std::nullopt;
    }

    // Without an answer the user cancels.
    std::function<std::optional<host::PickerColour>(const host::PickerColour&)> colourAnswer;
    std::function<std::optional<host::Point>(const std::string&)> pointAnswer;
    std::function<std::optional<std::string>(const host::SaveFileQuestion&)> fileAnswer;

private:
    const OpenDialogs& dialogs;
};

} // namespace workbench
