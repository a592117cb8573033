// The session at the palette: calculating and reading its table.
#include "workbench/app/Session.h"

#include "lca/Numbers.h"
#include "lca/ResultTable.h"
#include "resources/ResourceData.h"

namespace workbench {

namespace {

using namespace ResourceIds;

/// List columns of the palette's table that a reader wants to see: type, service life, contribution and the three GWPs.
constexpr std::int16_t ShownColumns[] = {2, 3, 5, 6, 7, 8};

std::vector<std::string> ReadCells(const RowState& row) {
    std::vector<std::string> cells;
    for (const std::int16_t column : ShownColumns)
        cells.push_back(row.cells[static_cast<std::size_t>(column - 1)].text);
    return cells;
}

TableRow ReadRow(const RowState& state) {
    TableRow row;
    row.cells = ReadCells(state);
    row.label = row.cells[0];
    row.serviceLifeYears = lca::ParseDecimal(row.cells[1]);
    row.percentage = lca::ParseDecimal(row.cells[2]);
    row.gwp = lca::ParseDecimal(row.cells[3]);
    row.gwpPerArea = lca::ParseDecimal(row.cells[4]);
    row.gwpPerAreaPerYear = lca::ParseDecimal(row.cells[5]);
    return row;
}

} // namespace

Outcome Session::UpdateResults(const ProgressObserver& observer) {
    host->progress.observer = [&](const ProgressRole::State& state) {
        if (state.isOpen && state.maximum > 0) observer(static_cast<double>(state.value) / state.maximum);
    };
    std::ignore = host->registration.ChooseMenu(Menus::Palette, 1);
    const DialogState* palette = host->openDialogs.FindByResource(PaletteDialog);
    const bool isPressed = palette != nullptr && host->dialogManager.Press(palette->id, PaletteItems::UpdateButton);
    host->progress.observer = nullptr;
    if (!isPressed) return Failure::Input("the add-on did not open its palette; build it anew");
    return Outcome::Done();
}

Result<PaletteContent> Session::ReadPalette() {
    const Failure failure = Failure::Input("the add-on's palette shows no table; build it anew");
    DialogState* palette = host->openDialogs.FindByResource(PaletteDialog);
    if (palette == nullptr) return failure;
    const ListState& list = host->openDialogs.FindItem(palette->id, PaletteItems::Table)->list;
    if (list.rows.size() != lca::TotalRow || list.columns.size() < 8) return failure;
    PaletteContent content;
    for (const std::int16_t column : ShownColumns)
        content.headers.push_back(list.columns[static_cast<std::size_t>(column - 1)].header.text);
    content.units = ReadCells(list.rows[lca::UnitRow - 1]);
    for (std::size_t row = lca::FirstCategoryRow; row < lca::TotalRow; ++row)
        content.categories.push_back(ReadRow(list.rows[row - 1]));
    content.total = ReadRow(list.rows[lca::TotalRow - 1]);
    content.lastUpdate = host->openDialogs.FindItem(palette->id, PaletteItems::LastUpdateTime)->text;
    const std::string_view mark = Resources::String(OwnTexts::Incomplete);
    content.isIncomplete = std::string_view(content.lastUpdate).ends_with(mark);
    return content;
}

} // namespace workbench
