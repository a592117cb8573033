#include "workbench/dialogs/ItemRoles.h"

#include "lca/Numbers.h"

#include <cmath>

namespace workbench {

host::Rectangle DialogItemsRole::ReadRectangle(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state == nullptr ? host::Rectangle{} : state->rectangle;
}

void DialogItemsRole::SetRectangle(host::DialogId dialog, std::int16_t item, const host::Rectangle& rectangle) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->rectangle = rectangle;
}

std::string DialogItemsRole::ReadText(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state == nullptr ? std::string() : state->text;
}

void DialogItemsRole::SetText(host::DialogId dialog, std::int16_t item, const std::string& text) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->text = text;
}

void DialogItemsRole::Show(host::DialogId dialog, std::int16_t item, bool visible) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->isVisible = visible;
}

void DialogItemsRole::Enable(host::DialogId dialog, std::int16_t item, bool enabled) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->isEnabled = enabled;
}

void DialogItemsRole::SetIcon(host::DialogId dialog, std::int16_t item, std::int16_t icon) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->icon = icon;
}

void DialogItemsRole::SetBackground(host::DialogId dialog, std::int16_t item, const host::Colour& colour) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->background = colour;
}

void DialogItemsRole::Redraw(host::DialogId dialog, std::int16_t item) {
    ItemState* state = dialogs.FindItem(dialog, item);
    if (state == nullptr) return;
    ++state->redraws;
    if (state->kind == Resources::ItemKind::UserItem && state->isDrawing) dialogs.Paint(dialog, item);
}

void DialogItemsRole::EnableDrawing(host::DialogId dialog, std::int16_t item, bool enabled) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->isDrawing = enabled;
}

double ItemValuesRole::ReadReal(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state == nullptr ? 0.0 : lca::ParseDecimal(state->text).value_or(0.0);
}

void ItemValuesRole::SetReal(host::DialogId dialog, std::int16_t item, double value) {
    if (ItemState* state = dialogs.FindItem(dialog, item))
        state->text = std::isfinite(value) ? lca::WriteDecimal(value) : std::string();
}

std::int32_t ItemValuesRole::ReadInteger(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state == nullptr ? 0 : lca::ParseWholeNumber(state->text).value_or(0);
}

void ItemValuesRole::SetInteger(host::DialogId dialog, std::int16_t item, std::int32_t value) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->text = std::to_string(value);
}

bool ItemValuesRole::IsChecked(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state != nullptr && state->isChecked;
}

void ItemValuesRole::SetChecked(host::DialogId dialog, std::int16_t item, bool checked) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->isChecked = checked;
}

std::vector<std::string> ItemValuesRole::ListPopUpTexts(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state == nullptr ? std::vector<std::string>() : state->popUpTexts;
}

void ItemValuesRole::SetPopUpTexts(host::DialogId dialog, std::int16_t item, const std::vector<std::string>& texts) {
    ItemState* state = dialogs.FindItem(dialog, item);
    if (state == nullptr) return;
    state->popUpTexts = texts;
    state->selectedEntry = texts.empty() ? 0 : 1;
}

std::int16_t ItemValuesRole::ReadPopUpEntry(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state == nullptr ? std::int16_t{0} : state->selectedEntry;
}

void ItemValuesRole::SelectPopUpEntry(host::DialogId dialog, std::int16_t item, std::int16_t entry) {
    ItemState* state = dialogs.FindItem(dialog, item);
    if (state != nullptr && entry >= 1 && static_cast<std::size_t>(entry) <= state->popUpTexts.size())
        state->selectedEntry = entry;
}

void ListLayoutRole::SetColumnCount(host::DialogId dialog, std::int16_t item, std::int16_t count) {
    if (ItemState* state = dialogs.FindItem(dialog, item)) state->list.columns.resize(static_cast<std::size_t>(count));
}

std::int16_t ListLayoutRole::CountColumns(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state == nullptr ? std::int16_t{0} : static_cast<std::int16_t>(state->list.columns.size());
}

void ListLayoutRole::SetColumn(host::DialogId dialog, std::int16_t item, std::int16_t column,
                               const host::ListColumn& properties) {
    if (ColumnState* state = dialogs.FindColumn(dialog, item, column)) state->place = properties;
}

host::ListColumn ListLayoutRole::ReadColumn(host::DialogId dialog, std::int16_t item, std::int16_t column) {
    const ColumnState* state = dialogs.FindColumn(dialog, item, column);
    return state == nullptr ? host::ListColumn{} : state->place;
}

void ListLayoutRole::SetHeader(host::DialogId dialog, std::int16_t item, std::int16_t column,
                               const host::ListHeader& header) {
    if (ColumnState* state = dialogs.FindColumn(dialog, item, column)) state->header = header;
}

host::ListHeader ListLayoutRole::ReadHeader(host::DialogId dialog, std::int16_t item, std::int16_t column) {
    const ColumnState* state = dialogs.FindColumn(dialog, item, column);
    return state == nullptr ? host::ListHeader{} : state->header;
}

void ListLayoutRole::SetOwnerDrawn(host::DialogId dialog, std::int16_t item, std::int16_t column, bool ownerDrawn) {
    if (ColumnState* state = dialogs.FindColumn(dialog, item, column)) state->ownerDrawn = ownerDrawn;
}

