// Numbers of the dialogs and of their items by role.
#pragma once

namespace ResourceIds {

inline constexpr short PaletteDialog = 32406;
inline constexpr short BuildingMaterialsDialog = 32407;
inline constexpr short ProjectSettingsDialog = 32408;
inline constexpr short MaterialReportDialog = 32409;

/// Smallest size of the palette's content in pixels; layouts carry no smallest size, so it is set at run time.
inline constexpr short PaletteMinimumWidth = 200;
inline constexpr short PaletteMinimumHeight = 200;

namespace PaletteItems {
enum Item : short {
    ServiceLifeEdit = 1, ///< this and the next three are editors that move onto the selected row of the table
    PercentageEdit,
    FixedGwpEdit,
    GwpPerAreaPerYearEdit,
    Table,
    ElementsLabel,
    PieLabel,
    BarLabel,
    SettingsButton,
    UpdateButton,
    ReportButton,
    HiddenIcon,
    LastUpdateLabel,
    LastUpdateTime,
    PieChart,
    BarChart,
    MaterialReportButton,
    PlaceButton,
    Count = PlaceButton
};
} // namespace PaletteItems

namespace BuildingMaterialsItems {
enum Item : short {
    OkButton = 1,
    CancelButton,
    FilterEdit,
    ClearFilterButton,
    MaterialList,
    EditableCountText,
    PhasesLabel,
    PhaseValueEdit, ///< editor of the phase list's value column
    PhaseList,
    TeamworkButton,
    TeamworkIcon,
    TeamworkStatusText,
    TeamworkLabel,
    TeamworkSeparator,
    MiddleSeparator,
    BottomSeparator,
    ServiceLifeLabel,
    ServiceLifeEdit,
    ServiceLifeUnit,
    UnitTypeLabel,
    UnitTypePopup,
    Count = UnitTypePopup
};
} // namespace BuildingMaterialsItems

/// Floor quantities have an edit and a check box each; their labels and units are fixed texts.
namespace ProjectSettingsItems {
enum Item : short {
    OkButton = 1,
    CancelButton,
    StandardNameEdit, ///< this and the next are editors of the standards list's columns
    StandardValueEdit,
    PhaseList,
    StandardList,
    ServiceLifeEdit,
    GrossFloorAreaEdit,
    OperationalEmissionEdit,
    ReferenceFloorAreaEdit,
    UnitTypePopup,
    AddButton,
    RemoveButton,
    TeamworkIcon,
    TeamworkStatusText,
    TeamworkButton,
    TeamworkLabel,
    TeamworkSeparator,
    BottomSeparator,
    ServiceLifeLabel,
    ServiceLifeUnit,
    GrossFloorAreaLabel,
    GrossFloorAreaUnit,
    OperationalEmissionLabel,
    OperationalEmissionUnit,
    ReferenceFloorAreaLabel,
    ReferenceFloorAreaUnit,
    PhasesLabel,
    StandardsLabel,
    UnitTypeLabel,
    PhasesSeparator,
    StandardsSeparator,
    GrossFloorAreaCheck,
    OperationalEmissionCheck,
    ReferenceFloorAreaCheck,
    SolarPanelsLabel,
    SolarPanelsUnit,
    MaxSolarContributionLabel,
    MaxSolarContributionUnit,
    ElectricityFactorLabel,
    ElectricityFactorUnit,
    SolarPanelsCheck,
    MaxSolarContributionCheck,
    ElectricityFactorCheck,
    SolarPanelsEdit,
    MaxSolarContributionEdit,
    ElectricityFactorEdit,
    Count = ElectricityFactorEdit
};
} // namespace ProjectSettingsItems

namespace MaterialReportItems {
enum Item : short { PlaceButton = 1, CloseButton, Table, FavoritePopup, Count = FavoritePopup };
} // namespace MaterialReportItems

} // namespace ResourceIds
