#include "src/MainPalette.h"

#include "src/AddOnContext.h"
#include "src/GWPRun.h"
#include "src/TeamworkRights.h"

#include "General/CallbackGuard.h"
#include "host/Model.h"
#include "host/Registration.h"
#include "host/Resources.h"
#include "resources/ResourceIds.h"

namespace {

using namespace ResourceIds;

constexpr host::Colour White{255, 255, 255};
constexpr std::uint32_t TimeFormatFlags = 528; ///< date and time, as the host's formatter numbers them
constexpr std::int16_t SmallestPaletteExtent = 200;

struct PaletteAnchor {
    std::int16_t item;
    General::AnchorFactors factors;
};

constexpr PaletteAnchor Anchors[] = {
    {Palette::Table, {0, 0, 1, 0}},
    {Palette::ThresholdCaption, {0.25, 0, 0, 0}},
    {Palette::Settings, {0, 1, 0, 0}},
    {Palette::UpdateResults, {1, 1, 0, 0}},
    {Palette::GenerateReport, {1, 1, 0, 0}},
    {Palette::LastUpdateCaption, {1, 1, 0, 0}},
    {Palette::LastUpdate, {1, 1, 0, 0}},
    {Palette::PieChart, {0, 0, 0.25, 1}},
    {Palette::BarChart, {0.25, 0, 0.75, 1}},
    {Palette::MaterialReport, {0, 1, 0, 0}},
    {Palette::Place, {0, 1, 0, 0}},
};

std::int16_t GetSettingsIcon(host::LockableStatus status) {
    switch (status) {
    case host::LockableStatus::Free: return SettingsFreeIcon;
    case host::LockableStatus::HeldByMe: return SettingsEditableIcon;
    default: return SettingsReservedIcon;
    }
}

} // namespace

MainPalette::MainPalette(host::Host& host)
    : CDialogBase(host, PaletteDialog, "{E2ADBC68-AD7B-4AFF-9115-86328A1FBA94}"), anchoring(host), table(host) {}

void MainPalette::Open() { OpenAsPalette(); }

void MainPalette::Close() { ClosePalette(); }

std::int16_t MainPalette::HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                          const host::DialogMessageData& data) {
    switch (message) {
    case host::DialogMessage::Initialise: Initialise(); break;
    case host::DialogMessage::Click:
        if (item == Palette::UpdateResults) UpdateResults();
        break;
    case host::DialogMessage::ListCellUpdate:
        if (item == Palette::Table) {
            UpdateSettingsButtonIcon();
            table.DrawSwatch(data, typeColors);
        }
        break;
    case host::DialogMessage::Resize: Resize(); break;
    case host::DialogMessage::CloseRequest: Close(); break;
    case host::DialogMessage::Close:
        anchoring.Reset();
        SetMenuText(ShowPaletteText);
        break;
    default: break;
    }
    return 0;
}

void MainPalette::Initialise() {
    RebuildBarEntries();
    SetMenuText(HidePaletteText);
    CollectElementGWP();
    UpdateSettingsButtonIcon();
    RegisterAnchors();
    host::DialogItems& items = GetHost().GetDialogItems();
    for (const std::int16_t chart : {Palette::PieChart, Palette::BarChart})
        items.SetBackground(GetDialog(), chart, White);
    for (const std::int16_t hidden : {Palette::ServiceLifeEditor, Palette::PercentageEditor, Palette::GWPEditor,
                                      Palette::GWPPerAreaPerYearEditor, Palette::TeamworkIcon})
        items.Show(GetDialog(), hidden, false);
    items.SetIcon(GetDialog(), Palette::UpdateResults, UpdateResultsIcon);
    table.SetUp(GetDialog());
    RebuildTable(Rebuild::AllRows);
    table.EnableSwatches();
    EnablePlacing();
}

void MainPalette::RegisterAnchors() {
    GetHost().GetDialogs().SetMinimumSize(GetDialog(), {SmallestPaletteExtent, SmallestPaletteExtent});
    anchoring.Reset();
    for (const PaletteAnchor& anchor : Anchors)
        anchoring.Register(GetDialog(), anchor.item, anchor.factors);
}

void MainPalette::Resize() {
    host::Dialogs& dialogs = GetHost().GetDialogs();
    dialogs.BeginMoveGrow(GetDialog());
    anchoring.Apply(GetDialog());
    dialogs.EndMoveGrow(GetDialog());
    table.LayOutColumns();
}

void MainPalette::CollectElementGWP() {
    const host::ErrorCode error = RunGWPCalculation(GetHost(), owner->projectData, owner->materialSums, baseSums);
    if (error != host::NoError)
        General::ReportFailure(&GetHost(), "GWP calculation", ("ended early with host error " + std::to_string(error)).c_str());
}

void MainPalette::UpdateResults() {
    CollectElementGWP();
    RebuildTable(Rebuild::AllRows);
}

void MainPalette::RebuildTable(Rebuild mode) {
    host::Resources& resources = GetHost().GetResources();
    lastUpdateText = resources.FormatCurrentTime(TimeFormatFlags);
    GetHost().GetDialogItems().SetText(GetDialog(), Palette::LastUpdate, lastUpdateText);
    results = lca::ComputeResults(owner->projectData, baseSums);
    WarnOfServiceLives();
    tableText = lca::BuildTableText(results, table.GetLabels(),
                                    [&](double value) { return resources.FormatNumber(value, TableNumberFormat); });
    typeColors = lca::BuildTypeColours(owner->projectData);
    table.Show(tableText, owner->projectData, mode == Rebuild::AllRows);
    for (const std::int16_t item : {Palette::Table, Palette::PieChart, Palette::BarChart})
        GetHost().GetDialogItems().Redraw(GetDialog(), item);
}

void MainPalette::UpdateSettingsButtonIcon() {
    if (!GetHost().GetTeamwork().IsTeamworkProject()) return;
    GetHost().GetDialogItems().SetIcon(GetDialog(), Palette::Settings, GetSettingsIcon(ReadPropertiesStatus(GetHost())));
}

void MainPalette::RebuildBarEntries() {
    barEntries.clear();
    for (const lca::Standard& standard : owner->projectData.standards)
        barEntries.emplace_back(standard.name, standard.limit);
    barEntries.emplace_back(GetHost().GetResources().ReadString(ReportTexts, ActualImpact),
                            lca::GetTotalInUnit(results, owner->projectData.standardsUnit));
}

void MainPalette::EnablePlacing() {
    host::Database window;
    GetHost().GetDatabases().ReadFrontWindow(window);
    GetHost().GetDialogItems().Enable(GetDialog(), Palette::Place, window.type != host::DatabaseType::Model3D);
}

void MainPalette::SetMenuText(std::int16_t entry) {
    GetHost().GetRegistration().SetMenuItemText(PaletteMenu, 1, GetHost().GetResources().ReadString(PaletteMenuTexts, entry));
}

void MainPalette::WarnOfServiceLives() {
    host::Resources& resources = GetHost().GetResources();
    for (const lca::CategoryResult& row : results.categories) {
        if (!row.lacksServiceLife) continue;
        host::Alert alert;
        alert.type = host::AlertType::Warning;
        alert.title = resources.ReadString(PaletteTexts, GWPPerAreaPerYearHeader);
        alert.largeText = resources.ReadString(PaletteTexts, ServiceLifeTooShort);
        alert.buttons = {resources.ReadString(PaletteTexts, ColourHeader)};
        GetHost().GetAlerts().Show(alert);
    }
}
