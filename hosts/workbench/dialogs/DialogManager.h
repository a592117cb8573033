// Opens, closes and resizes dialogs, shows alerts, and is the hand of whoever drives them: a test, the command line or
// a window presses buttons here, and the add-on's handlers run.
#pragma once

#include "workbench/dialogs/DialogState.h"

#include <functional>

namespace workbench {

class DialogManager : public host::Dialogs, public host::Alerts {
public:
    explicit DialogManager(OpenDialogs& dialogs) : dialogs(dialogs) {}

    host::ErrorCode RegisterPalette(std::int16_t resource, const host::Guid& palette,
                                    host::PaletteRequestHandler handler) override;
    host::ErrorCode UnregisterPalette(const host::Guid& palette) override;
    host::DialogId OpenPalette(const host::Guid& palette, host::DialogHandler& handler) override;
    std::int16_t RunModal(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler) override;
    void Close(host::DialogId dialog) override;
    host::Size ReadSize(host::DialogId dialog) override;
    void SetMinimumSize(host::DialogId dialog, host::Size size) override;
    void BeginMoveGrow(host::DialogId dialog) override;
    void EndMoveGrow(host::DialogId dialog) override;

    std::int16_t Show(const host::Alert& alert) override;
    void WriteReport(const std::string& line) override;

    // What the host does by itself.

    /// Asks an add-on to open its palette, as at the start of a host that was left with the palette open; answers the
    /// add-on's code, BadId when nobody registered it.
    host::ErrorCode RequestPalette(const host::Guid& palette);
    /// Takes the palettes from the screen, or shows them again and paints what was not painted meanwhile.
    void ShowPalettes(bool shown);
    /// While the user works in the plan nobody can use the palettes.
    void EnablePalettes(bool enabled);
    /// Whether palettes may be registered now; without one they may be at any time.
    std::function<bool()> mayRegisterPalettes;
    /// How many palettes are registered, open or not.
    std::size_t CountPalettes() const { return palettes.size(); }

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

    struct Palette {
        std::int16_t resource = 0;
        host::PaletteRequestHandler handler = nullptr;
    };

    OpenDialogs& dialogs;
    std::map<host::Guid, Palette> palettes; ///< what an add-on leaves here when it goes stays, as in any host
};

} // namespace workbench
