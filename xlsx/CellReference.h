// Cell references and the bounds of a sheet.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Xlsx {

constexpr unsigned MostRows = 1048576;
constexpr unsigned MostColumns = 16384;
constexpr unsigned MostCellLetters = 32767;   ///< UTF-16 units
constexpr unsigned MostFormulaLetters = 8192; ///< UTF-16 units without the "="
constexpr unsigned MostBreaks = 1026;
constexpr double MostRowHeight = 409;   ///< points
constexpr double MostColumnWidth = 255; ///< letters

/// A cell's place, both counted from 0.
struct CellPlace {
    unsigned row = 0;
    unsigned column = 0;
};

/// First and last cell, both included.
struct CellRange {
    CellPlace first;
    CellPlace last;
};

/// Column letters and 1-based row: (0, 0) is "A1", (9, 26) is "AA10".
[[nodiscard]] std::string CellReference(CellPlace place);

/// "A1:B2".
[[nodiscard]] std::string RangeReference(CellPlace first, CellPlace last);

/// The place that a reference names, letters of either case; none where a sheet has no such cell.
[[nodiscard]] std::optional<CellPlace> CellOf(std::string_view reference);
/// Of two references with ":" between, the upper left cell first.
[[nodiscard]] std::optional<CellRange> RangeOf(std::string_view reference);

[[nodiscard]] bool IsInSheet(CellPlace place);
[[nodiscard]] bool DoOverlap(const CellRange& one, const CellRange& other);

} // namespace Xlsx
