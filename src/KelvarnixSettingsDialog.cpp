#include "src/KelvarnixSettingsDialog.h"

#include "src/LCAProjectDataStore.h"
#include "src/Texts.h"

#include "General/HostReport.h"
#include "General/UInterface.h"
#include "lca/LifeCycleModules.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

using namespace ResourceIds;
using namespace ResourceIds::ProjectSettingsItems;
using lca::FloorQuantity;

struct QuantityItems {
    std::int16_t edit;
    std::int16_t check;
};

/// By floor quantity.
constexpr std::array<QuantityItems, lca::FloorQuantityCount> Items = {{
    {GrossFloorAreaEdit, GrossFloorAreaCheck},
    {OperationalEmissionEdit, OperationalEmissionCheck},
    {ReferenceFloorAreaEdit, ReferenceFloorAreaCheck},
    {SolarPanelsEdit, SolarPanelsCheck},
    {MaxSolarContributionEdit, MaxSolarContributionCheck},
    {ElectricityFactorEdit, ElectricityFactorCheck},
}};

const QuantityItems& ItemsOf(FloorQuantity quantity) {
    return Items[static_cast<std::size_t>(quantity)];
}

std::optional<FloorQuantity> FindByItem(std::int16_t QuantityItems::*role, std::int16_t item) {
    for (const FloorQuantity quantity : lca::AllFloorQuantities)
        if (ItemsOf(quantity).*role == item) return quantity;
    return std::nullopt;
}

/// By module; the transport to waste processing has no name of its own.
constexpr StringId PhaseNames[] = {Phases::ProductStage, Phases::Transport,     Phases::Use,
                                   Phases::Demolition,   Phases::Transport,     Phases::WasteProcessing,
                                   Phases::Disposal,     Phases::ReusePotential};
static_assert(std::size(PhaseNames) == lca::LifeCycleModules.size());

constexpr std::int16_t CheckColumn = 1, CodeColumn = 2, PhaseNameColumn = 3;
constexpr std::int16_t MinimumHeaderWidth = 20;

constexpr General::AnchorFactors Corner{1, 1, 0, 0}, Bottom{0, 1, 0, 0}, BottomWide{0, 1, 1, 0}, Wide{0, 0, 1, 0},
    Right{1, 0, 0, 0};

constexpr General::ItemAnchor Anchors[] = {
    {OkButton, Corner},
    {CancelButton, Corner},
    {TeamworkButton, Corner},
    {TeamworkIcon, Bottom},
    {TeamworkStatusText, Bottom},
    {TeamworkLabel, Bottom},
    {AddButton, Bottom},
    {RemoveButton, Bottom},
    {TeamworkSeparator, BottomWide},
    {BottomSeparator, BottomWide},
    {StandardList, {0, 0, 1, 1}},
    {PhaseList, Wide},
    {PhasesSeparator, Wide},
    {StandardsSeparator, Wide},
    {ServiceLifeEdit, Right},
    {GrossFloorAreaEdit, Right},
    {OperationalEmissionEdit, Right},
    {ReferenceFloorAreaEdit, Right},
    {UnitTypePopup, Right},
    {ServiceLifeUnit, Right},
    {GrossFloorAreaUnit, Right},
    {OperationalEmissionUnit, Right},
    {ReferenceFloorAreaUnit, Right},
    {UnitTypeLabel, Right},
    {GrossFloorAreaCheck, Right},
    {OperationalEmissionCheck, Right},
    {ReferenceFloorAreaCheck, Right},
    {SolarPanelsUnit, Right},
    {MaxSolarContributionUnit, Right},
    {ElectricityFactorUnit, Right},
    {SolarPanelsCheck, Right},
    {MaxSolarContributionCheck, Right},
    {ElectricityFactorCheck, Right},
    {SolarPanelsEdit, Right},
    {MaxSolarContributionEdit, Right},
    {ElectricityFactorEdit, Right},
};

} // namespace

KelvarnixSettingsDialog::KelvarnixSettingsDialog(host::Host& host)
    : ReservedDialog(host, ProjectSettingsDialog, "{7A724F36-9D95-4064-B85D-CB8092A0AA41}", Anchors,
                     host::ClassificationsAndPropertiesSet, {TeamworkIcon, TeamworkStatusText, TeamworkButton}),
      standards(host) {}

KelvarnixSettingsDialog::Answer KelvarnixSettingsDialog::Run(const lca::LCAProjectData& record) {
    if (IsOpen()) return Answer::Cancelled;
    workingCopy = record;
    return RunModal() == OkButton ? Answer::Accepted : Answer::Cancelled;
}

void KelvarnixSettingsDialog::OnInitialise() {
    TakeAsShown();
    PlaceTeamworkGroup();
    GetHost().GetDialogItems().Enable(GetDialog(), RemoveButton, false);
}

void KelvarnixSettingsDialog::TakeAsShown() {
    ShowValues();
    shown = workingCopy; // the boxes have brought the plain values into line with their choices
}

