// The two sheets of the spreadsheet report as plain cells: what stands where, and which role each cell has. How a role
// looks is the writer's.
#pragma once

#include "lca/GWPCalculation.h"
#include "lca/LCAProjectData.h"
#include "lca/ResultTable.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace lca {

enum class CellRole {
    Header,       ///< of a column of texts
    NumberHeader, ///< of a column of numbers
    StageLabel,   ///< operation and construction process
    PartLabel,    ///< building components to installations
    TotalLabel,
    Text, ///< also of a number that is not shown
    Number,
    PartNumber,  ///< of a row that sums up the rows below it
    TotalNumber, ///< GWP and GWP per area of the total
    TotalPerYear,
    NoteLabel, ///< below the table
    NoteNumber
};

/// Without text and number the cell is styled and has no value.
struct SheetCell {
    CellRole role = CellRole::Text;
    std::string text;
    std::optional<double> number; ///< may be infinite
    unsigned decimals = 2;        ///< that its column has room for
};

using SheetRow = std::vector<SheetCell>;

inline constexpr std::size_t ResultSheetColumns = 9;

struct ReportSheetTexts {
    std::array<std::string, ResultSheetColumns> headers; ///< with "\r" as line break
    std::array<std::string, CategoryCount> categories;
    std::string total;
    std::string useStage;                 ///< of the operation
    std::string productStageAndEndOfLife; ///< of the building components
    std::string countedPhases;            ///< of the doors
    std::string constructionStage;
    std::string consideredPeriod;
    std::string grossFloorArea;
};

/// Header row, eight rows of nine cells, an empty row, and the two labelled lines. A number that is not above 0 shows
/// in columns C to F as a blank cell; G to I always have their number. Replacements are period / service life as a real
/// number, infinite for a service life of 0.
std::vector<SheetRow> BuildResultSheet(const LCAProjectData& record, const BaseSums& sums, const Results& results,
                                       const ReportSheetTexts& texts);

/// Decimals that a number shows where `most` have room: none beyond the six digits that a cell of a workbook holds.
unsigned CountShownDecimals(double number, unsigned most);

/// The text as a cell can hold it: one that begins with "=" gets a blank before it, because it would be a formula.
std::string MakeCellText(const std::string& text);

/// Characters that a sheet's name cannot hold become "_"; at most 31 characters are kept.
std::string MakeSheetName(const std::string& name);

} // namespace lca
