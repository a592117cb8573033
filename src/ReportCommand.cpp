#include "src/ReportCommand.h"

#include "src/AddOnContext.h"
#include "src/SpreadsheetReport.h"
#include "src/SystemStart.h"
#include "src/Texts.h"

#include "General/HostReport.h"
#include "General/UInterface.h"
#include "host/Model.h"
#include "host/UserInput.h"
#include "lca/Numbers.h"
#include "platform/Text.h"

namespace {

using namespace ResourceIds;

constexpr std::size_t LongestRefusedName = 5; ///< no more than the extension
constexpr char TypeManager[] = "MyManager";
constexpr char Extension[] = "xlsx";
constexpr double PictureScale = 2.0; ///< so that the charts print sharply
constexpr std::int16_t OpenNow = 1;
constexpr int HeaderCount = 9;

std::vector<std::string> ReadTexts(host::Host& host, StringId first, int count) {
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(ReadText(host, first + i));
    return texts;
}

lca::ReportSheetTexts ReadSheetTexts(host::Host& host) {
    lca::ReportSheetTexts texts;
    texts.headers = ReadTexts(host, ReportColumns::FirstHeader, HeaderCount);
    for (std::size_t i = 0; i < texts.categories.size(); ++i)
        texts.categories[i] = ReadText(host, Report::FirstCategoryLabel + static_cast<int>(i));
    texts.total = ReadText(host, Report::TotalLabel);
    texts.useStage = ReadText(host, Report::UseStage);
    texts.productStageAndEndOfLife = ReadText(host, Report::ProductStageAndEndOfLife);
    texts.countedPhases = ReadText(host, Report::CountedPhases);
    texts.constructionStage = ReadText(host, Report::ConstructionProcessStage);
    texts.consideredPeriod = ReadText(host, Report::ConsideredPeriod);
    texts.grossFloorArea = ReadText(host, Report::GrossFloorArea);
    return texts;
}

/// Of a row's texts and of its number.
std::pair<lca::CellRole, lca::CellRole> GetRoles(MaterialReportRow::Kind kind) {
    using lca::CellRole;
    switch (kind) {
    case MaterialReportRow::Kind::Layer:
        return {CellRole::PartLabel, CellRole::PartNumber};
    case MaterialReportRow::Kind::Total:
        return {CellRole::TotalLabel, CellRole::TotalNumber};
    default:
        return {CellRole::Text, CellRole::Number};
    }
}

std::vector<lca::SheetRow> BuildMaterialSheet(host::Host& host, const lca::MaterialSumTable& sums) {
    using lca::CellRole;
    std::vector<lca::SheetRow> rows(1);
    for (const std::string& header : ReadTexts(host, MaterialSheetColumns::LayerHeader, 2))
        rows.front().push_back({CellRole::Header, header, {}});
    rows.front().push_back({CellRole::NumberHeader, ReadText(host, MaterialSheetColumns::LayerHeader + 2), {}});
    for (const MaterialReportRow& row : BuildMaterialReport(host, sums)) {
        const auto [label, number] = GetRoles(row.kind);
        rows.push_back({{label, row.layer, {}}, {label, row.name, {}}, {number, {}, row.gwp}});
    }
    return rows;
}

/// Empty where the picture could not be written: the report then does without it.
std::string DrawChart(host::Host& host, MainPalette& palette, std::int16_t item, StringId fileName,
                      const PictureSize& size) {
    std::string path;
    const host::ErrorCode noFolder = host.GetPictures().ReadSpecialFolder(host::TemporaryFolder, path);
    General::ReportHostError(host, "finding the folder for temporary files", noFolder);
    if (noFolder != host::NoError) return {};
    path.append("/").append(ReadText(host, fileName));
    const host::Rectangle area{0, 0, static_cast<std::int16_t>(size.width), static_cast<std::int16_t>(size.height)};
    const host::ErrorCode notDrawn =
        host.GetPictures().WriteJpeg(path, size.width, size.height, PictureScale,
                                     [&](host::NativeContext& context) { palette.DrawChart(item, context, area); });
    General::ReportHostError(host, ("drawing the chart " + path).c_str(), notDrawn);
    return notDrawn == host::NoError ? path : std::string();
}

std::vector<LegendEntry> BuildLegend(host::Host& host, const lca::LCAProjectData& record) {
    std::vector<LegendEntry> legend;
    for (const lca::ElementCategory category : lca::AllCategories)
        legend.push_back({ReadText(host, Report::FirstCategoryLabel + static_cast<int>(category)),
                          lca::ValueOr(record.elementColours, category, std::uint32_t{0})});
    return legend;
}

SpreadsheetReport BuildReport(host::Host& host, AddOnContext& context) {
    MainPalette& palette = context.mainPalette;
    SpreadsheetReport report;
    const auto readLabel = [&](std::int16_t item) { return host.GetDialogItems().ReadText(palette.GetDialog(), item); };
    report.resultSheetName = lca::MakeSheetName(ReadText(host, Report::ResultSheetName));
    report.materialSheetName = lca::MakeSheetName(ReadText(host, Report::MaterialSheetName));
    General::ReportHostError(host, "reading the project's name", host.GetModel().ReadProjectName(report.projectName));
    report.lastUpdate = readLabel(PaletteItems::LastUpdateLabel) + " " + palette.GetLastUpdateText();
    report.resultColumnWidth = lca::ParseDecimal(ReadText(host, ReportColumns::ColumnWidth)).value_or(0.0);
    report.resultRows =
        lca::BuildResultSheet(context.projectData, palette.GetBaseSums(), palette.GetResults(), ReadSheetTexts(host));
    report.materialRows = BuildMaterialSheet(host, context.materialSums);
    report.pieChart.file = DrawChart(host, palette, PaletteItems::PieChart, Report::PieChartFile, PiePictureSize);
    report.barChart.file = DrawChart(host, palette, PaletteItems::BarChart, Report::BarChartFile, BarPictureSize);
    if (!palette.GetCharts().GetPieValues().empty()) report.pieChart.title = readLabel(PaletteItems::PieLabel);
    if (palette.GetCharts().GetBarEntries().size() >= lca::FewestBars)
        report.barChart.title = readLabel(PaletteItems::BarLabel);
    report.legend = BuildLegend(host, context.projectData);
    return report;
}

std::size_t CountNameLetters(const std::string& path) {
    const std::size_t separator = path.find_last_of("/\\");
    return platform::Utf16FromUtf8(separator == std::string::npos ? path : path.substr(separator + 1)).size();
}

} // namespace

