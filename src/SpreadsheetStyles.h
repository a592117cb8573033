// How the cells of the spreadsheet report look, by their role.
#pragma once

#include "lca/ReportSheet.h"
#include "xlsx/Style.h"

#include <cstdint>
#include <tuple>

/// A number's look by its role and the digits that it shows; texts leave the decimals at 0.
struct CellLook {
    lca::CellRole role = lca::CellRole::Text;
    unsigned decimals = 0;     ///< shown
    unsigned mostDecimals = 0; ///< for which room is kept, so that the points of a column stand below each other

    friend bool operator<(const CellLook& a, const CellLook& b) {
        return std::tie(a.role, a.decimals, a.mostDecimals) < std::tie(b.role, b.decimals, b.mostDecimals);
    }
};

CellLook FindLook(const lca::SheetCell& cell);

/// fontPoints  size of the letters
Xlsx::Style MakeCellStyle(const CellLook& look, int fontPoints);

/// The colour of a category, with its name in black or white letters, whichever differ more from it: by at least 4.5
/// to 1, the contrast that small letters need. Transparency is not kept.
Xlsx::Style MakeLegendStyle(lca::Colour fill, int fontPoints);

/// Of the title above a picture.
Xlsx::Style MakePictureTitleStyle(int fontPoints);
