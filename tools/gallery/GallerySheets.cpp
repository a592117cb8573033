// The workbook with a bit of everything, comments, pictures, and the one with a million cells.
#include "gallery/Gallery.h"

#include <limits>

namespace gallery {

namespace {

using namespace Xlsx;

void WriteTexts(CWorksheet& sheet) {
    sheet.BeginRow();
    sheet.AddCell("Kind");
    sheet.AddCell("Value");
    const std::pair<const char*, const char*> texts[] = {{"letters", "Grüße, 日本語, 🏠"},
                                                         {"markup", "<a href=\"x\">Tom & Jerry</a>"},
                                                         {"blank ends", "  both  "},
                                                         {"tab and line feed", "a\tb\nc"},
                                                         {"control", "bell\x07 and return\r."},
                                                         {"lookalike", "_x0041_ and _x000D_"},
                                                         {"repeated", "Grüße, 日本語, 🏠"}};
    for (const auto& [kind, text] : texts) {
        sheet.BeginRow();
        sheet.AddCell(kind);
        sheet.AddCell(text);
    }
}

void WriteNumbers(CWorksheet& sheet) {
    const std::pair<const char*, double> numbers[] = {{"quarter", 0.25},
                                                      {"large", 1234567.89},
                                                      {"small", -1.5e-300},
                                                      {"infinite", std::numeric_limits<double>::infinity()},
                                                      {"no number", std::numeric_limits<double>::quiet_NaN()}};
    for (const auto& [kind, number] : numbers) {
        sheet.BeginRow();
        sheet.AddCell(kind);
        sheet.AddCell(number);
    }
    for (const char* formula : {"=SUM(B9:B10)", "=IF(B9<1,\"less & fine\",\"more\")", "=Quarter*4"}) {
        sheet.BeginRow(20);
        sheet.AddCell("formula");
        sheet.AddCell(formula);
    }
}

void WritePages(CWorkbook& workbook) {
    SheetView view;
    view.frozenPane = FrozenPane{1, 2};
    view.pageScale = PageScale::FitWidth;
    CWorksheet& sheet = workbook.AddSheet(L"Seiten & \u00DCbersicht", {{1, 1, 20.5}, {2, 3, 8}}, view);
    sheet.SetPageSetup({PageOrientation::Landscape, 0.5, 0.5, 1, 1, 0.25, 0.25});
    sheet.SetPageHeader({"Haus & Hof", "2026 &P", "rechts"});
    sheet.SetPageFooter({"", "unten <mitte>", ""});
    for (unsigned row = 0; row < 30; ++row) {
        sheet.BeginRow();
        for (unsigned column = 0; column < 6; ++column) {
            sheet.AddCell(row * 10 + column);
        }
    }
    sheet.AddRowBreak(10);
    sheet.AddRowBreak(20);
    sheet.AddColumnBreak(4);
    sheet.MergeCells(RangeReference({1, 1}, {2, 3}));
    sheet.MergeCells("E5:F5");
}

Comment NoteOf(unsigned row, unsigned column, const std::string& text) {
    Comment comment;
    comment.place = {row, column};
    comment.text = {{text, {}}};
    comment.box = {120 + 60.0 * column, 10 + 15.0 * row, 130, 50};
    return comment;
}

} // namespace

void FillGallery(CWorkbook& workbook, const std::wstring& pictureFolder) {
    CWorksheet& values = workbook.AddSheet("Values", {{1, 1, 20}, {2, 2, 40}});
    WriteTexts(values);
    WriteNumbers(values);
    values.AddComment(NoteOf(8, 1, "A quarter"));
    CChart& line = workbook.AddChart(values, TwoCellAnchor{{3, 1}, {9, 16}});
    line.title = "Numbers";
    line.main.kind = DiagramKind::Line;
    Series series;
    series.name = "B9:B10";
    series.values = "Values!$B$9:$B$10";
    line.main.series.push_back(series);
    workbook.AddPicture(values, pictureFolder + L"fields.png", ImageKind::Png, TwoCellAnchor{{3, 18}, {6, 24}});
    CChart& chart = workbook.AddChartsheet("Diagram").GetChart();
    chart.main.kind = DiagramKind::Pie;
    chart.main.series.push_back(series);
    WritePages(workbook);
    workbook.DefineName({"Quarter", "Values!$B$9", "A number of its own", std::nullopt});
    workbook.DefineName({"Here", "Values!$A$1:$B$2", "", 0});
}

void FillComments(CWorkbook& workbook) {
    CWorksheet& first = workbook.AddSheet("Notes");
    for (unsigned row = 0; row < 4; ++row) {
        first.BeginRow();
        first.AddCell("Row " + std::to_string(row + 1));
    }
    Comment styled = NoteOf(0, 0, "");
    styled.author = "Ада";
    Font bold;
    bold.attributes = Bold;
    Font red;
    red.name = "Arial";
    red.sizePoints = 9;
    red.attributes = Italic | Underline;
    red.colourSource = FontColour::Given;
    red.colour = "FFFF0000";
    styled.text = {{"Bold, ", bold}, {"and red:\nsecond line ", red}, {" <end>", {}}};
    styled.view = NoteView::Shown;
    styled.box = {150, 5, 160, 60};
    first.AddComment(styled);
    first.AddComment(NoteOf(2, 0, "hidden"));
    first.AddComment(NoteOf(3, 0, "replaced"));
    first.AddComment(NoteOf(3, 0, "Grüße"));
    workbook.AddSheet("Empty between");
    CWorksheet& other = workbook.AddSheet("More notes");
    Comment shown = NoteOf(9, 27, "far out");
    shown.box = {200, 90, 100, 40};
    shown.view = NoteView::Shown;
    other.AddComment(shown);
}

void FillPictures(CWorkbook& workbook, const std::wstring& pictureFolder) {
    CWorksheet& sheet = workbook.AddSheet("Pictures");
    sheet.BeginRow();
    sheet.AddCell("two cells, one cell, absolute, and once more");
    const AnchorSize size = {2 * EmuPerInch, EmuPerInch + EmuPerInch / 2};
    workbook.AddPicture(sheet, pictureFolder + L"fields.png", ImageKind::Png,
                        TwoCellAnchor{{0, 2, 100000, 50000}, {3, 10, 0, 0}});
    workbook.AddPicture(sheet, pictureFolder + L"fields.gif", ImageKind::Gif, OneCellAnchor{{4, 2}, size});
    workbook.AddPicture(sheet, pictureFolder + L"fields.jpg", ImageKind::Jpeg, AbsoluteAnchor{0, 3 * EmuPerInch, size});
    workbook.AddPicture(sheet, pictureFolder + L"fields.jpeg", ImageKind::Jpeg,
                        AbsoluteAnchor{3 * EmuPerInch, 3 * EmuPerInch, size});
    workbook.AddPicture(sheet, pictureFolder + L"fields.tiff", ImageKind::Tiff, OneCellAnchor{{0, 24}, size});
    workbook.AddPicture(sheet, pictureFolder + L"fields.png", ImageKind::Png, OneCellAnchor{{4, 24}, size});
    workbook.AddPicture(workbook.AddSheet("Second"), pictureFolder + L"fields.gif", ImageKind::Gif,
                        OneCellAnchor{{0, 0}, size});
}

void FillCells(CWorkbook& workbook) {
    constexpr unsigned Rows = 100000;
    constexpr unsigned DistinctTexts = 10000;
    CWorksheet& sheet = workbook.AddSheet("Cells");
    for (unsigned row = 0; row < Rows; ++row) {
        sheet.BeginRow();
        for (unsigned column = 0; column < 5; ++column) {
            sheet.AddCell("Component " + std::to_string((row * 5 + column) % DistinctTexts));
            sheet.AddCell(row * 0.37 + column);
        }
    }
}

} // namespace gallery
