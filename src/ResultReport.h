// The palette's results as the result report object carries them: table, charts and date in its array parameters.
#pragma once

#include "src/ReportObjects.h"

#include "lca/ChartGeometry.h"

#include <string>
#include <vector>

struct ResultReport {
    std::vector<std::string> paletteNames; ///< headings of table, pie and bars
    std::vector<std::string> tableText;    ///< 10 rows of 7 texts
    std::vector<double> typeColors;        ///< red, green, blue (0-255) by category
    std::vector<double> pieValues;         ///< percent by category
    std::vector<lca::BarEntry> barEntries; ///< sorted
    std::string date;
};

void FillResultReportParameters(const ResultReport& report, ObjectParameters& parameters);
