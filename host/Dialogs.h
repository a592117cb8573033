// Roles: the host's dialog manager: opening dialogs, their items, list boxes, pop-ups and alerts. Items are numbered
// from 1 as in the dialog resource; item 0 is the dialog itself. Operations on an item that does not exist do nothing
// and answer an empty value.
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

/// What comes with a message; the members that its kind does not name keep their defaults.
struct DialogMessageData {
    std::int32_t row = 0;             ///< list row under a click or to be drawn, counted from 1
    std::int16_t column = 0;          ///< tab field under a click or to be drawn, counted from 1
    Rectangle area;                   ///< area to draw, in the context's pixels
    Colour background{255, 255, 255}; ///< of the row that a cell belongs to
    NativeContext* context = nullptr; ///< to draw with; the host's, valid during the call
};

/// Receives the messages of one dialog. Edits, check boxes, pop-ups and list boxes send Change after the user changed
/// their value or selection; operations of the add-on on them send nothing. The answer counts for a click on a push
/// button of a modal dialog: the item's number closes the dialog, 0 keeps it open. Lets no exception out.
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

/// The host wants a registered palette open, at its own start for instance because it was open when the host was left.
/// Answers an error code and lets no exception out.
using PaletteRequestHandler = ErrorCode (*)(const Guid& palette);

/// The host hides, shows and disables a registered palette by itself, and says nothing of it: what the add-on has shown
/// and enabled comes back as it was. A palette that it wants closed gets CloseRequest, as by its close box.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Only during initialisation: makes a palette known that is laid out by a dialog resource of the add-on; `palette`
    /// is the key under which the host keeps its place. BadId when the key is taken.
    virtual ErrorCode RegisterPalette(std::int16_t resource, const Guid& palette, PaletteRequestHandler handler) = 0;
    /// On freeing, after the palette was closed. BadId when it is not registered.
    virtual ErrorCode UnregisterPalette(const Guid& palette) = 0;
    /// Opens a registered palette. The handler gets Initialise before the call returns, and must live until Close.
    /// Answers none when it cannot be opened.
    virtual DialogId OpenPalette(const Guid& palette, DialogHandler& handler) = 0;
    /// Opens a modal dialog and answers, after it has closed, the number of the item that closed it; 0 when it cannot
    /// be opened or was closed by Close. The handler gets Initialise first and Close last, while the items can still
    /// be read.
    virtual std::int16_t RunModal(std::int16_t resource, const Guid& guid, DialogHandler& handler) = 0;
    /// Removes a palette, or has a modal dialog end as soon as the host has control again. The handler gets Close
    /// before the call returns and nothing after it.
    virtual void Close(DialogId dialog) = 0;
    virtual Size ReadSize(DialogId dialog) = 0;
    virtual void SetMinimumSize(DialogId dialog, Size size) = 0;
    /// Between the two, items are moved without being drawn one by one.
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
    /// Of an icon item or of a button that carries an icon; `icon` is an icon resource of the add-on.
    virtual void SetIcon(DialogId dialog, std::int16_t item, std::int16_t icon) = 0;
    /// Of a user item a host may leave it: what is drawn there covers it.
    virtual void SetBackground(DialogId dialog, std::int16_t item, const Colour& colour) = 0;
    /// A user item gets UserItemUpdate when the host next paints: before the call returns, later, or never while the
    /// item cannot be seen.
    virtual void Redraw(DialogId dialog, std::int16_t item) = 0;
    /// Of lists and user items: off while much changes. Switching it on again draws a list; a user item waits for
    /// Redraw.
    virtual void EnableDrawing(DialogId dialog, std::int16_t item, bool enabled) = 0;
};

/// Values of edits, check boxes and pop-ups.
class ItemValues {
public:
    virtual ~ItemValues() = default;

    /// Of a real-number edit; 0 while its text is no number.
    virtual double ReadReal(DialogId dialog, std::int16_t item) = 0;
    virtual void SetReal(DialogId dialog, std::int16_t item, double value) = 0;
    /// Of an integer edit; 0 while its text is no number.
    virtual std::int32_t ReadInteger(DialogId dialog, std::int16_t item) = 0;
    virtual void SetInteger(DialogId dialog, std::int16_t item, std::int32_t value) = 0;
    virtual bool IsChecked(DialogId dialog, std::int16_t item) = 0;
    virtual void SetChecked(DialogId dialog, std::int16_t item, bool checked) = 0;
    /// The texts of a pop-up menu; entries are counted from 1.
    virtual std::vector<std::string> ListPopUpTexts(DialogId dialog, std::int16_t item) = 0;
    virtual void SetPopUpTexts(DialogId dialog, std::int16_t item, const std::vector<std::string>& texts) = 0;
    /// 0 when the menu is empty.
    virtual std::int16_t ReadPopUpEntry(DialogId dialog, std::int16_t item) = 0;
    virtual void SelectPopUpEntry(DialogId dialog, std::int16_t item, std::int16_t entry) = 0;
};

enum class TextAlignment { Left, Centre, Right };
enum class Truncation { None, AtEnd };
enum class TextStyle { Plain, Bold };
enum class RowStatus { Normal, NotSelectable };

/// Icons that the host itself offers for list cells.
enum class StandardIcon { None, Checked, Unchecked };

/// A tab field: begin and end in pixels from the list's left edge.
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
    /// 0 when no editor is bound to the column.
    virtual std::int16_t ReadBoundEditor(DialogId dialog, std::int16_t item, std::int16_t column) = 0;
};

/// Rows of a list box, counted from 1.
class ListRows {
public:
    virtual ~ListRows() = default;

    /// Inserts in front of `row`, or at the end for 0; answers the new row.
    virtual std::int32_t Insert(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
    /// A line across the list, which counts as a row and cannot be selected; placed as Insert does.
    virtual std::int32_t InsertSeparator(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
    /// A row that goes takes its selection with it.
    virtual void Delete(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
    virtual void DeleteAll(DialogId dialog, std::int16_t item) = 0;
    /// A number of the caller's for the row; none until set.
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

    /// The first selected row, 0 when none is.
    virtual std::int32_t ReadFirst(DialogId dialog, std::int16_t item) = 0;
    /// The selected rows from the top.
    virtual std::vector<std::int32_t> ListRows(DialogId dialog, std::int16_t item) = 0;
    /// Selects this row alone.
    virtual void Select(DialogId dialog, std::int16_t item, std::int32_t row) = 0;
};

enum class AlertType { Information, Warning, Error };

/// In the order in which the host takes the texts.
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

    /// Shows the alert and answers the number of the pressed button, counted from 1.
    virtual std::int16_t Show(const Alert& alert) = 0;
    /// A line in the host's report of the running session, for what nobody needs to answer.
    virtual void WriteReport(const std::string& line) = 0;
};

} // namespace host