host::Size ListLayoutRole::ReadCellSpace(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    if (state == nullptr) return {};
    return {static_cast<std::int16_t>(state->rectangle.width - ScrollBarWidth), RowHeight};
}

void ListLayoutRole::BindEditor(host::DialogId dialog, std::int16_t item, std::int16_t column, std::int16_t editor) {
    if (ColumnState* state = dialogs.FindColumn(dialog, item, column)) state->editor = editor;
}

std::int16_t ListLayoutRole::ReadBoundEditor(host::DialogId dialog, std::int16_t item, std::int16_t column) {
    const ColumnState* state = dialogs.FindColumn(dialog, item, column);
    return state == nullptr ? std::int16_t{0} : state->editor;
}

std::int32_t ListRowsRole::Insert(host::DialogId dialog, std::int16_t item, std::int32_t row) {
    ItemState* state = dialogs.FindItem(dialog, item);
    if (state == nullptr) return 0;
    std::vector<RowState>& rows = state->list.rows;
    const bool isInside = row >= 1 && static_cast<std::size_t>(row) <= rows.size();
    const std::size_t position = isInside ? static_cast<std::size_t>(row - 1) : rows.size();
    RowState inserted;
    inserted.cells.resize(state->list.columns.size());
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(position), std::move(inserted));
    return static_cast<std::int32_t>(position) + 1;
}

std::int32_t ListRowsRole::InsertSeparator(host::DialogId dialog, std::int16_t item, std::int32_t row) {
    const std::int32_t inserted = Insert(dialog, item, row);
    if (RowState* state = dialogs.FindRow(dialog, item, inserted)) {
        state->isSeparator = true;
        state->status = host::RowStatus::NotSelectable;
    }
    return inserted;
}

void ListRowsRole::Delete(host::DialogId dialog, std::int16_t item, std::int32_t row) {
    if (dialogs.FindRow(dialog, item, row) == nullptr) return;
    ListState& list = dialogs.FindItem(dialog, item)->list;
    list.rows.erase(list.rows.begin() + (row - 1));
    std::set<std::int32_t> selected;
    for (const std::int32_t other : list.selected)
        if (other != row) selected.insert(other > row ? other - 1 : other);
    list.selected = std::move(selected);
}

void ListRowsRole::DeleteAll(host::DialogId dialog, std::int16_t item) {
    ItemState* state = dialogs.FindItem(dialog, item);
    if (state == nullptr) return;
    state->list.rows.clear();
    state->list.selected.clear();
    ++state->list.clearings;
}

std::optional<std::int32_t> ListRowsRole::ReadUserData(host::DialogId dialog, std::int16_t item, std::int32_t row) {
    const RowState* state = dialogs.FindRow(dialog, item, row);
    return state == nullptr ? std::nullopt : state->userData;
}

void ListRowsRole::SetUserData(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int32_t value) {
    if (RowState* state = dialogs.FindRow(dialog, item, row)) state->userData = value;
}

void ListRowsRole::SetStatus(host::DialogId dialog, std::int16_t item, std::int32_t row, host::RowStatus status) {
    if (RowState* state = dialogs.FindRow(dialog, item, row)) state->status = status;
}

void ListRowsRole::SetStyle(host::DialogId dialog, std::int16_t item, std::int32_t row, host::TextStyle style) {
    if (RowState* state = dialogs.FindRow(dialog, item, row)) state->style = style;
}

std::string ListCellsRole::ReadText(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column) {
    const CellState* cell = dialogs.FindCell(dialog, item, row, column);
    return cell == nullptr ? std::string() : cell->text;
}

void ListCellsRole::SetText(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                            const std::string& text) {
    if (CellState* cell = dialogs.FindCell(dialog, item, row, column)) cell->text = text;
}

host::StandardIcon ListCellsRole::ReadIcon(host::DialogId dialog, std::int16_t item, std::int32_t row,
                                           std::int16_t column) {
    const CellState* cell = dialogs.FindCell(dialog, item, row, column);
    return cell == nullptr ? host::StandardIcon::None : cell->icon;
}

void ListCellsRole::SetIcon(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                            host::StandardIcon icon) {
    if (CellState* cell = dialogs.FindCell(dialog, item, row, column)) cell->icon = icon;
}

void ListCellsRole::SetStyle(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                             host::TextStyle style) {
    if (CellState* cell = dialogs.FindCell(dialog, item, row, column)) cell->style = style;
}

std::int32_t ListSelectionRole::ReadFirst(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    return state == nullptr || state->list.selected.empty() ? 0 : *state->list.selected.begin();
}

std::vector<std::int32_t> ListSelectionRole::ListRows(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    if (state == nullptr) return {};
    return {state->list.selected.begin(), state->list.selected.end()};
}

void ListSelectionRole::Select(host::DialogId dialog, std::int16_t item, std::int32_t row) {
    const RowState* state = dialogs.FindRow(dialog, item, row);
    if (state != nullptr && state->status == host::RowStatus::Normal)
        dialogs.FindItem(dialog, item)->list.selected = {row};
}

} // namespace workbench
