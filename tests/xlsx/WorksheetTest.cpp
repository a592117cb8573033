// What fits a workbook and what does not, and the reasons given. What is written of it stands in the gallery.
#include "WrittenWorkbook.h"
#include "xlsx/NameRules.h"
#include "xlsx/PageLine.h"

#include <gtest/gtest.h>

namespace {

using namespace Xlsx;
using xlsx_test::Fill;
using xlsx_test::Write;

const std::string House = "\xF0\x9F\x8F\xA0"; // two letters
const std::string Ellipsis = "\xE2\x80\xA6";

// Two sheets, one of each kind.
Fill Titled(const std::string& first, const std::string& second) {
    return [=](CWorkbook& workbook) {
        workbook.AddSheet(first);
        workbook.AddChartsheet(second);
    };
}

Fill Filled(const std::function<void(CWorksheet&)>& fill) {
    return [=](CWorkbook& workbook) { fill(workbook.AddSheet("A")); };
}

Fill Merged(const std::vector<std::string>& ranges) {
    return Filled([=](CWorksheet& sheet) {
        for (const std::string& range : ranges)
            sheet.MergeCells(range);
    });
}

Fill BrokenBelow(unsigned first, unsigned last) {
    return Filled([=](CWorksheet& sheet) {
        for (unsigned row = first; row <= last; ++row)
            sheet.AddRowBreak(row);
    });
}

Fill Viewed(const std::vector<ColumnWidth>& columns, FrozenPane pane) {
    return [=](CWorkbook& workbook) { workbook.AddSheet("A", columns, {pane, {}}); };
}

Fill Defined(const std::vector<DefinedName>& names) {
    return [=](CWorkbook& workbook) {
        for (const DefinedName& name : names)
            workbook.DefineName(name);
        workbook.AddSheet("A");
    };
}

Fill Rows(unsigned rows, unsigned columns, const std::string& text = "") {
    return Filled([=](CWorksheet& sheet) {
        for (unsigned row = 0; row < rows; ++row) {
            sheet.BeginRow();
            for (unsigned column = 0; column < columns; ++column)
                text.empty() ? sheet.AddCell(1) : sheet.AddCell(text);
        }
    });
}

std::string Houses(unsigned count) {
    std::string text;
    while (count-- > 0)
        text += House;
    return text;
}

struct RefusalCase {
    Fill fill;
    std::string reason; ///< a piece of it; empty: saved
};

void ExpectReasons(const std::vector<RefusalCase>& cases) {
    for (const RefusalCase& row : cases) {
        const std::string failure = Write(row.fill).failure;
        const bool isExpected = row.reason.empty() ? failure.empty() : failure.find(row.reason) != std::string::npos;
        EXPECT_TRUE(isExpected) << "\"" << failure << "\" instead of \"" << row.reason << "\"";
    }
}

TEST(WorksheetTest, RefusesNamesThatAProgramWouldRefuse) {
    const std::string letters31(31, 'x');
    ExpectReasons({
        {Titled(letters31, "B"), ""},
        {Titled("A", letters31 + "x"), "xx' as the name of a sheet"},
        {Titled("'A", "B"), "''A' as"},
        {Titled("A'", "B"), "'A'' as"},
        {Titled("it's", "B"), ""},
        {Titled("A", ""), "'' as"},
        {Titled("A\n", "B"), "\n' as"},
        {Titled("A B", "B"), ""},
        {Titled("hISTORY", "B"), "'hISTORY' as"},
        {Titled("same", "SAME"), "'SAME' as the name of a second sheet"},
        {Titled("\xC3\xA4\xC3\x97\xD0\xB6", "\xC3\x84\xC3\x97\xD0\x96"), "second sheet"},
        {Titled("\xC3\x97", "\xC3\xB7"), ""}, // signs, not letters
        {[](CWorkbook&) {}, "a workbook without sheets"},
        {Defined({{"Name.1", "A!$A$1", "", 0}, {"NAME.1", "A!$A$1", "", {}}, {"\\_\xC3\xA4?", "1", "", {}}}), ""},
        {Defined({{"Name", "A!$A$1", "", 1}}), "'Name' as a defined name"},
        {Defined({{"Name", "1", "", 0}, {"nAME", "2", "", 0}}), "'nAME' as"},
        {Defined({{"Name", std::string(8192, '1'), "", 0}}), ""},
        {Defined({{"Name", std::string(8193, '1'), "", 0}}), "'Name' as"},
        {Defined({{"Name", "", "", 0}}), "'Name' as"},
        {Defined({{"", "1", "", 0}}), "'' as"},
        {Defined({{"1st", "1", "", 0}}), "'1st' as"},
        {Defined({{"a b", "1", "", 0}}), "'a b' as"},
        {Defined({{"xfd1048576", "1", "", 0}}), "'xfd1048576' as"},
        {Defined({{"XFE1", "1", "", 0}, {"A1048577", "1", "", 0}, {"A01", "1", "", 0}, {"RCD", "1", "", 0}}), ""},
        {Defined({{"R1c2", "1", "", 0}}), "'R1c2' as"},
        {Defined({{"c", "1", "", 0}}), "'c' as"},
        {Defined({{std::string(255, 'n'), "1", "", 0}}), ""},
        {Defined({{std::string(256, 'n'), "1", "", 0}}), "nn' as"},
    });
    for (const char* sign : {":", "\\", "/", "?", "*", "[", "]"})
        ExpectReasons({{Titled(sign, "B"), "as the name of a sheet"}});
    // First and last of each row of capitals in Unicode, and signs between them.
    EXPECT_EQ(WithoutCase("@AZ[ÀÞ×ĀĶĹŇŊŶŹŽΑΪЀЏАЯ"), "@az[àþ×āķĺňŋŷźžαϊѐџая");
    EXPECT_EQ(WithoutCase("āķĺňŋŷźžαϊѐџая"), "āķĺňŋŷźžαϊѐџая");
}

TEST(WorksheetTest, RefusesWhatDoesNotFitASheet) {
    ExpectReasons({
        {Merged({"A1:B2", "C1:C2", "A3:C3", "D1:D9"}), ""},
        {Merged({"A1:C3", "E5:F6", "C3:D4"}), "'A': merging 'C3:D4' over A1:C3"},
        {Merged({"A1:A1"}), "'A1:A1' is no range"},
        {Merged({"B2:A1"}), "no range"},
        {Merged({"B1:A2"}), "no range"},
        {Merged({"A1"}), "no range"},
        {Merged({"A0:A2"}), "no range"},
        {Merged({"A1:XFE2"}), "no range"},
        {Merged({"A1:A1048577"}), "no range"},
        {Merged({"XFC1048575:XFD1048576", "A9:B10", "C98:C101"}), ""},
        {BrokenBelow(0, 0), "'A': a page break at 0"},
        {BrokenBelow(1, 1026), ""},
        {BrokenBelow(1, 1027), "more than 1026 page breaks"},
        {BrokenBelow(1048575, 1048575), ""},
        {BrokenBelow(1048576, 1048576), "a page break at 1048576"},
        {Filled([](CWorksheet& sheet) { sheet.AddColumnBreak(16383); }), ""},
        {Filled([](CWorksheet& sheet) { sheet.AddColumnBreak(16384); }), "a page break at 16384"},
        {Filled([](CWorksheet& sheet) { sheet.BeginRow(409); }), ""},
        {Filled([](CWorksheet& sheet) { sheet.BeginRow(410); }), "row 1 of 410 points"},
        {Filled([](CWorksheet& sheet) {
             sheet.AddComment({{1048576, 0}, {}, {}, {}, {}});
         }),
         "a comment outside"},
        {Filled([](CWorksheet& sheet) { sheet.AddCell("x"); }), "a cell outside a row"},
        {Filled([](CWorksheet& sheet) {
             sheet.BeginRow();
             sheet.AddCell("");
             sheet.AddCell(1, 2);
         }),
         "cell B1 with a style"},
        {Viewed({{1, 2, 10}, {3, 16384, 255}}, {1, 1}), ""},
        {Viewed({{1, 2, 10}, {2, 3, 10}}, {0, 0}), "column widths"},
        {Viewed({{2, 2, 10}, {1, 1, 10}}, {0, 0}), "column widths"},
        {Viewed({{1, 1, 0}}, {0, 0}), ""},
        {Viewed({{1, 1, -1}}, {0, 0}), "column widths"},
        {Viewed({{1, 1, 256}}, {0, 0}), "column widths"},
        {Viewed({{1, 16385, 10}}, {0, 0}), "column widths"},
        {Viewed({}, {1048576, 0}), "frozen pane"},
        {Rows(1048576, 0), ""},
        {Rows(1048577, 0), "more than 1048576 rows"},
        {Rows(1, 16384), ""},
        {Rows(1, 16385), "more than 16384 columns"},
        {Rows(1, 1, std::string(32767, 'x')), ""},
        {Rows(1, 1, std::string(32768, 'x')), "cell A1 of more than 32767 letters"},
        {Rows(1, 1, Houses(16383) + "x"), ""},
        {Rows(1, 1, Houses(16383) + "xx"), "more than 32767 letters"},
        {Rows(1, 1, std::string(32767, '\x80')), ""}, // each is written as a letter
        {Rows(1, 1, std::string(32768, '\x80')), "more than 32767 letters"},
        {Rows(1, 1, std::string("=").append(8192, '1')), ""},
        {Rows(1, 1, std::string("=").append(8193, '1')), "more than 8193 letters"},
    });
}

TEST(WorksheetTest, NamesTheLastColumns) {
    const std::string sheet = Write(Rows(1, 16384)).Part("/xl/worksheets/sheet1.xml");
    for (const char* neighbours : {"\"Z1\"><v>1</v></c><c r=\"AA1\"", "\"AZ1\"><v>1</v></c><c r=\"BA1\"",
                                   "\"ZZ1\"><v>1</v></c><c r=\"AAA1\"", "\"XFC1\"><v>1</v></c><c r=\"XFD1\""})
        EXPECT_NE(sheet.find(neighbours), std::string::npos) << neighbours;
}

TEST(WorksheetTest, WritesPageLinesWhoseTextsAreNoCodes) {
    const std::string letters78(78, 'x');
    const std::pair<std::string, std::string> texts[] = {
        {"2026-07-15", "2026-07-15"},
        {"Tom & <Jerry> &P", "Tom && <Jerry> &&P"},
        {"&", "&&"},
        {"a\xFF", "a\xEF\xBF\xBD"},
        {letters78 + "yz", letters78 + "yz"},
        {letters78 + "yzz", letters78 + "y" + Ellipsis},
        {letters78 + House, letters78 + House},
        {letters78 + "y" + House, letters78 + "y" + Ellipsis},
        {letters78 + House + "z", letters78 + Ellipsis},
        {letters78 + "&", letters78 + "&&"},
        {letters78 + "y&", letters78 + "y" + Ellipsis},
        {letters78 + "&z", letters78 + Ellipsis},
    };
    for (const auto& [text, code] : texts)
        EXPECT_EQ(PageLineCode({"", text, ""}).substr(2), code);
    EXPECT_EQ(PageLineCode({"", "", ""}), "");
    EXPECT_EQ(PageLineCode({"a&", "", "5"}), "&La&&&R5");
    EXPECT_EQ(PageLineCode({"", "", "90", 1}), "&R&1 90");
    const std::string sized = PageLineCode({"a", letters78 + "y", "5", 20});
    EXPECT_EQ(sized, std::string("&L&20a&C&20").append(77, 'x') + Ellipsis + "&R&20 5");
}

} // namespace
