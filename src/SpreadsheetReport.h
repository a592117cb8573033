// Writes the spreadsheet report: the result sheet with the chart pictures, and the material sheet. Content comes as
// cells; here are fonts, fills, widths, heights and the page.
#pragma once

#include "lca/ReportSheet.h"

#include <string>
#include <vector>

struct SpreadsheetReport {
    std::string resultSheetName;
    std::string materialSheetName;
    double resultColumnWidth = 0.0; ///< letters
    std::vector<lca::SheetRow> resultRows;
    std::vector<lca::SheetRow> materialRows; ///< layer, name, GWP
    // JPEG files; an empty path leaves the picture out.
    std::string pieChartFile;
    std::string barChartFile;
};

/// path is UTF-8. False when the file could not be written; one of that name is then as it was.
[[nodiscard]] bool WriteSpreadsheetReport(const SpreadsheetReport& report, const std::string& path);
