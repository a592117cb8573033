// Writes the spreadsheet report: the result sheet with the chart pictures and a legend, and the material sheet. Content
// comes as cells; here are fonts, fills, widths, heights and the page.
#pragma once

#include "lca/ReportSheet.h"

#include <cstdint>
#include <string>
#include <vector>

struct ReportPicture {
    std::string title;
    std::string file; ///< UTF-8 path of a JPEG file; empty leaves picture and title out
};

/// A category and the colour of its slice of the pie.
struct LegendEntry {
    std::string name;
    std::uint32_t argb = 0;
};

struct SpreadsheetReport {
    std::string resultSheetName;
    std::string materialSheetName;
    double resultColumnWidth = 0.0; ///< letters
    std::vector<lca::SheetRow> resultRows;
    std::vector<lca::SheetRow> materialRows; ///< layer, name, GWP
    ReportPicture pieChart;
    ReportPicture barChart;
    std::vector<LegendEntry> legend; ///< of the pie, and left out with it
};

enum class ReportOutcome {
    Written,
    WrittenWithoutPicture, ///< the file of a picture is not there
    Failed                 ///< a file that had this name before is as it was
};

/// path is UTF-8. A text that begins with "=" gets a blank before it, because it would be a formula.
[[nodiscard]] ReportOutcome WriteSpreadsheetReport(const SpreadsheetReport& report, const std::string& path);