void KelvarnixSettingsDialog::ShowValues() {
    host::ItemValues& values = GetHost().GetItemValues();
    values.SetInteger(GetDialog(), ServiceLifeEdit, static_cast<std::int32_t>(workingCopy.consideredServiceLifeYears));
    RefreshQuantityEdits();
    for (const FloorQuantity quantity : lca::AllFloorQuantities)
        values.SetChecked(GetDialog(), ItemsOf(quantity).check,
                          workingCopy.GetFloorChoice(quantity) == lca::FloorSource::EnergyEvaluation);
    TakeSolarPanelsChoice();
    TakeMaxSolarChoice();
    for (const FloorQuantity quantity : {FloorQuantity::ElectricitySourceFactor, FloorQuantity::GrossFloorArea,
                                         FloorQuantity::OperationalEmission, FloorQuantity::ReferenceFloorArea})
        TakeChoice(quantity);
    FillPhases();
    standards.SetUp(GetDialog(), workingCopy.standards);
    values.SelectPopUpEntry(GetDialog(), UnitTypePopup,
                            static_cast<std::int16_t>(static_cast<int>(workingCopy.standardsUnit) + 1));
}

void KelvarnixSettingsDialog::OnReserved() {
    lca::LCAProjectData present = shown;
    const host::ErrorCode error = LoadProjectData(GetHost(), present);
    General::ReportHostError(GetHost(), "loading the project settings", error);
    if (error) return;
    const lca::LCAProjectData before = std::exchange(shown, {});
    const lca::LCAProjectData edited = std::exchange(workingCopy, std::move(present));
    TakeAsShown();
    workingCopy = lca::ApplyChanges(before, edited, shown);
    ShowValues();
    standards.TakeSelection();
}

void KelvarnixSettingsDialog::PlaceTeamworkGroup() {
    if (ShowTeamwork({TeamworkIcon, TeamworkStatusText, TeamworkButton, TeamworkLabel, TeamworkSeparator})) return;
    host::DialogItems& items = GetHost().GetDialogItems();
    const int distance =
        items.ReadRectangle(GetDialog(), TeamworkButton).top - items.ReadRectangle(GetDialog(), AddButton).top;
    for (const std::int16_t button : {AddButton, RemoveButton}) {
        host::Rectangle rectangle = items.ReadRectangle(GetDialog(), button);
        rectangle.top = static_cast<std::int16_t>(rectangle.top + distance);
        items.SetRectangle(GetDialog(), button, rectangle);
    }
    host::Rectangle list = items.ReadRectangle(GetDialog(), StandardList);
    list.height = static_cast<std::int16_t>(list.height + distance);
    items.SetRectangle(GetDialog(), StandardList, list);
}

std::int16_t KelvarnixSettingsDialog::OnClick(std::int16_t item, const host::DialogMessageData& data) {
    if (item == PhaseList) TogglePhase(data);
    if (item == AddButton) standards.Add();
    if (item == RemoveButton) standards.RemoveSelected();
    return ReservedDialog::OnClick(item, data);
}

void KelvarnixSettingsDialog::OnChange(std::int16_t item) {
    host::ItemValues& values = GetHost().GetItemValues();
    if (const auto quantity = FindByItem(&QuantityItems::edit, item)) return TakeEnteredQuantity(*quantity);
    switch (item) {
    case StandardNameEdit:
        return standards.TakeName();
    case StandardValueEdit:
        return standards.TakeValue();
    case StandardList:
        return standards.TakeSelection();
    case ServiceLifeEdit:
        workingCopy.consideredServiceLifeYears =
            static_cast<std::uint32_t>(std::max(0, values.ReadInteger(GetDialog(), ServiceLifeEdit)));
        return;
    case UnitTypePopup:
        workingCopy.standardsUnit =
            static_cast<lca::GWPUnitType>(values.ReadPopUpEntry(GetDialog(), UnitTypePopup) - 1);
        return;
    case SolarPanelsCheck:
        return TakeSolarPanelsChoice();
    case MaxSolarContributionCheck:
        return TakeMaxSolarChoice();
    default:
        if (const auto quantity = FindByItem(&QuantityItems::check, item)) TakeChoice(*quantity);
    }
}

void KelvarnixSettingsDialog::OnResize() {
    LayOutPhaseColumns();
    standards.LayOutColumns();
    General::FitListEditors(GetHost(), GetDialog(), StandardList);
}

void KelvarnixSettingsDialog::RefreshQuantityEdits() {
    for (const FloorQuantity quantity : lca::AllFloorQuantities)
        GetHost().GetItemValues().SetReal(GetDialog(), ItemsOf(quantity).edit, workingCopy.GetFloorValue(quantity));
}

void KelvarnixSettingsDialog::TakeChoice(FloorQuantity quantity) {
    const QuantityItems& items = ItemsOf(quantity);
    GetHost().GetDialogItems().Enable(GetDialog(), items.edit,
                                      !GetHost().GetItemValues().IsChecked(GetDialog(), items.check));
    TakeFlag(quantity);
}

