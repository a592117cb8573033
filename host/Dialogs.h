// Roles: the host's dialog manager, that is opening dialogs, their items, list boxes, pop-ups and alerts. Items are
// numbered from 1 as in the dialog resource; item 0 is the dialog itself. Operations on an item that does not exist do
// nothing and return an empty value.
#pragma once

#include "host/Drawing.h"
#include "host/Values.h"

#include <optional>
#include <vector>

namespace host {

/// An open dialog; 0 is none.
struct DialogId {
    std::int16_t value = 0;

    bool IsOpen() const { return value != 0; }
    friend bool operator==(DialogId a, DialogId b) { return a.value == b.value; }
};

enum class DialogMessage {
    Initialise,
    Click,
    DoubleClick,
    Change,
    CloseRequest,
    Close,
    Resize,
    ListCellUpdate,
    UserItemUpdate
};

/// The data of a message; members that do not apply to its kind keep their defaults.
struct DialogMessageData {
    std::int32_t row = 0;             ///< list row that was clicked or is to be drawn, counted from 1
    std::int16_t column = 0;          ///< tab field that was clicked or is to be drawn, counted from 1
    Rectangle area;                   ///< area to be drawn, in the context's pixels
    Colour background{255, 255, 255}; ///< of the cell's row
    NativeContext* context = nullptr; ///< to draw with; owned by the host, valid during the call
};

/// Receives the messages of one dialog. Edits, check boxes, pop-ups and list boxes send Change after the user has
/// changed their value or selection; operations of the add-on on them send nothing. The return value matters for a
/// click on a push button of a modal dialog: the item's number closes the dialog, 0 keeps it open. Must not throw.
class DialogHandler {
public:
    virtual ~DialogHandler() = default;
    virtual std::int16_t HandleDialogMessage(DialogMessage message, DialogId dialog, std::int16_t item,
                                             const DialogMessageData& data) = 0;
};

struct Size {
    std::int16_t width = 0;
    std::int16_t height = 0;
};

/// Called when the host wants a registered palette to be open, for instance at its start because the palette was open
/// when the host was last closed. Must not throw.
using PaletteRequestHandler = ErrorCode (*)(const Guid& palette);

/// The host hides, shows and disables a registered palette by itself and sends no message: whatever the add-on has
/// shown and enabled comes back unchanged. A palette that the host wants closed gets CloseRequest, as from its close
/// box.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Only during initialisation. Registers a palette that is laid out by a dialog resource of the add-on; `palette`
    /// is the key under which the host keeps its position. BadId if the key is taken.
    virtual ErrorCode RegisterPalette(std::int16_t resource, const Guid& palette, PaletteRequestHandler handler) = 0;
    /// When the add-on is freed, after the palette was closed. BadId if it is not registered.
    virtual ErrorCode UnregisterPalette(const Guid& palette) = 0;
    /// Opens a registered palette. The handler gets Initialise before the call returns, and must live until Close.
    /// Returns 0 if the palette cannot be opened.
    virtual DialogId OpenPalette(const Guid& palette, DialogHandler& handler) = 0;
    /// Opens a modal dialog and returns, after it has closed, the number of the item that closed it; 0 if it cannot be
    /// opened or was closed by Close. The handler gets Initialise first and Close last, while the items can still be
    /// read.
    virtual std::int16_t RunModal(std::int16_t resource, const Guid& guid, DialogHandler& handler) = 0;
    /// Removes a palette, or makes a modal dialog end as soon as the host has control again. The handler gets Close
    /// before the call returns, and nothing afterwards.
    virtual void Close(DialogId dialog) = 0;
    virtual Size ReadSize(DialogId dialog) = 0;
    virtual void SetMinimumSize(DialogId dialog, Size size) = 0;
    /// Between these two calls items move without being drawn one by one.
    virtual void BeginMoveGrow(DialogId dialog) = 0;
    virtual void EndMoveGrow(DialogId dialog) = 0;
};

class DialogItems {
public:
    virtual ~DialogItems() = default;

    virtual Rectangle ReadRectangle(DialogId dialog, std::int16_t item) = 0;
    virtual void SetRectangle(DialogId dialog, std::int16_t item, const Rectangle& rectangle) = 0;
    virtual std::string ReadText(DialogId dialog, std::int16_t item) = 0;
    virtual void SetText(DialogId dialog, std::int16_t item, const std::string& text) = 0;
    virtual void Show(DialogId dialog, std::int16_t item, bool visible) = 0;
    virtual void Enable(DialogId dialog, std::int16_t item, bool enabled) = 0;
    /// For an icon item or a button with an icon; `icon` is an icon resource of the add-on.
    virtual void SetIcon(DialogId dialog, std::int16_t item, std::int16_t icon) = 0;
    /// A host may ignore this for a user item, because what is drawn there covers it.
    virtual void SetBackground(DialogId dialog, std::int16_t item, const Colour& colour) = 0;
    /// A user item gets UserItemUpdate when the host next paints: before the call returns, later, or never while the
    /// item is not visible.
    virtual void Redraw(DialogId dialog, std::int16_t item) = 0;
    /// For lists and user items: switch drawing off during many changes. Switching it on again draws a list; a user
    /// item waits for Redraw.
    virtual void EnableDrawing(DialogId dialog, std::int16_t item, bool enabled) = 0;
};

/// Values of edits, check boxes and pop-ups.
class ItemValues {
public:
    virtual ~ItemValues() = default;

