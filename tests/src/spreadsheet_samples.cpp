// Writes reports of awkward buildings for other programs to judge; judge_spreadsheet.py knows what has to be in them.
//   spreadsheet_samples FOLDER
#include "src/SpreadsheetReport.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace {

using lca::CellRole;
using lca::ElementCategory;

int faults = 0;

void Check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "spreadsheet_samples: %s\n", what);
    ++faults;
}

std::string ContentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

lca::ReportSheetTexts MakeTexts() {
    lca::ReportSheetTexts texts;
    texts.headers = {"", "Type", "C\r[kg]", "D", "E", "F", "G", "H", "I"};
    texts.categories = {"Op", "Comp", "Doors", "Win", "Inv", "Inst", "Proc"};
    texts.total = "TOTAL";
    texts.useStage = "B6";
    texts.consideredPeriod = "period";
    texts.grossFloorArea = "area";
    return texts;
}

/// Doors have no service life, the sun makes the operation negative, the windows' sum is below 0.
std::vector<lca::SheetRow> MakeResultRows() {
    lca::LCAProjectData record;
    record.consideredServiceLifeYears = 50;
    record.elementLives[ElementCategory::Doors] = 0;
    record.elementLives[ElementCategory::Windows] = 30;
    record.SetFloorValue(lca::FloorQuantity::OperationalEmission, lca::FloorSource::ByHand, -3);
    record.SetFloorValue(lca::FloorQuantity::GrossFloorArea, lca::FloorSource::ByHand, 200);
    record.SetFloorValue(lca::FloorQuantity::ReferenceFloorArea, lca::FloorSource::ByHand, 100);
    const lca::BaseSums sums{1000, 500, -100};
    return lca::BuildResultSheet(record, sums, lca::ComputeResults(record, sums), MakeTexts());
}

lca::SheetRow MakeMaterialRow(CellRole role, const std::string& layer, const std::string& name, double gwp) {
    return {{role, layer, {}}, {role, name, {}}, {CellRole::Number, {}, gwp}};
}

SpreadsheetReport MakeReport() {
    SpreadsheetReport report;
    report.resultSheetName = lca::MakeSheetName("Results: A/B?");
    report.materialSheetName = lca::MakeSheetName("Bob's [list]");
    report.resultColumnWidth = 30;
    report.resultRows = MakeResultRows();
    report.materialRows = {
        {{CellRole::Header, "Layer", {}}, {CellRole::Header, "Name", {}}, {CellRole::Header, "GWP", {}}}};
    return report;
}

void WriteAwkward(const std::string& folder) {
    SpreadsheetReport report = MakeReport();
    report.materialRows.push_back(MakeMaterialRow(CellRole::PartLabel, "=Walls", "", 1.5));
    report.materialRows.push_back(MakeMaterialRow(CellRole::Text, "", "=1+", -1.5));
    report.materialRows.push_back(MakeMaterialRow(CellRole::Text, "=", "Größe <&> 日本", 3));
    std::string longName;
    for (int i = 0; i < 30; ++i)
        longName += "Rigips ";
    for (const double number : {12389000.4, 34089.449, 9999.996, -1234567.0, 0.0449, 1e9})
        report.materialRows.push_back(MakeMaterialRow(CellRole::PartLabel, longName, "", number));
    report.pieChart = {"GWP", folder + "/no such picture.jpg"};
    report.barChart = {"Threshold", folder}; // a folder is no picture
    report.legend = {{"Op", {17, 34, 51}}};
    Check(WriteSpreadsheetReport(report, folder + "/awkward.xlsx").outcome == ReportOutcome::WrittenWithoutPicture,
          "missing pictures are not told");
    const std::string before = ContentOf(folder + "/awkward.xlsx");
    Check(WriteSpreadsheetReport(report, folder + "/none/awkward.xlsx").outcome == ReportOutcome::Failed,
          "a folder that is not there takes a report");
    Check(!before.empty() && ContentOf(folder + "/awkward.xlsx") == before, "the report did not stay as it was");
}

/// A legend of colours from all over the cube, some 50 apart in each channel.
void WriteLegend(const std::string& folder) {
    SpreadsheetReport report = MakeReport();
    report.pieChart = {"GWP", folder + "/picture.jpg"};
    std::ofstream(report.pieChart.file, std::ios::binary) << "\xFF\xD8\xFF";
    const std::uint8_t channels[] = {0, 51, 102, 153, 204, 255};
    for (const std::uint8_t red : channels)
        for (const std::uint8_t green : channels)
            for (const std::uint8_t blue : channels)
                report.legend.push_back({"Name", {red, green, blue}});
    Check(WriteSpreadsheetReport(report, folder + "/legend.xlsx").outcome == ReportOutcome::Written, "no legend");
}

void WriteManyLayers(const std::string& folder) {
    constexpr int Layers = 10'000;
    SpreadsheetReport report = MakeReport();
    for (int i = 1; i <= Layers; ++i) {
        report.materialRows.push_back(MakeMaterialRow(CellRole::PartLabel, "Layer " + std::to_string(i), "", i));
        report.materialRows.push_back(MakeMaterialRow(CellRole::Text, "", "Material " + std::to_string(i % 50), i));
    }
    const auto start = std::chrono::steady_clock::now();
    Check(WriteSpreadsheetReport(report, folder + "/layers.xlsx").outcome == ReportOutcome::Written,
          "many layers do not fit");
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    std::printf("%d layers: %.0f ms\n", Layers, taken.count());
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return 2;
    WriteAwkward(arguments[1]);
    WriteLegend(arguments[1]);
    WriteManyLayers(arguments[1]);
    return faults == 0 ? 0 : 1;
}
