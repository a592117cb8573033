// What the user answers outside of dialogs: whoever drives the workbench sets the answers.
#pragma once

#include "host/UserInput.h"
#include "workbench/dialogs/DialogManager.h"

#include <functional>

namespace workbench {

class UserInputRole : public host::UserInput {
public:
    UserInputRole(const OpenDialogs& dialogs, DialogManager& manager) : dialogs(dialogs), manager(manager) {}

    std::optional<host::PickerColour> PickColour(const host::PickerColour& present) override {
        return colourAnswer ? colourAnswer(present) : std::nullopt;
    }
    /// None also while a modal dialog keeps the user from the plan. The palettes cannot be used meanwhile.
    std::optional<host::Point> PickPoint(const std::string& prompt) override {
        if (!pointAnswer || dialogs.HasModal()) return std::nullopt;
        manager.EnablePalettes(false);
        const std::optional<host::Point> point = pointAnswer(prompt);
        manager.EnablePalettes(true);
        return point;
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
    DialogManager& manager;
};

} // namespace workbench
