// All parts of the gallery's workbooks, which other programs judge, and of a few that hold what no gallery needs to
// show, against approved texts.
#include "gallery/Gallery.h"
#include "WrittenWorkbook.h"
#include "support/ApprovedText.h"
#include "support/Environment.h"
#include "support/TextCases.h"

#include <cmath>

namespace {

using namespace Xlsx;
using xlsx_test::Write;
using xlsx_test::Written;

/// One element a line, moved in by its depth; the first one inside another follows it on its line. Without the time.
std::string Readable(const std::string& part) {
    std::string text;
    std::size_t depth = 0;
    bool isAfterElement = false;
    for (std::size_t at = 0; at < part.size(); ++at) {
        const bool isClosing = part.compare(at, 2, "</") == 0;
        const bool isOpening = part[at] == '<' && !isClosing && part[at + 1] != '?';
        const bool isEmptyEnd = part.compare(at, 2, "/>") == 0;
        if (isOpening && isAfterElement) text += '\n' + std::string(2 * depth, ' ');
        depth += isOpening ? 1 : 0;
        depth -= isClosing || isEmptyEnd ? 1 : 0;
        isAfterElement = (isAfterElement && !isOpening) || isClosing || isEmptyEnd;
        text += part[at];
    }
    return support::Masked(text, "####-##-##T##:##:##Z", "(time)") + "\n";
}

void FillCellsOfEachKind(CWorkbook& workbook) {
    CWorksheet& sheet = workbook.AddSheet("Cells", {{2, 5, 8.43}}, {FrozenPane{3, 0}, {}});
    sheet.BeginRow();
    sheet.AddCell("text");
    sheet.AddCell("");
    sheet.AddCell("", 1);
    sheet.AddCell("text", 1);
    sheet.AddCell(L"\u00E9");
    sheet.BeginRow(12.5);
    sheet.AddCell(0.25);
    sheet.AddCell(1234567.89, 1);
    sheet.AddCell("=SUM(A1:A3)", 1);
    sheet.AddCell("=");
    sheet.EndRow();
    sheet.BeginRow(-1);
    sheet.AddCell(HUGE_VAL);
    sheet.AddCell(-HUGE_VAL, 1);
    sheet.AddCell(std::nan(""));
    sheet.BeginRow(HUGE_VAL * 0);
    sheet.AddComment({{7, 2}, "", {{" a", {}}, {"b", {}}}, {1.5, 2, 100, 50.25}, NoteView::Hidden});
}

void FillOddities(CWorkbook& workbook) {
    workbook.AddSheet("", {}, {FrozenPane{0, 0}, {}});
    FillCellsOfEachKind(workbook);
    CWorksheet& sheet = workbook.AddSheet("Pictures & places", {}, {FrozenPane{0, 2}, {}});
    workbook.AddPicture(sheet, L"in/fields.png", ImageKind::Png, AbsoluteAnchor{10, 20, {5000000000, 40}});
    workbook.AddPicture(sheet, L"other/fields.PNG", ImageKind::Png, OneCellAnchor{{1, 2, 3, 4}, {300, 400}});
    workbook.AddPicture(sheet, L"in/fields.png", ImageKind::Png, TwoCellAnchor{{1, 2, 3, 4}, {5, 6, 7, 8}});
    workbook.AddPicture(sheet, L"in/fields.tif", ImageKind::Tiff, AbsoluteAnchor{});
    workbook.AddPicture(sheet, L"in/fields.dat", ImageKind::Jpeg, AbsoluteAnchor{});
    workbook.AddPicture(sheet, L"in/fields.g%.gif", ImageKind::Gif, AbsoluteAnchor{});
    workbook.AddPicture(sheet, L"in/fields.png", ImageKind::Tiff, AbsoluteAnchor{});
    workbook.AddChart(sheet, AbsoluteAnchor{}); // without a diagram
    sheet.SetPageSetup({PageOrientation::Landscape, 1, 2, 3, 4, 5, 6.5});
    sheet.SetPageHeader({"sized", "", "5", 20});
    workbook.SetActiveSheet(3);
}

TEST(GalleryTest, WritesTheApprovedParts) {
    const std::pair<const char*, xlsx_test::Fill> books[] = {
        {"gallery", [](CWorkbook& workbook) { gallery::FillGallery(workbook, L"in/"); }},
        {"charts", gallery::FillCharts},
        {"styles", gallery::FillStyles},
        {"comments", gallery::FillComments},
        {"pictures", [](CWorkbook& workbook) { gallery::FillPictures(workbook, L"in/"); }},
        {"oddities", FillOddities},
        {"bare", [](CWorkbook& workbook) { workbook.AddSheet("Only"); }},
        {"chartsheet", [](CWorkbook& workbook) { workbook.AddChartsheet("Only"); }}};
    std::map<std::string, std::string> shown;
    for (const auto& [name, fill] : books) {
        std::string text;
        for (const auto& [path, part] : Write(fill).parts) {
            const std::string readable = Readable(part);
            const auto [before, isNew] = shown.emplace(path, readable);
            const bool isSame = !isNew && before->second == readable;
            text += "=== " + path + "\n" + (isSame ? "as before\n" : readable);
        }
        support::ExpectApproved(std::string("xlsx/approved/") + name + ".txt", text);
    }
}

TEST(GalleryTest, StampsTheLocalTime) {
    support::ExpectLocalTime([] {
        const Written written = Write([](CWorkbook& workbook) { workbook.AddSheet("A"); });
        const std::string core = written.Part("/docProps/core.xml");
        const std::size_t start = core.find("Z<");
        EXPECT_NE(start, std::string::npos);
        return core.substr(start - 19, 10) + " " + core.substr(start - 8, 8);
    });
}

TEST(GalleryTest, TakesTheAuthorFromTheSystem) {
    const support::EnvironmentScope user("USERNAME", "Ada");
    const auto hasAuthor = [](const std::string& author) {
        const Written written = Write([](CWorkbook& workbook) { workbook.AddSheet("A"); }, "");
        return written.Part("/docProps/core.xml").find("<dc:creator>" + author + "</dc:creator>") != std::string::npos;
    };
    EXPECT_TRUE(hasAuthor("Ada"));
    user.Set("");
    EXPECT_TRUE(hasAuthor("Unknown"));
}

// 1,024 numbers belong to a sheet at a time, the first of each to none of its notes.
TEST(GalleryTest, NumbersThousandsOfNotesWithoutRepeating) {
    const Written written = Write([](CWorkbook& workbook) {
        for (const char* name : {"A", "B"}) {
            CWorksheet& sheet = workbook.AddSheet(name);
            for (unsigned row = 0; row < 1024; ++row)
                sheet.AddComment({{row, 1}, "", {{"note", {}}}, {}, {}});
        }
    });
    for (const auto& [part, pieces] :
         {std::pair("1", std::vector{"data=\"1,2\"", "_s1025\"", "_s2047\"", "_s2049\""}),
          std::pair("2", std::vector{"data=\"3,4\"", "_s3073\"", "_s4095\"", "_s4097\""})}) {
        const std::string notes = written.Part(std::string("/xl/drawings/vmlDrawing") + part + ".vml");
        for (const char* piece : pieces)
            EXPECT_NE(notes.find(piece), std::string::npos) << piece;
        EXPECT_EQ(notes.find("_s2048\""), std::string::npos);
        EXPECT_EQ(notes.find("_s4096\""), std::string::npos);
    }
}

} // namespace
