#include "src/MainPalette.h"

#include "src/AddOnContext.h"
#include "src/LCAProjectDataStore.h"
#include "src/ReportCommand.h"
#include "src/TeamworkRights.h"
#include "src/WindowCommands.h"

#include "General/HostReport.h"
#include "General/UInterface.h"
#include "host/Model.h"
#include "host/Registration.h"
#include "host/UserInput.h"

#include "src/Texts.h"

#include <utility>

namespace {

using namespace ResourceIds;

constexpr host::Colour White{255, 255, 255};
constexpr std::int16_t Charts[] = {PaletteItems::PieChart, PaletteItems::BarChart};
constexpr std::uint32_t TimeFormatFlags = 528; ///< date and time, as the host's formatter numbers them

constexpr General::ItemAnchor Anchors[] = {
    {PaletteItems::Table, {0, 0, 1, 0}},          {PaletteItems::BarLabel, {0.25, 0, 0, 0}},
    {PaletteItems::SettingsButton, {0, 1, 0, 0}}, {PaletteItems::UpdateButton, {1, 1, 0, 0}},
    {PaletteItems::ReportButton, {1, 1, 0, 0}},   {PaletteItems::LastUpdateLabel, {1, 1, 0, 0}},
    {PaletteItems::LastUpdateTime, {1, 1, 0, 0}}, {PaletteItems::PieChart, {0, 0, 0.25, 1}},
    {PaletteItems::BarChart, {0.25, 0, 0.75, 1}}, {PaletteItems::MaterialReportButton, {0, 1, 0, 0}},
    {PaletteItems::PlaceButton, {0, 1, 0, 0}},
};

std::int16_t GetSettingsIcon(host::LockableStatus status) {
    switch (status) {
    case host::LockableStatus::Free:
        return Icons::SettingsFreeForReservation;
    case host::LockableStatus::HeldByMe:
        return Icons::SettingsEditable;
    default:
        return Icons::SettingsReservedByOther;
    }
}

} // namespace

MainPalette::MainPalette(host::Host& host)
    : AnchoredDialog(host, PaletteDialog, "{E2ADBC68-AD7B-4AFF-9115-86328A1FBA94}",
                     {Anchors, {PaletteMinimumWidth, PaletteMinimumHeight}, {std::begin(Charts), std::end(Charts)}}),
      table(host), editors(host), charts(host) {}

void MainPalette::Open() {
    OpenAsPalette();
}

void MainPalette::Close() {
    ClosePalette();
}

void MainPalette::OnInitialise() {
    SetMenuText(PaletteCommand::Hide);
    CollectElementGWP();
    settingsIcon = 0;
    UpdateSettingsButtonIcon();
    host::DialogItems& items = GetHost().GetDialogItems();
    for (const std::int16_t chart : Charts)
        items.SetBackground(GetDialog(), chart, White);
    for (const std::int16_t hidden :
         {PaletteItems::ServiceLifeEdit, PaletteItems::PercentageEdit, PaletteItems::FixedGwpEdit,
          PaletteItems::GwpPerAreaPerYearEdit, PaletteItems::HiddenIcon})
        items.Show(GetDialog(), hidden, false);
    items.SetIcon(GetDialog(), PaletteItems::UpdateButton, Icons::UpdateResults);
    table.SetUp(GetDialog());
    RebuildTable(Rebuild::AllRows);
    table.EnableSwatches();
    OnActiveWindowChanged();
}

void MainPalette::OnResize() {
    table.LayOutColumns();
    General::FitListEditors(GetHost(), GetDialog(), PaletteItems::Table);
}

std::int16_t MainPalette::OnClick(std::int16_t item, const host::DialogMessageData& data) {
    switch (item) {
    case PaletteItems::Table:
        if (data.column == PaletteModeColumn) TogglePercentageMode(data.row);
        break;
    case PaletteItems::SettingsButton:
        RunProjectSettings(GetHost(), *owner);
        break;
    case PaletteItems::UpdateButton:
        UpdateResults();
        break;
    case PaletteItems::ReportButton:
        GenerateReport(GetHost(),
                       {owner->projectData, owner->materialSums, assessment, charts, ReadLabel(PaletteItems::PieLabel),
                        ReadLabel(PaletteItems::BarLabel), ReadLabel(PaletteItems::LastUpdateLabel)});
        break;
    case PaletteItems::MaterialReportButton:
        RunMaterialReport(*owner);
        break;
    case PaletteItems::PlaceButton:
        PlaceResultReport();
        break;
    default:
        break;
    }
    return 0;
}

