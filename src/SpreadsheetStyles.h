// How the cells of the spreadsheet report look, by their role.
#pragma once

#include "lca/ReportSheet.h"
#include "xlsx/Style.h"

#include <cstdint>

/// fontPoints  size of the letters
Xlsx::Style MakeCellStyle(lca::CellRole role, int fontPoints);

/// The colour of a category, with its name in letters that can be read on it. Transparency is not kept.
Xlsx::Style MakeLegendStyle(std::uint32_t argb, int fontPoints);

/// Of the title above a picture.
Xlsx::Style MakePictureTitleStyle(int fontPoints);
