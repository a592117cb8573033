// Role: input that the host requests from the user outside the add-on's own dialogs.
#pragma once

#include "host/Values.h"

#include <optional>

namespace host {

/// Sixteen bits per channel, as in the host's colour picker.
struct PickerColour {
    std::uint16_t red = 0;
    std::uint16_t green = 0;
    std::uint16_t blue = 0;
};

/// The host's dialog for the name of a new file. Texts are UTF-8.
struct SaveFileQuestion {
    std::string title;
    std::string proposedName;
    std::string typeManager; ///< name under which the host registers the file type
    std::string extension;   ///< without the dot
};

/// Each operation returns an empty value if the user cancels.
class UserInput {
public:
    virtual ~UserInput() = default;

    virtual std::optional<PickerColour> PickColour(const PickerColour& present) = 0;
    /// A click in the plan, with the prompt in the host's status bar. Not possible while a modal dialog is open.
    virtual std::optional<Point> PickPoint(const std::string& prompt) = 0;
    /// The full path, UTF-8.
    virtual std::optional<std::string> PickSaveFile(const SaveFileQuestion& question) = 0;
};

} // namespace host
