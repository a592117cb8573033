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
    : CDialogBase(host, PaletteDialog, "{E2ADBC68-AD7B-4AFF-9115-86328A1FBA94}"), anchoring(host), table(host),
      editors(host), charts(host) {}

void MainPalette::Open() {
    OpenAsPalette();
}

void MainPalette::Close() {
    ClosePalette();
}

std::int16_t MainPalette::HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                          const host::DialogMessageData& data) {
    switch (message) {
    case host::DialogMessage::Initialise:
        Initialise();
        break;
    case host::DialogMessage::Click:
        Click(item, data);
        break;
    case host::DialogMessage::DoubleClick:
        if (item == PaletteItems::Table && data.column == PaletteColourColumn) PickCategoryColour(data.row);
        break;
    case host::DialogMessage::Change:
        if (item == PaletteItems::Table) {
            RefreshEditors();
            GetHost().GetDialogItems().Redraw(GetDialog(), PaletteItems::Table);
        } else {
            TakeEdit(item);
        }
        break;
    case host::DialogMessage::ListCellUpdate:
        if (item == PaletteItems::Table) PaintCell(data);
        break;
    case host::DialogMessage::UserItemUpdate:
        if (data.context != nullptr) DrawChart(item, *data.context, data.area);
        break;
    case host::DialogMessage::Resize:
        Resize();
        break;
    case host::DialogMessage::CloseRequest:
        Close();
        break;
    case host::DialogMessage::Close:
        anchoring.Reset();
        SetMenuText(PaletteCommand::Show);
        break;
    default:
        break;
    }
    return 0;
}

void MainPalette::Initialise() {
    SetMenuText(PaletteCommand::Hide);
    CollectElementGWP();
    settingsIcon = 0;
    UpdateSettingsButtonIcon();
    RegisterAnchors();
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

void MainPalette::RegisterAnchors() {
    anchoring.RegisterAll(GetDialog(), Anchors, {PaletteMinimumWidth, PaletteMinimumHeight});
}

void MainPalette::Resize() {
    host::Dialogs& dialogs = GetHost().GetDialogs();
    host::DialogItems& items = GetHost().GetDialogItems();
    dialogs.BeginMoveGrow(GetDialog());
    for (const std::int16_t chart : Charts)
        items.EnableDrawing(GetDialog(), chart, false);
    anchoring.Apply(GetDialog());
    for (const std::int16_t chart : Charts)
        items.EnableDrawing(GetDialog(), chart, true);
    dialogs.EndMoveGrow(GetDialog());
    table.LayOutColumns();
    General::FitListEditors(GetHost(), GetDialog(), PaletteItems::Table);
    for (const std::int16_t chart : Charts)
        items.Redraw(GetDialog(), chart);
}

void MainPalette::Click(std::int16_t item, const host::DialogMessageData& data) {
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
        GenerateReport(GetHost(), *owner);
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
}

void MainPalette::TogglePercentageMode(std::int32_t row) {
    const std::optional<lca::ElementCategory> category = PaletteTable::FindCategory(row);
    if (!category || *category < lca::ElementCategory::Inventory || !CanChangeProperties(GetHost())) return;
    const bool isPercentage = !lca::ValueOr(owner->projectData.contributionEnabled, *category, false);
    SaveChange([&](lca::LCAProjectData& record) { record.contributionEnabled[*category] = isPercentage; });
    RebuildTable(Rebuild::TextsOnly);
    GetHost().GetDialogItems().Redraw(GetDialog(), PaletteItems::Table);
}

void MainPalette::PickCategoryColour(std::int32_t row) {
    const std::optional<lca::ElementCategory> category = PaletteTable::FindCategory(row);
    if (!category || !CanChangeProperties(GetHost())) return;
    constexpr unsigned ToPicker = 8; ///< bits by which the picker's channels are wider
    const std::uint32_t colour = lca::ValueOr(owner->projectData.elementColours, *category, std::uint32_t{0});
    const auto widen = [&](unsigned shift) {
        return static_cast<std::uint16_t>(((colour >> shift) & 0xFFU) << ToPicker);
    };
    const std::optional<host::PickerColour> picked =
        GetHost().GetUserInput().PickColour({widen(16), widen(8), widen(0)});
    if (!picked) return;
    const auto narrow = [](std::uint16_t channel) { return static_cast<std::uint32_t>(channel) >> ToPicker; };
    const std::uint32_t argb =
        0xFF000000U | (narrow(picked->red) << 16U) | (narrow(picked->green) << 8U) | narrow(picked->blue);
    SaveChange([&](lca::LCAProjectData& record) { record.elementColours[*category] = argb; });
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
    editors.ShowCounterpart(editor, results);
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
    const RunOutcome outcome = RunGWPCalculation(GetHost(), owner->projectData, owner->materialSums, baseSums);
    areSumsWhole = outcome == RunOutcome::Whole;
    if (outcome != RunOutcome::Cancelled) owner->lastCalculationText = MakeTimeStamp();
    return outcome;
}

void MainPalette::UpdateResults() {
    if (CollectElementGWP() == RunOutcome::Cancelled) return;
    RebuildTable(Rebuild::AllRows);
    UpdatePlacedReports();
}

void MainPalette::TakeNewProject() {
    baseSums = {};
    areSumsWhole = false;
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

ResultReport MainPalette::BuildResultReport() const {
    host::DialogItems& items = GetHost().GetDialogItems();
    return {{items.ReadText(GetDialog(), PaletteItems::ElementsLabel),
             items.ReadText(GetDialog(), PaletteItems::PieLabel), items.ReadText(GetDialog(), PaletteItems::BarLabel)},
            tableText,
            typeColors,
            charts.GetPieValues(),
            charts.GetBarEntries(),
            lastUpdateText};
}

std::string MainPalette::MakeTimeStamp() const {
    return GetHost().GetResources().FormatCurrentTime(TimeFormatFlags) +
           (areSumsWhole ? std::string() : ReadText(GetHost(), OwnTexts::Incomplete));
}

void MainPalette::RebuildTable(Rebuild mode) {
    RebuildRows(mode);
    RefreshEditors();
}

void MainPalette::RebuildRows(Rebuild mode) {
    lastUpdateText = MakeTimeStamp();
    GetHost().GetDialogItems().SetText(GetDialog(), PaletteItems::LastUpdateTime, lastUpdateText);
    results = lca::ComputeResults(owner->projectData, baseSums);
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

void MainPalette::PaintCell(const host::DialogMessageData& cell) {
    if (cell.row <= lastPaintedRow) UpdateSettingsButtonIcon(); // a paint begins
    lastPaintedRow = cell.row;
    table.DrawSwatch(cell, typeColors);
}

void MainPalette::DrawChart(std::int16_t item, host::NativeContext& context, const host::Rectangle& area) const {
    if (item == PaletteItems::PieChart) charts.DrawPieChart(context, area);
    if (item == PaletteItems::BarChart) charts.DrawBarChart(context, area);
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
    for (const lca::CategoryResult& row : results.categories) {
        if (!row.lacksServiceLife) continue;
        ShowTextAlert(GetHost(), host::AlertType::Warning, Palette::GwpPerAreaPerYearHeader,
                      Palette::ServiceLifeTooShort, {}, Palette::ColorHeader);
    }
}