    /// For a real-number edit; 0 while its text is not a number.
    virtual double ReadReal(DialogId dialog, std::int16_t item) = 0;
    virtual void SetReal(DialogId dialog, std::int16_t item, double value) = 0;
    /// For an integer edit; 0 while its text is not a number.
    virtual std::int32_t ReadInteger(DialogId dialog, std::int16_t item) = 0;
    virtual void SetInteger(DialogId dialog, std::int16_t item, std::int32_t value) = 0;
    virtual bool IsChecked(DialogId dialog, std::int16_t item) = 0;
    virtual void SetChecked(DialogId dialog, std::int16_t item, bool checked) = 0;
    /// The texts of a pop-up menu; entries are counted from 1.
    virtual std::vector<std::string> ListPopUpTexts(DialogId dialog, std::int16_t item) = 0;
    virtual void SetPopUpTexts(DialogId dialog, std::int16_t item, const std::vector<std::string>& texts) = 0;
    /// 0 if the menu is empty.
    virtual std::int16_t ReadPopUpEntry(DialogId dialog, std::int16_t item) = 0;
    virtual void SelectPopUpEntry(DialogId dialog, std::int16_t item, std::int16_t entry) = 0;
};

enum class TextAlignment { Left, Centre, Right };
enum class Truncation { None, AtEnd };
enum class TextStyle { Plain, Bold };
enum class RowStatus { Normal, NotSelectable };

/// Icons that the host itself offers for list cells.
enum class StandardIcon { None, Checked, Unchecked };

/// A tab field; begin and end are pixels from the list's left edge.
struct ListColumn {
    std::int16_t begin = 0;
    std::int16_t end = 0;
    TextAlignment alignment = TextAlignment::Left;
    Truncation truncation = Truncation::AtEnd;
};

struct ListHeader {
    std::string text;
    std::int16_t width = 0;
    std::int16_t minimumWidth = 0;
    TextAlignment alignment = TextAlignment::Left;
    bool resizable = true;
};

/// Columns, headers and in-place editors of a list box. Columns are counted from 1.
class ListLayout {
public:
    virtual ~ListLayout() = default;

    virtual void SetColumnCount(DialogId dialog, std::int16_t item, std::int16_t count) = 0;
    virtual std::int16_t CountColumns(DialogId dialog, std::int16_t item) = 0;
    virtual void SetColumn(DialogId dialog, std::int16_t item, std::int16_t column, const ListColumn& properties) = 0;
    virtual ListColumn ReadColumn(DialogId dialog, std::int16_t item, std::int16_t column) = 0;
    virtual void SetHeader(DialogId dialog, std::int16_t item, std::int16_t column, const ListHeader& header) = 0;
    virtual ListHeader ReadHeader(DialogId dialog, std::int16_t item, std::int16_t column) = 0;
    virtual void SetOwnerDrawn(DialogId dialog, std::int16_t item, std::int16_t column, bool ownerDrawn) = 0;
    /// The width inside the frame and scroll bar, and the height of one row.
    virtual Size ReadCellSpace(DialogId dialog, std::int16_t item) = 0;
    /// Places an edit item over the column of the selected row; editor 0 removes it.
    virtual void BindEditor(DialogId dialog, std::int16_t item, std::int16_t column, std::int16_t editor) = 0;
    /// 0 if no editor is bound to the column.
    virtual std::int16_t ReadBoundEditor(DialogId dialog, std::int16_t item, std::int16_t column) = 0;
};

/// Rows of a list box, counted from 1.
class ListRows {
public:
    virtual ~ListRows() = default;

    /// Inserts before `row`, or at the end for 0; returns the new row.
    virtual std::int32_t Insert(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
    /// A line across the list, which counts as a row but cannot be selected; placed as by Insert.
    virtual std::int32_t InsertSeparator(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
    /// A deleted row is also removed from the selection.
    virtual void Delete(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
    virtual void DeleteAll(DialogId dialog, std::int16_t item) = 0;
    /// A number that the caller attaches to the row; empty until set.
    virtual std::optional<std::int32_t> ReadUserData(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
    virtual void SetUserData(DialogId dialog, std::int16_t item, std::int32_t row, std::int32_t value) = 0;
    virtual void SetStatus(DialogId dialog, std::int16_t item, std::int32_t row, RowStatus status) = 0;
    virtual void SetStyle(DialogId dialog, std::int16_t item, std::int32_t row, TextStyle style) = 0;
};

/// Cells of a list box by row and column.
class ListCells {
public:
    virtual ~ListCells() = default;

    virtual std::string ReadText(DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column) = 0;
    virtual void SetText(DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                         const std::string& text) = 0;
    virtual StandardIcon ReadIcon(DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column) = 0;
    virtual void SetIcon(DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                         StandardIcon icon) = 0;
    virtual void SetStyle(DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                          TextStyle style) = 0;
};

class ListSelection {
public:
    virtual ~ListSelection() = default;

    /// The first selected row, or 0.
    virtual std::int32_t ReadFirst(DialogId dialog, std::int16_t item) = 0;
    /// The selected rows, from the top down.
    virtual std::vector<std::int32_t> ListRows(DialogId dialog, std::int16_t item) = 0;
    /// Selects only this row.
    virtual void Select(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
};

enum class AlertType { Information, Warning, Error };

/// Members are in the order in which the host takes the texts.
struct Alert {
    AlertType type = AlertType::Information;
    std::string title;
    std::string largeText;
    std::string smallText;
    std::vector<std::string> buttons; ///< one to three
};

class Alerts {
public:
    virtual ~Alerts() = default;

    /// Shows the alert and returns the number of the pressed button, counted from 1.
    virtual std::int16_t Show(const Alert& alert) = 0;
    /// Adds a line to the host's session report, for messages that need no answer.
    virtual void WriteReport(const std::string& line) = 0;
};

} // namespace host
