// The full state of every open dialog as data: what a person would see, without pixels.
#pragma once

#include "host/Dialogs.h"
#include "resources/ResourceData.h"
#include "workbench/dialogs/RecordedContext.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace workbench {

inline constexpr std::int16_t ScrollBarWidth = 16;
inline constexpr std::int16_t RowHeight = 20;

struct CellState {
    std::string text;
    host::StandardIcon icon = host::StandardIcon::None;
    host::TextStyle style = host::TextStyle::Plain;
};

struct RowState {
    std::vector<CellState> cells; ///< by column, from 0
    host::RowStatus status = host::RowStatus::Normal;
    bool isSeparator = false;
    std::optional<std::int32_t> userData;
    host::TextStyle style = host::TextStyle::Plain;
};

struct ColumnState {
    host::ListColumn place;
    host::ListHeader header;
    bool ownerDrawn = false;
    std::int16_t editor = 0; ///< item bound as in-place editor
};

struct ListState {
    std::vector<ColumnState> columns;
    std::vector<RowState> rows;
    std::set<std::int32_t> selected; ///< rows from 1
    int clearings = 0;               ///< how often all rows were deleted at once
};

struct ItemState {
    Resources::ItemKind kind = Resources::ItemKind::Button;
    host::Rectangle rectangle;
    std::string text;
    bool isVisible = true;
    bool isEnabled = true;
    std::int16_t icon = 0;
    host::Colour background{240, 240, 240};
    std::vector<std::string> popUpTexts;
    std::int16_t selectedEntry = 0; ///< of a pop-up, from 1
    bool isChecked = false;
    std::size_t maximumLength = 0; ///< characters of a text edit; 0 is without limit
    ListState list;
    bool isDrawing = true;
    bool isPaintingDue = false;       ///< asked for while it could not be painted
    int redraws = 0;                  ///< how often it was asked to be drawn anew
    std::vector<DrawingCall> drawing; ///< what a user item shows
};

struct DialogState {
    host::DialogId id;
    std::int16_t resource = 0;
    host::Guid guid;
    std::string title;
    host::Size size;
    host::Size minimumSize;
    int moveGrowDepth = 0;
    std::vector<ItemState> items; ///< item n is items[n - 1]
    host::DialogHandler* handler = nullptr;
    bool isModal = false;
    bool isHiddenByHost = false;
    bool isDisabledByHost = false;
    std::int16_t closedBy = 0; ///< item that closed a modal dialog whose Close is still to come
};

/// The open dialogs. Look-ups answer null for what does not exist.
class OpenDialogs {
public:
    /// Lays out a dialog from its resource; null where there is no such resource.
    DialogState* Add(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler);
    void Remove(host::DialogId dialog);
    DialogState* Find(host::DialogId dialog);
    /// The open dialog that was made from a resource.
    DialogState* FindByResource(std::int16_t resource);
    /// The open dialogs, the one opened last at the end.
    std::vector<host::DialogId> List() const;
    ItemState* FindItem(host::DialogId dialog, std::int16_t item);
    bool HasModal() const;
    /// Has a user item's handler paint it; while the item cannot be seen, or nothing is painted, the painting stays
    /// due.
    void Paint(host::DialogId dialog, std::int16_t item);
    /// Null also where the row does not exist.
    RowState* FindRow(host::DialogId dialog, std::int16_t item, std::int32_t row);
    CellState* FindCell(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column);
    ColumnState* FindColumn(host::DialogId dialog, std::int16_t item, std::int16_t column);

    /// False is a host that paints later than it is asked, or never.
    bool isPainting = true;

private:
    std::map<std::int16_t, DialogState> dialogs;
    std::int16_t lastId = 0;
};

} // namespace workbench
