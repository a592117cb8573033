#include "src/StandardsList.h"

#include "src/Texts.h"

#include "General/UInterface.h"

namespace {

using namespace ResourceIds;
using namespace ResourceIds::ProjectSettingsItems;

constexpr std::int16_t NameColumn = 1, ValueColumn = 2;
constexpr int ValueWidth = 100;
constexpr std::int16_t MinimumHeaderWidth = 20;

} // namespace

void StandardsList::SetUp(host::DialogId openDialog, std::vector<lca::Standard>& shown) {
    dialog = openDialog;
    standards = &shown;
    host.GetListLayout().SetColumnCount(dialog, StandardList, ValueColumn);
    LayOutColumns();
    FillRows(Fill::Rows);
}

void StandardsList::LayOutColumns() {
    host::ListLayout& layout = host.GetListLayout();
    const std::int16_t width = layout.ReadCellSpace(dialog, StandardList).width;
    const auto nameEnd = static_cast<std::int16_t>(width - ValueWidth);
    layout.SetHeader(dialog, StandardList, NameColumn,
                     {ReadText(host, Phases::StandardNameHeader), nameEnd, MinimumHeaderWidth});
    layout.SetColumn(dialog, StandardList, NameColumn,
                     {0, nameEnd, host::TextAlignment::Left, host::Truncation::AtEnd});
    layout.SetHeader(dialog, StandardList, ValueColumn,
                     {ReadText(host, Phases::StandardValueHeader), ValueWidth, MinimumHeaderWidth});
    layout.SetColumn(
        dialog, StandardList, ValueColumn,
        {static_cast<std::int16_t>(nameEnd + 1), width, host::TextAlignment::Right, host::Truncation::AtEnd});
}

void StandardsList::TakeSelection() {
    const lca::Standard* selected = FindSelected();
    host::ListLayout& layout = host.GetListLayout();
    host.GetDialogItems().Enable(dialog, RemoveButton, selected != nullptr);
    if (selected == nullptr) {
        layout.BindEditor(dialog, StandardList, NameColumn, 0);
        layout.BindEditor(dialog, StandardList, ValueColumn, 0);
        return;
    }
    host.GetDialogItems().SetText(dialog, StandardNameEdit, selected->name);
    host.GetItemValues().SetReal(dialog, StandardValueEdit, selected->limit);
    layout.BindEditor(dialog, StandardList, NameColumn, StandardNameEdit);
    layout.BindEditor(dialog, StandardList, ValueColumn, StandardValueEdit);
    General::FitListEditors(host, dialog, StandardList);
}

void StandardsList::TakeName() {
    lca::Standard* selected = FindSelected();
    if (selected == nullptr) return;
    selected->name = host.GetDialogItems().ReadText(dialog, StandardNameEdit);
    FillRows(Fill::Texts);
}

void StandardsList::TakeValue() {
    lca::Standard* selected = FindSelected();
    if (selected == nullptr) return;
    const double value = host.GetItemValues().ReadReal(dialog, StandardValueEdit);
    if (!General::IsUsableNumber(host, value)) return TakeSelection();
    selected->limit = value;
    FillRows(Fill::Texts);
}

void StandardsList::Add() {
    const std::int32_t row = host.GetListRows().Insert(dialog, StandardList, 0);
    host.GetListSelection().Select(dialog, StandardList, row);
    standards->push_back({});
    FillRows(Fill::Rows);
    TakeSelection();
}

void StandardsList::RemoveSelected() {
    if (FindSelected() == nullptr) return;
    const std::int32_t row = host.GetListSelection().ReadFirst(dialog, StandardList);
    host.GetListRows().Delete(dialog, StandardList, row);
    standards->erase(standards->begin() + (row - 1));
    TakeSelection();
}

void StandardsList::FillRows(Fill fill) {
    host::ListRows& rows = host.GetListRows();
    host::ListCells& cells = host.GetListCells();
    const std::int32_t selected = host.GetListSelection().ReadFirst(dialog, StandardList);
    if (fill == Fill::Rows) rows.DeleteAll(dialog, StandardList);
    std::int32_t row = 0;
    for (const lca::Standard& standard : *standards) {
        ++row;
        if (fill == Fill::Rows) rows.Insert(dialog, StandardList, 0);
        cells.SetText(dialog, StandardList, row, NameColumn, standard.name);
        cells.SetText(dialog, StandardList, row, ValueColumn, FormatNumber(host, standard.limit));
    }
    if (fill == Fill::Rows && selected > 0) host.GetListSelection().Select(dialog, StandardList, selected);
}

lca::Standard* StandardsList::FindSelected() {
    const std::int32_t row = host.GetListSelection().ReadFirst(dialog, StandardList);
    if (row < 1 || static_cast<std::size_t>(row) > standards->size()) return nullptr;
    return &(*standards)[static_cast<std::size_t>(row - 1)];
}
