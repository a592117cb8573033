// The workbooks of the gallery; each function fills one.
#pragma once

#include "xlsx/Workbook.h"

#include <string>

namespace gallery {

/// A bit of everything: texts, numbers, formulas, pages, names, a chart, a picture, a comment, a chartsheet.
/// pictureFolder  where the picture files are, with a closing separator
void FillGallery(Xlsx::CWorkbook& workbook, const std::wstring& pictureFolder);
void FillCharts(Xlsx::CWorkbook& workbook);
void FillStyles(Xlsx::CWorkbook& workbook);
void FillComments(Xlsx::CWorkbook& workbook);
void FillPictures(Xlsx::CWorkbook& workbook, const std::wstring& pictureFolder);
/// 1,000,000 cells, half numbers, half texts of 10,000 different ones.
void FillCells(Xlsx::CWorkbook& workbook);

} // namespace gallery
