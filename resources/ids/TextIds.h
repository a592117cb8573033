// Numbers of the texts. A namespace per string list: `List` is the list's number, every other name one entry of it.
#pragma once

namespace ResourceIds {

/// A text by its string list and its entry in it, which counts from 1.
struct StringId {
    short list;
    short entry;
};

/// The entry `offset` places behind `first`, for texts that follow one another in the order of an index.
[[nodiscard]] constexpr StringId operator+(StringId first, int offset) {
    return {first.list, static_cast<short>(first.entry + offset)};
}

[[nodiscard]] constexpr bool operator==(StringId left, StringId right) {
    return left.list == right.list && left.entry == right.entry;
}

/// Menu commands: a string list each, entry 1 the menu's title, entry 2 the command; prompts alike.
namespace Menus {
inline constexpr short Palette = 32500;
inline constexpr short BuildingMaterials = 32501;
inline constexpr short ProjectSettings = 32502;
inline constexpr short Information = 32503;
inline constexpr short MaterialReport = 32504;
inline constexpr short PalettePrompt = 32510;
inline constexpr short BuildingMaterialsPrompt = 32511;
inline constexpr short ProjectSettingsPrompt = 32512;
inline constexpr short InformationPrompt = 32513;
inline constexpr short MaterialReportPrompt = 32514;
inline constexpr short TitleEntry = 1;
inline constexpr short CommandEntry = 2;
} // namespace Menus

/// The palette command's text at run time.
namespace PaletteCommand {
inline constexpr short List = 32540;
inline constexpr StringId Show{List, 1};
inline constexpr StringId Hide{List, 2};
} // namespace PaletteCommand

namespace AddOn {
inline constexpr short List = 32542;
inline constexpr StringId Name{List, 1};
inline constexpr StringId Description{List, 2};
} // namespace AddOn

/// Names of undoable commands that no other list holds.
namespace OwnTexts {
inline constexpr short List = 32543;
inline constexpr StringId RecordUndoName{List, 1};
inline constexpr StringId SchemaUndoName{List, 2};
inline constexpr StringId Incomplete{List, 3}; ///< behind a time stamp
} // namespace OwnTexts

namespace Alerts {
inline constexpr short List = 32550;
inline constexpr StringId Ok{List, 1};
inline constexpr StringId ErrorTitle{List, 4};
inline constexpr StringId MaterialReportObjectMissing{List, 5};
inline constexpr StringId SmallText{List, 6};
inline constexpr StringId WarningTitle{List, 7};
inline constexpr StringId ResultReportObjectMissing{List, 8};
inline constexpr StringId ProgressTitle{List, 9};
inline constexpr StringId ProgressPhase{List, 10};
} // namespace Alerts

namespace EnergyExport {
inline constexpr short List = 32555;
inline constexpr StringId MenuText{List, 1};
} // namespace EnergyExport

namespace Schema {
inline constexpr short List = 32556;
inline constexpr StringId ClassificationSystem{List, 1};
inline constexpr StringId BuildingMaterialsClass{List, 2};
inline constexpr StringId ProjectGroup{List, 3};
inline constexpr StringId MaterialGroup{List, 4};
inline constexpr StringId ElementGroup{List, 5};
/// Plus the index of the property definition, 0 to 18.
inline constexpr StringId FirstPropertyName{List, 6};
} // namespace Schema

/// The spreadsheet report.
namespace Report {
inline constexpr short List = 32557;
inline constexpr StringId DefaultFileName{List, 1};
inline constexpr StringId SaveTitle{List, 2};
inline constexpr StringId ResultSheetName{List, 3};
/// Plus the category, 0 to 6.
inline constexpr StringId FirstCategoryLabel{List, 4};
inline constexpr StringId TotalLabel{List, 11};
inline constexpr StringId ConsideredPeriod{List, 12};
inline constexpr StringId GrossFloorArea{List, 13};
inline constexpr StringId UseStage{List, 14};
inline constexpr StringId ProductStageAndEndOfLife{List, 15};
inline constexpr StringId CountedPhases{List, 16};
inline constexpr StringId ConstructionProcessStage{List, 17};
inline constexpr StringId Saved{List, 18};
inline constexpr StringId SaveFailed{List, 19};
inline constexpr StringId ActualImpact{List, 25};
inline constexpr StringId PieChartFile{List, 26};
inline constexpr StringId BarChartFile{List, 27};
inline constexpr StringId CloseButton{List, 28};
inline constexpr StringId OpenNowButton{List, 29};
inline constexpr StringId MaterialSheetName{List, 30};
inline constexpr StringId FileNameTooShort{List, 31};
} // namespace Report

/// The project settings dialog: names and codes of the life-cycle phases, list headers.
namespace Phases {
inline constexpr short List = 32600;
inline constexpr StringId ProductStage{List, 1};
inline constexpr StringId Transport{List, 2};
inline constexpr StringId Use{List, 3};
inline constexpr StringId Demolition{List, 4};
inline constexpr StringId WasteProcessing{List, 5};
inline constexpr StringId Disposal{List, 6};
inline constexpr StringId ReusePotential{List, 7};
inline constexpr StringId IdHeader{List, 16};
inline constexpr StringId NameHeader{List, 17};
inline constexpr StringId StandardNameHeader{List, 18};
inline constexpr StringId StandardValueHeader{List, 19};
} // namespace Phases

/// The palette's table, and the commands on report objects.
namespace Palette {
inline constexpr short List = 32601;
/// Plus the column, 0 to 6: the table's fourth column has no text, the eighth the last.
inline constexpr StringId FirstHeader{List, 1};
inline constexpr StringId ColorHeader{List, 1};
inline constexpr StringId TypeHeader{List, 2};
inline constexpr StringId ServiceLifeHeader{List, 3};
inline constexpr StringId ContributionHeader{List, 4};
inline constexpr StringId GwpHeader{List, 5};
inline constexpr StringId GwpPerAreaHeader{List, 6};
inline constexpr StringId GwpPerAreaPerYearHeader{List, 7};
inline constexpr StringId ServiceLifeUnit{List, 8};
inline constexpr StringId ContributionUnit{List, 9};
inline constexpr StringId GwpUnit{List, 10};
inline constexpr StringId GwpPerAreaUnit{List, 11};
inline constexpr StringId GwpPerAreaPerYearUnit{List, 12};
/// Plus the category, 0 to 6.
inline constexpr StringId FirstCategoryName{List, 13};
inline constexpr StringId TotalName{List, 20};
inline constexpr StringId UpdateMaterialReportsCommand{List, 21};
inline constexpr StringId PlaceMaterialReportCommand{List, 22};
inline constexpr StringId PlaceMaterialReportPrompt{List, 23};
inline constexpr StringId ServiceLifeTooShort{List, 24};
inline constexpr StringId PlaceResultReportPrompt{List, 25};
inline constexpr StringId PlaceResultReportCommand{List, 26};
inline constexpr StringId UpdateResultReportsCommand{List, 27};
} // namespace Palette

namespace BuildingMaterials {
inline constexpr short List = 32602;
inline constexpr StringId NameHeader{List, 1};
inline constexpr StringId IdHeader{List, 2};
inline constexpr StringId PhaseHeader{List, 3};
inline constexpr StringId ValueHeader{List, 4};
inline constexpr StringId EditableCount{List, 5};
} // namespace BuildingMaterials

/// Column headers of the spreadsheet's result sheet; the last entry is the columns' width as a number.
namespace ReportColumns {
inline constexpr short List = 32606;
inline constexpr StringId FirstHeader{List, 1};
inline constexpr StringId ColumnWidth{List, 10};
} // namespace ReportColumns

namespace Teamwork {
inline constexpr short List = 32607;
inline constexpr StringId FreeStatus{List, 1};
inline constexpr StringId ReserveButton{List, 2};
inline constexpr StringId EditableStatus{List, 3};
inline constexpr StringId ReleaseButton{List, 4};
inline constexpr StringId ReservedByStatus{List, 8};
inline constexpr StringId RequestButton{List, 9};
} // namespace Teamwork

namespace Web {
inline constexpr short List = 32608;
inline constexpr StringId InformationAddress{List, 1};
} // namespace Web

namespace MaterialReport {
inline constexpr short List = 32609;
inline constexpr StringId DefaultElementSettings{List, 1};
inline constexpr StringId FavoritePrefix{List, 2};
inline constexpr StringId LayerHeader{List, 3};
inline constexpr StringId NameHeader{List, 4};
inline constexpr StringId GwpHeader{List, 5};
inline constexpr StringId Total{List, 6};
} // namespace MaterialReport

/// Column headers of the spreadsheet's material sheet.
namespace MaterialSheetColumns {
inline constexpr short List = 32610;
inline constexpr StringId LayerHeader{List, 1};
inline constexpr StringId NameHeader{List, 2};
inline constexpr StringId GwpHeader{List, 3};
} // namespace MaterialSheetColumns

} // namespace ResourceIds