void MainPalette::OnDoubleClick(std::int16_t item, const host::DialogMessageData& data) {
    if (item == PaletteItems::Table && data.column == PaletteColourColumn) PickCategoryColour(data.row);
}

void MainPalette::OnChange(std::int16_t item) {
    if (item != PaletteItems::Table) return TakeEdit(item);
    RefreshEditors();
    GetHost().GetDialogItems().Redraw(GetDialog(), PaletteItems::Table);
}

void MainPalette::OnClose() {
    SetMenuText(PaletteCommand::Show);
}

void MainPalette::TogglePercentageMode(std::int32_t row) {
    const std::optional<lca::ElementCategory> category = PaletteTable::FindCategory(row);
    if (!category || !lca::GetRow(*category).isShare || !CanChangeProperties(GetHost())) return;
    const bool isPercentage = !lca::ValueOr(owner->projectData.contributionEnabled, *category, false);
    SaveChange([&](lca::LCAProjectData& record) { record.contributionEnabled[*category] = isPercentage; });
    RebuildTable(Rebuild::TextsOnly);
    GetHost().GetDialogItems().Redraw(GetDialog(), PaletteItems::Table);
}

void MainPalette::PickCategoryColour(std::int32_t row) {
    const std::optional<lca::ElementCategory> category = PaletteTable::FindCategory(row);
    if (!category || !CanChangeProperties(GetHost())) return;
    constexpr unsigned ToPicker = 8; ///< bits by which the picker's channels are wider
    const lca::Colour shown = lca::ValueOr(owner->projectData.elementColours, *category, lca::Colour());
    const auto widen = [](std::uint8_t channel) { return static_cast<std::uint16_t>(channel << ToPicker); };
    const std::optional<host::PickerColour> picked =
        GetHost().GetUserInput().PickColour({widen(shown.red), widen(shown.green), widen(shown.blue)});
    if (!picked) return;
    const auto narrow = [](std::uint16_t channel) { return static_cast<std::uint8_t>(channel >> ToPicker); };
    const lca::Colour chosen{narrow(picked->red), narrow(picked->green), narrow(picked->blue)};
    SaveChange([&](lca::LCAProjectData& record) { record.elementColours[*category] = chosen; });
    GetHost().GetDialogItems().Redraw(GetDialog(), PaletteItems::Table);
    RebuildTable(Rebuild::AllRows);
}

void MainPalette::TakeEdit(std::int16_t editor) {
    const std::optional<PaletteEditors::RecordChange> change = editors.ReadEdit(editor);
    if (!change) return;
    if (!SaveChange(*change)) return RefreshEditors();
    RebuildRows(Rebuild::TextsOnly);
    // The editor itself is left alone: the user may be in the middle of a number.
    editors.EnableForSelection(owner->projectData);
    editors.ShowCounterpart(editor, assessment.results);
}

void MainPalette::RefreshEditors() {
    editors.Refresh(GetDialog(), owner->projectData);
}

bool MainPalette::SaveChange(const PaletteEditors::RecordChange& change) {
    const host::ErrorCode error = CanChangeProperties(GetHost())
                                      ? ChangeProjectData(GetHost(), owner->projectData, change)
                                      : host::Errors::NoAccessRight;
    General::ReportHostError(GetHost(), "storing the project settings", error);
    return !error;
}

RunOutcome MainPalette::CollectElementGWP() {
    const RunOutcome outcome =
        RunGWPCalculation(GetHost(), owner->projectData, owner->materialSums, assessment.baseSums);
    assessment.areSumsWhole = outcome == RunOutcome::Whole;
    if (outcome != RunOutcome::Cancelled) owner->lastCalculationText = MakeTimeStamp();
    return outcome;
}

void MainPalette::UpdateResults() {
    if (CollectElementGWP() == RunOutcome::Cancelled) return;
    RebuildTable(Rebuild::AllRows);
    UpdatePlacedReports();
}

void MainPalette::TakeNewProject() {
    assessment = {};
    owner->materialSums.Clear();
    owner->lastCalculationText.clear();
    if (!IsOpen()) return;
    CollectElementGWP();
    RebuildTable(Rebuild::AllRows);
}

void MainPalette::UpdatePlacedReports() {
    const std::vector<MaterialReportRow> materials = BuildMaterialReport(GetHost(), owner->materialSums);
    UpdateReportObjects(GetHost(), MaterialReportObject, [&](ObjectParameters& parameters) {
        FillMaterialReport(GetHost(), materials, owner->lastCalculationText, parameters);
    });
    const ResultReport report = BuildResultReport();
    UpdateReportObjects(GetHost(), ResultReportObject,
                        [&](ObjectParameters& parameters) { FillResultReportParameters(report, parameters); });
}