void GenerateReport(host::Host& host, AddOnContext& context) {
    const std::optional<std::string> path = host.GetUserInput().PickSaveFile(
        {ReadText(host, Report::SaveTitle), ReadText(host, Report::DefaultFileName), TypeManager, Extension});
    if (!path) return;
    if (CountNameLetters(*path) <= LongestRefusedName) {
        ShowTextAlert(host, host::AlertType::Warning, Alerts::WarningTitle, Report::FileNameTooShort, {}, Alerts::Ok);
        return;
    }
    const auto [outcome, failure] = WriteSpreadsheetReport(BuildReport(host, context), *path);
    if (outcome == ReportOutcome::WrittenWithoutPicture)
        General::ReportFailure(&host, "writing the report", "a chart's picture cannot be read; it is left out");
    if (outcome == ReportOutcome::Failed) {
        ShowTextAlert(host, host::AlertType::Error, Report::SaveTitle, Report::SaveFailed, {}, Alerts::Ok);
        General::ReportFailure(&host, "writing the report", failure.c_str());
        return;
    }
    const std::int16_t pressed =
        General::ShowAlert(host, host::AlertType::Information, Report::SaveTitle.entry, Report::Saved.entry,
                           {Report::OpenNowButton.entry, Report::CloseButton.entry, General::NoButton});
    if (pressed != OpenNow) return;
    const std::optional<std::string> narrow = platform::NarrowFromWide(platform::WideFromUtf8(*path));
    if (!narrow || !OpenFileWithShell(*narrow))
        General::ReportFailure(&host, "opening the report", "the system has no program for it; open the file itself");
}
