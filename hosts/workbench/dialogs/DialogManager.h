// Opens, closes and resizes dialogs, shows alerts, and is the hand of whoever drives them: a test, the command line or
// a window presses buttons here, and the add-on's handlers run.
#pragma once

#include "workbench/dialogs/DialogState.h"

#include <functional>

namespace workbench {

class DialogManager : public host::Dialogs, public host::Alerts {
public:
    explicit DialogManager(OpenDialogs& dialogs) : dialogs(dialogs) {}

    host::DialogId OpenPalette(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler) override;
    void ClosePalette(host::DialogId dialog) override;
    host::Size ReadSize(host::DialogId dialog) override;
    void SetMinimumSize(host::DialogId dialog, host::Size size) override;
    void BeginMoveGrow(host::DialogId dialog) override;
    void EndMoveGrow(host::DialogId dialog) override;

    std::int16_t Show(const host::Alert& alert) override;
    void WriteReport(const std::string& line) override;

    // What a person does.

    /// Presses an item as the mouse would: nothing happens where it is hidden or disabled. Answers whether it was
    /// pressed.
    bool Press(host::DialogId dialog, std::int16_t item);
    /// Drags the dialog's corner; not below its minimum size.
    void Resize(host::DialogId dialog, host::Size size);
    /// Presses the close box.
    void RequestClose(host::DialogId dialog);
    /// Has the handler draw an owner-drawn cell.
    void DrawCell(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                  host::NativeContext& context);

    /// Answers alerts: the number of a button. Without one the first button is pressed.
    std::function<std::int16_t(const host::Alert&)> alertAnswer;
    /// Every alert that was shown, oldest first.
    std::vector<host::Alert> shownAlerts;
    /// Takes the lines of the session's report; without one they are dropped.
    std::function<void(const std::string&)> reportSink;

private:
    void Send(host::DialogMessage message, host::DialogId dialog, std::int16_t item,
              const host::DialogMessageData& data = {});

    OpenDialogs& dialogs;
};

} // namespace workbench
