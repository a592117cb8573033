#include "src/ReportCommand.h"

#include "src/MaterialReport.h"
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

template <std::size_t Count>
void ReadTexts(host::Host& host, StringId first, std::array<std::string, Count>& texts) {
    for (std::size_t i = 0; i < Count; ++i)
        texts[i] = ReadText(host, first + static_cast<int>(i));
}

lca::ReportSheetTexts ReadSheetTexts(host::Host& host) {
    lca::ReportSheetTexts texts;
    ReadTexts(host, ReportColumns::FirstHeader, texts.headers);
    ReadTexts(host, Report::FirstCategoryLabel, texts.categories);
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
    std::array<std::string, 3> headers;
    ReadTexts(host, MaterialSheetColumns::LayerHeader, headers);
    std::vector<lca::SheetRow> rows = {{{CellRole::Header, headers[0], {}},
                                        {CellRole::Header, headers[1], {}},
                                        {CellRole::NumberHeader, headers[2], {}}}};
    for (const MaterialReportRow& row : BuildMaterialReport(host, sums)) {
        const auto [label, number] = GetRoles(row.kind);
        rows.push_back({{label, row.layer, {}}, {label, row.name, {}}, {number, {}, row.gwp}});
    }
    return rows;
}

using ChartDrawing = void (ResultCharts::*)(host::NativeContext& context, const host::Rectangle& area) const;

/// Empty where the picture could not be written: the report then does without it.
std::string DrawChart(host::Host& host, const ResultCharts& charts, ChartDrawing draw, StringId fileName,
                      const PictureSize& size) {
    std::string path;
    const host::ErrorCode noFolder = host.GetPictures().ReadSpecialFolder(host::TemporaryFolder, path);
    General::ReportHostError(host, "finding the folder for temporary files", noFolder);
    if (noFolder != host::NoError) return {};
    path.append("/").append(ReadText(host, fileName));
    const host::Rectangle area{0, 0, static_cast<std::int16_t>(size.width), static_cast<std::int16_t>(size.height)};
    const host::ErrorCode notDrawn =
        host.GetPictures().WriteJpeg(path, size.width, size.height, PictureScale,
                                     [&](host::NativeContext& context) { (charts.*draw)(context, area); });
    General::ReportHostError(host, ("drawing the chart " + path).c_str(), notDrawn);
    return notDrawn == host::NoError ? path : std::string();
}

std::vector<LegendEntry> BuildLegend(host::Host& host, const lca::LCAProjectData& record) {
    std::vector<LegendEntry> legend;
    legend.reserve(lca::CategoryRows.size());
    for (const lca::CategoryRow& row : lca::CategoryRows)
        legend.push_back({ReadText(host, Report::FirstCategoryLabel + static_cast<int>(row.category)),
                          lca::ValueOr(record.elementColours, row.category, lca::Colour())});
    return legend;
}

SpreadsheetReport BuildReport(host::Host& host, const ReportSource& source) {
    SpreadsheetReport report;
    report.resultSheetName = lca::MakeSheetName(ReadText(host, Report::ResultSheetName));
    report.materialSheetName = lca::MakeSheetName(ReadText(host, Report::MaterialSheetName));
    General::ReportHostError(host, "reading the project's name", host.GetModel().ReadProjectName(report.projectName));
    report.lastUpdate = source.lastUpdateLabel + " " + source.assessment.time;
    report.resultColumnWidth = lca::ParseDecimal(ReadText(host, ReportColumns::ColumnWidth)).value_or(0.0);
    report.resultRows = lca::BuildResultSheet(source.record, source.assessment.baseSums, source.assessment.results,
                                              ReadSheetTexts(host));
    report.materialRows = BuildMaterialSheet(host, source.materialSums);
    report.pieChart.file =
        DrawChart(host, source.charts, &ResultCharts::DrawPieChart, Report::PieChartFile, PiePictureSize);
    report.barChart.file =
        DrawChart(host, source.charts, &ResultCharts::DrawBarChart, Report::BarChartFile, BarPictureSize);
    if (!source.charts.GetPieValues().empty()) report.pieChart.title = source.pieTitle;
    if (source.charts.GetBarEntries().size() >= lca::FewestBars) report.barChart.title = source.barTitle;
    report.legend = BuildLegend(host, source.record);
    return report;
}

std::size_t CountNameLetters(const std::string& path) {
    const std::size_t separator = path.find_last_of("/\\");
    return platform::Utf16FromUtf8(separator == std::string::npos ? path : path.substr(separator + 1)).size();
}

} // namespace

void GenerateReport(host::Host& host, const ReportSource& source) {
    const std::optional<std::string> path = host.GetUserInput().PickSaveFile(
        {ReadText(host, Report::SaveTitle), ReadText(host, Report::DefaultFileName), TypeManager, Extension});
    if (!path) return;
    if (CountNameLetters(*path) <= LongestRefusedName) {
        ShowTextAlert(host, host::AlertType::Warning, Alerts::WarningTitle, Report::FileNameTooShort, {}, Alerts::Ok);
        return;
    }
    const auto [outcome, failure] = WriteSpreadsheetReport(BuildReport(host, source), *path);
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
