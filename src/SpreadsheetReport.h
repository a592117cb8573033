// Writes the spreadsheet report: the result sheet with the chart pictures and a legend, and the material sheet. Content
// comes as cells; here are fonts, fills, widths, heights and the page.
#pragma once

#include "lca/ReportSheet.h"

#include <string>
#include <vector>

/// Pixels of the two pictures as they are drawn, whatever the palette's charts measure at present.
struct PictureSize {
    int width = 0;
    int height = 0;
};
inline constexpr PictureSize PiePictureSize{350, 230}, BarPictureSize{520, 230};

struct ReportPicture {
    std::string title; ///< empty over a picture that shows nothing
    std::string file;  ///< UTF-8 path of a JPEG file; empty leaves picture and title out
};

/// A category and the colour of its slice of the pie.
struct LegendEntry {
    std::string name;
    lca::Colour colour;
};

struct SpreadsheetReport {
    std::string resultSheetName;
    std::string materialSheetName;
    std::string projectName;        ///< left above every printed page
    std::string lastUpdate;         ///< right above it
    double resultColumnWidth = 0.0; ///< letters
    std::vector<lca::SheetRow> resultRows;
    std::vector<lca::SheetRow> materialRows; ///< layer, name, GWP
    ReportPicture pieChart;
    ReportPicture barChart;
    std::vector<LegendEntry> legend; ///< of the pie, and left out with its title
};

enum class ReportOutcome {
    Written,
    WrittenWithoutPicture, ///< the file of a picture is not there or cannot be read
    Failed                 ///< a file that had this name before is as it was
};

struct WrittenReport {
    ReportOutcome outcome = ReportOutcome::Failed;
    std::string failure; ///< why it failed, in English words; names the folder for temporary files where that is it
};

/// path is UTF-8; where it is a symbolic link, the file behind it is written. A text that begins with "=" gets a blank
/// before it, because it would be a formula.
[[nodiscard]] WrittenReport WriteSpreadsheetReport(const SpreadsheetReport& report, const std::string& path);