void MainPalette::PlaceResultReport() {
    const ResultReport report = BuildResultReport();
    PlaceReportObject(GetHost(), ResultReportObject, {},
                      [&](ObjectParameters& parameters) { FillResultReportParameters(report, parameters); });
}

std::string MainPalette::ReadLabel(std::int16_t item) const {
    return GetHost().GetDialogItems().ReadText(GetDialog(), item);
}

ResultReport MainPalette::BuildResultReport() const {
    return {
        {ReadLabel(PaletteItems::ElementsLabel), ReadLabel(PaletteItems::PieLabel), ReadLabel(PaletteItems::BarLabel)},
        tableText,
        typeColors,
        charts.GetPieValues(),
        charts.GetBarEntries(),
        assessment.time};
}

std::string MainPalette::MakeTimeStamp() const {
    return GetHost().GetResources().FormatCurrentTime(TimeFormatFlags) +
           (assessment.areSumsWhole ? std::string() : ReadText(GetHost(), OwnTexts::Incomplete));
}

void MainPalette::RebuildTable(Rebuild mode) {
    RebuildRows(mode);
    RefreshEditors();
}

void MainPalette::RebuildRows(Rebuild mode) {
    assessment.time = MakeTimeStamp();
    GetHost().GetDialogItems().SetText(GetDialog(), PaletteItems::LastUpdateTime, assessment.time);
    const lca::Results& results = assessment.results = lca::ComputeResults(owner->projectData, assessment.baseSums);
    WarnOfServiceLives();
    if (!lca::IsFinite(results))
        General::ReportFailure(&GetHost(), "results", "a sum is too large to be a number and is shown as \"-\"");
    charts.Rebuild(results, owner->projectData);
    tableText =
        lca::BuildTableText(results, table.GetLabels(), [&](double value) { return FormatNumber(GetHost(), value); });
    typeColors = lca::BuildTypeColours(owner->projectData);
    table.Show(tableText, owner->projectData, mode == Rebuild::AllRows);
    for (const std::int16_t item : {PaletteItems::Table, PaletteItems::PieChart, PaletteItems::BarChart})
        GetHost().GetDialogItems().Redraw(GetDialog(), item);
}

void MainPalette::UpdateSettingsButtonIcon() {
    if (!GetHost().GetTeamwork().IsTeamworkProject()) return;
    const std::int16_t icon = GetSettingsIcon(ReadPropertiesStatus(GetHost()));
    if (std::exchange(settingsIcon, icon) == icon) return;
    GetHost().GetDialogItems().SetIcon(GetDialog(), PaletteItems::SettingsButton, icon);
}

void MainPalette::OnCell(std::int16_t item, const host::DialogMessageData& cell) {
    if (item != PaletteItems::Table) return;
    if (cell.row <= lastPaintedRow) UpdateSettingsButtonIcon(); // a paint begins
    lastPaintedRow = cell.row;
    table.DrawSwatch(cell, typeColors);
}

void MainPalette::OnDraw(std::int16_t item, const host::DialogMessageData& data) {
    if (item == PaletteItems::PieChart) charts.DrawPieChart(*data.context, data.area);
    if (item == PaletteItems::BarChart) charts.DrawBarChart(*data.context, data.area);
}

void MainPalette::OnActiveWindowChanged() {
    host::Database window;
    General::ReportHostError(GetHost(), "reading the front window", GetHost().GetDatabases().ReadFrontWindow(window));
    GetHost().GetDialogItems().Enable(GetDialog(), PaletteItems::PlaceButton,
                                      window.type != host::DatabaseType::Model3D);
}

void MainPalette::SetMenuText(StringId text) {
    General::ReportHostError(GetHost(), "naming the palette's menu item",
                             GetHost().GetRegistration().SetMenuItemText(Menus::Palette, 1, ReadText(GetHost(), text)));
}

void MainPalette::WarnOfServiceLives() {
    for (const lca::CategoryResult& row : assessment.results.categories) {
        if (!row.lacksServiceLife) continue;
        ShowTextAlert(GetHost(), host::AlertType::Warning, Palette::GwpPerAreaPerYearHeader,
                      Palette::ServiceLifeTooShort, {}, Palette::ColorHeader);
    }
}
