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
    std::int16_t RunModal(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler) override;
    void ClosePalette(host::DialogId dialog) override;
    host::Size ReadSize(host::DialogId dialog) override;
    void SetMinimumSize(host::DialogId dialog, host::Size size) override;
    void BeginMoveGrow(host::DialogId dialog) override;
    void EndMoveGrow(host::DialogId dialog) override;

    std::int16_t Show(const host::Alert& alert) override;
    void WriteReport(const std::string& line) override;

    // What a person does.

    // Nothing happens where an item is hidden or disabled, or after a modal dialog was closed; each answers whether it
    // could be done.

    /// Presses a button. A modal dialog closes when its handler answers the button's number.
    bool Press(host::DialogId dialog, std::int16_t item);
    /// Replaces the text of an edit. A number edit takes only a number, with decimal point or comma.
    bool Type(host::DialogId dialog, std::int16_t item, const std::string& text);
    /// Types into the in-place editor over a column of the list's selected row.
    bool TypeIntoCell(host::DialogId dialog, std::int16_t list, std::int16_t column, const std::string& text);
    /// Sets or clears a check box.
    bool Toggle(host::DialogId dialog, std::int16_t item);
    /// Chooses an entry of a pop-up menu, counted from 1.
    bool Choose(host::DialogId dialog, std::int16_t item, std::int16_t entry);
    /// Selects these rows of a list and no others; a list of single selection takes the first that can be selected.
    bool SelectRows(host::DialogId dialog, std::int16_t list, const std::vector<std::int32_t>& rows);
    /// Clicks into a cell, which first selects its row.
    bool ClickCell(host::DialogId dialog, std::int16_t list, std::int32_t row, std::int16_t column);
    bool DoubleClickCell(host::DialogId dialog, std::int16_t list, std::int32_t row, std::int16_t column);
    /// Drags the dialog's corner; not below its minimum size.
    void Resize(host::DialogId dialog, host::Size size);
    /// Presses the close box.
    void RequestClose(host::DialogId dialog);
    /// Has the handler draw a user item; what the dialog shows stays as it is.
    void DrawUserItem(host::DialogId dialog, std::int16_t item, host::NativeContext& context);
    /// Has the handler draw an owner-drawn cell.
    void DrawCell(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                  host::NativeContext& context);

    /// Works in a modal dialog while it is open; when it returns without having closed the dialog, the close box is
    /// pressed. Without one the dialog is cancelled.
    std::function<void(host::DialogId)> modalUser;
    /// Answers alerts: the number of a button. Without one the first button is pressed.
    std::function<std::int16_t(const host::Alert&)> alertAnswer;
    /// Every alert that was shown, oldest first.
    std::vector<host::Alert> shownAlerts;
    /// Takes the lines of the session's report; without one they are dropped.
    std::function<void(const std::string&)> reportSink;

private:
    std::int16_t Send(host::DialogMessage message, host::DialogId dialog, std::int16_t item,
                      const host::DialogMessageData& data = {});
    /// The item when a person can use it now.
    ItemState* FindUsable(host::DialogId dialog, std::int16_t item);
    bool TypeInto(host::DialogId dialog, std::int16_t item, ItemState& state, const std::string& text);
    bool SendCellClick(host::DialogMessage message, host::DialogId dialog, std::int16_t list, std::int32_t row,
                       std::int16_t column);

    OpenDialogs& dialogs;
};

} // namespace workbench
