#include "src/ResultReport.h"

#include <numeric>

void FillResultReportParameters(const ResultReport& report, ObjectParameters& parameters) {
    // Numbers of the colours, not the colours: the object looks them up among the type colours.
    std::vector<double> pieColours(report.typeColors.size());
    std::iota(pieColours.begin(), pieColours.end(), 1.0);
    std::vector<std::string> barTexts;
    std::vector<double> barValues;
    for (const lca::BarEntry& entry : report.barEntries) {
        barTexts.push_back(entry.first);
        barValues.push_back(entry.second);
    }
    SetTextArray(parameters, "arr_palette_names", report.paletteNames);
    SetTextArray(parameters, "arr_table_text", report.tableText);
    SetRealArray(parameters, "arr_type_color", report.typeColors);
    SetRealArray(parameters, "arr_pie_values", report.pieValues);
    SetRealArray(parameters, "arr_pie_colors", pieColours);
    SetRealArray(parameters, "arr_bar_values", barValues);
    SetTextArray(parameters, "arr_bar_texts", barTexts);
    SetText(parameters, "date", report.date);
}
