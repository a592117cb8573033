#include "workbench/cli/Session.h"

#include "workbench/cli/ProgressBar.h"

#include "lca/Numbers.h"
#include "resources/ResourceData.h"

namespace workbench::cli {

namespace {

using namespace ResourceIds;

/// List columns of the palette's table that a reader wants to see: type, service life, contribution and the three GWPs.
constexpr std::int16_t ShownColumns[] = {2, 3, 5, 6, 7, 8};
constexpr std::int32_t UnitRow = 1;
constexpr std::int32_t TotalRow = 9;

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

Session::Session() : host(std::make_unique<WorkbenchHost>()), module(std::make_unique<Module>(*host)) {
    host->dialogManager.reportSink = [this](const std::string& line) { messages.push_back(line); };
    host->dialogManager.alertAnswer = [this](const host::Alert& alert) {
        if (messages.empty() || messages.back() != alert.largeText) messages.push_back(alert.largeText);
        return std::int16_t{1};
    };
}

Session::~Session() {
    module->Unload();
}

Outcome Session::Start(std::unique_ptr<Project> project, host::ProjectEvent event) {
    std::string failure = module->Load(GetDefaultModulePath());
    if (failure.empty()) failure = module->Start();
    if (!failure.empty()) return Failure{InputUnreadable, failure};
    host->OpenProject(std::move(project), event);
    return {};
}

Outcome Session::UpdateResults() {
    const auto bar = std::make_shared<ProgressBar>("Calculating");
    host->progress.observer = [bar](const ProgressRole::State& state) {
        if (!state.isOpen)
            bar->Clear();
        else if (state.maximum > 0)
            bar->Show(static_cast<double>(state.value) / state.maximum);
    };
    host->registration.ChooseMenu(Menus::Palette, 1);
    const DialogState* palette = host->openDialogs.FindByResource(PaletteDialog);
    const bool isPressed = palette != nullptr && host->dialogManager.Press(palette->id, PaletteItems::UpdateButton);
    host->progress.observer = nullptr;
    if (!isPressed) return Failure{InputUnreadable, "the add-on did not open its palette; build it anew"};
    return {};
}

Outcome Session::ReadPalette(PaletteContent& content) {
    const Failure failure{InputUnreadable, "the add-on's palette shows no table; build it anew"};
    DialogState* palette = host->openDialogs.FindByResource(PaletteDialog);
    if (palette == nullptr) return failure;
    const ListState& list = host->openDialogs.FindItem(palette->id, PaletteItems::Table)->list;
    if (list.rows.size() != static_cast<std::size_t>(TotalRow) || list.columns.size() < 8) return failure;
    for (const std::int16_t column : ShownColumns)
        content.headers.push_back(list.columns[static_cast<std::size_t>(column - 1)].header.text);
    content.units = ReadCells(list.rows[UnitRow - 1]);
    for (std::int32_t row = UnitRow + 1; row < TotalRow; ++row)
        content.categories.push_back(ReadRow(list.rows[static_cast<std::size_t>(row - 1)]));
    content.total = ReadRow(list.rows[TotalRow - 1]);
    content.lastUpdate = host->openDialogs.FindItem(palette->id, PaletteItems::LastUpdateTime)->text;
    return {};
}

} // namespace workbench::cli
