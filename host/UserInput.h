// Role: what the host asks the user for outside of the add-on's own dialogs.
#pragma once

#include "host/Values.h"

#include <optional>

namespace host {

/// Sixteen bits a channel, as the host's colour picker takes them.
struct PickerColour {
    std::uint16_t red = 0;
    std::uint16_t green = 0;
    std::uint16_t blue = 0;
};

/// The host's dialog for the name of a new file. Texts are UTF-8.
struct SaveFileQuestion {
    std::string title;
    std::string proposedName;
    std::string typeManager; ///< name under which the host keeps the file type
    std::string extension;   ///< without the point
};

/// Each answers none when the user cancels.
class UserInput {
public:
    virtual ~UserInput() = default;

    virtual std::optional<PickerColour> PickColour(const PickerColour& present) = 0;
    /// A click in the plan, with the prompt in the host's status bar. Not while a modal dialog is open.
    virtual std::optional<Point> PickPoint(const std::string& prompt) = 0;
    /// The whole path, UTF-8.
    virtual std::optional<std::string> PickSaveFile(const SaveFileQuestion& question) = 0;
};

} // namespace host
