// All that a workbook holds while it is filled: what its parts are written from.
#pragma once

#include "xlsx/Chart.h"
#include "xlsx/Chartsheet.h"
#include "xlsx/Comment.h"
#include "xlsx/Drawing.h"
#include "xlsx/Media.h"
#include "xlsx/Refusals.h"
#include "xlsx/SharedStrings.h"
#include "xlsx/StyleRegistry.h"
#include "xlsx/Worksheet.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Xlsx {

/// A name for a formula (without "="), seen in the whole workbook or in one sheet.
struct DefinedName {
    std::string name;
    std::string formula;
    std::string comment;                   ///< empty: none
    std::optional<unsigned> sheetPosition; ///< among all sheets by id, from 0; none: the whole workbook
};

struct WorkbookContent {
    explicit WorkbookContent(platform::FileLayer& files) : package(files), media(package) {}

    Package package; // first, so that it outlives the open part files of the sheets
    Media media;
    std::string author;
    SharedStrings strings;
    CommentList comments;
    CStyleRegistry styles;
    Refusals refusals;
    std::vector<DefinedName> definedNames;
    std::vector<std::unique_ptr<CChart>> charts;
    std::vector<std::unique_ptr<CDrawing>> drawings;
    std::vector<std::unique_ptr<CWorksheet>> worksheets;
    std::vector<std::unique_ptr<CChartsheet>> chartsheets;
    std::set<std::string> sheetNames; // of both kinds of sheets, without case
    unsigned nextSheetId = 1;         // of both kinds of sheets
    unsigned activeSheet = 0;

    [[nodiscard]] bool HasFormulas() const;
    /// By sheet id.
    [[nodiscard]] std::vector<const CSheet*> GetSheets() const;
};

} // namespace Xlsx