void KelvarnixSettingsDialog::TakeSolarPanelsChoice() {
    host::DialogItems& items = GetHost().GetDialogItems();
    const bool isChecked = GetHost().GetItemValues().IsChecked(GetDialog(), SolarPanelsCheck);
    items.Enable(GetDialog(), SolarPanelsEdit, !isChecked);
    if (isChecked) {
        items.Show(GetDialog(), SolarPanelsEdit, true);
        items.Show(GetDialog(), MaxSolarContributionEdit, false);
        GetHost().GetItemValues().SetChecked(GetDialog(), MaxSolarContributionCheck, false);
    }
    TakeFlag(FloorQuantity::SolarPanels);
}

/// The reverse of the other boxes: the limit is entered while its box is checked, and then takes the panels' place.
void KelvarnixSettingsDialog::TakeMaxSolarChoice() {
    host::DialogItems& items = GetHost().GetDialogItems();
    const bool isChecked = GetHost().GetItemValues().IsChecked(GetDialog(), MaxSolarContributionCheck);
    items.Enable(GetDialog(), MaxSolarContributionEdit, isChecked);
    items.Show(GetDialog(), MaxSolarContributionEdit, isChecked);
    items.Show(GetDialog(), SolarPanelsEdit, !isChecked);
    items.Show(GetDialog(), SolarPanelsCheck, !isChecked);
    if (isChecked)
        GetHost().GetItemValues().SetChecked(GetDialog(), SolarPanelsCheck, false);
    else
        items.Enable(GetDialog(), SolarPanelsEdit, !GetHost().GetItemValues().IsChecked(GetDialog(), SolarPanelsCheck));
    TakeFlag(FloorQuantity::MaxSolarContribution);
}

void KelvarnixSettingsDialog::TakeEnteredQuantity(FloorQuantity quantity) {
    const double value = GetHost().GetItemValues().ReadReal(GetDialog(), ItemsOf(quantity).edit);
    if (!General::IsUsableNumber(GetHost(), value)) return RefreshQuantityEdits();
    workingCopy.SetFloorValue(quantity, workingCopy.GetFloorChoice(quantity), value);
    // The reference floor area may follow the gross floor area.
    if (quantity == FloorQuantity::GrossFloorArea) RefreshQuantityEdits();
}

void KelvarnixSettingsDialog::TakeFlag(FloorQuantity quantity) {
    const bool isChecked = GetHost().GetItemValues().IsChecked(GetDialog(), ItemsOf(quantity).check);
    workingCopy.ChooseFloorSource(quantity, isChecked ? lca::FloorSource::EnergyEvaluation : lca::FloorSource::ByHand);
    RefreshQuantityEdits();
}

void KelvarnixSettingsDialog::LayOutPhaseColumns() {
    host::ListLayout& layout = GetHost().GetListLayout();
    const std::int16_t width = layout.ReadCellSpace(GetDialog(), PhaseList).width;
    const auto set = [&](std::int16_t column, std::int16_t begin, std::int16_t end, std::int16_t headerWidth,
                         const std::string& header) {
        layout.SetHeader(GetDialog(), PhaseList, column, {header, headerWidth, MinimumHeaderWidth});
        layout.SetColumn(GetDialog(), PhaseList, column,
                         {begin, end, host::TextAlignment::Left, host::Truncation::AtEnd});
    };
    set(CheckColumn, 0, 20, 20, {});
    set(CodeColumn, 21, 70, 50, ReadText(GetHost(), Phases::IdHeader));
    set(PhaseNameColumn, 71, width, static_cast<std::int16_t>(width - 70), ReadText(GetHost(), Phases::NameHeader));
}

void KelvarnixSettingsDialog::FillPhases() {
    GetHost().GetListLayout().SetColumnCount(GetDialog(), PhaseList, PhaseNameColumn);
    LayOutPhaseColumns();
    host::ListCells& cells = GetHost().GetListCells();
    GetHost().GetListRows().DeleteAll(GetDialog(), PhaseList);
    for (std::size_t i = 0; i < lca::LifeCycleModules.size(); ++i) {
        const std::string code(lca::LifeCycleModules[i].code);
        const std::int32_t row = GetHost().GetListRows().Insert(GetDialog(), PhaseList, 0);
        cells.SetIcon(GetDialog(), PhaseList, row, CheckColumn,
                      workingCopy.IsPhaseUsed(code) ? host::StandardIcon::Checked : host::StandardIcon::Unchecked);
        cells.SetText(GetDialog(), PhaseList, row, CodeColumn, code);
        cells.SetText(GetDialog(), PhaseList, row, PhaseNameColumn, ReadText(GetHost(), PhaseNames[i]));
    }
}

void KelvarnixSettingsDialog::TogglePhase(const host::DialogMessageData& click) {
    if (click.column != CheckColumn || click.row < 1) return;
    host::ListCells& cells = GetHost().GetListCells();
    const bool becomesUsed =
        cells.ReadIcon(GetDialog(), PhaseList, click.row, CheckColumn) != host::StandardIcon::Checked;
    cells.SetIcon(GetDialog(), PhaseList, click.row, CheckColumn,
                  becomesUsed ? host::StandardIcon::Checked : host::StandardIcon::Unchecked);
    workingCopy.SetPhaseUsed(cells.ReadText(GetDialog(), PhaseList, click.row, CodeColumn), becomesUsed);
}
