// Cell references and the bounds of a sheet.
#pragma once

#include <string>

namespace Xlsx {

constexpr unsigned mostRows = 1048576;
constexpr unsigned mostColumns = 16384;
constexpr unsigned mostCellLetters = 32767; ///< UTF-16 units

/// A cell's place, both counted from 0.
struct CellPlace {
    unsigned row = 0;
    unsigned column = 0;
};

/// Column letters and 1-based row: (0, 0) is "A1", (9, 26) is "AA10".
[[nodiscard]] std::string CellReference(CellPlace place);

/// "A1:B2".
[[nodiscard]] std::string RangeReference(CellPlace first, CellPlace last);

} // namespace Xlsx
