#include "WrittenWorkbook.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Xlsx;
using xlsx_test::Element;
using xlsx_test::InOrder;
using xlsx_test::Written;

Written WriteSheet(const std::function<void(CWorksheet&)>& fill, const std::vector<ColumnWidth>& columns = {},
                   const SheetView& view = {}) {
    return xlsx_test::Write([&](CWorkbook& workbook) { fill(workbook.AddSheet("A", columns, view)); });
}

std::string SheetOf(const std::function<void(CWorksheet&)>& fill, const std::vector<ColumnWidth>& columns = {},
                    const SheetView& view = {}) {
    return WriteSheet(fill, columns, view).Part("/xl/worksheets/sheet1.xml");
}

bool Saves(const std::function<void(CWorksheet&)>& fill) {
    return WriteSheet(fill).Has("/xl/workbook.xml");
}

TEST(WorksheetTest, WritesEachKindOfCell) {
    const Written written = WriteSheet([](CWorksheet& sheet) {
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
    });
    EXPECT_EQ(Element(written.Part("/xl/worksheets/sheet1.xml"), "sheetData"),
              "<sheetData><row r=\"1\" x14ac:dyDescent=\"0.25\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"C1\" s=\"1\"/>"
              "<c r=\"D1\" s=\"1\" t=\"s\"><v>0</v></c><c r=\"E1\" t=\"s\"><v>1</v></c></row>"
              "<row r=\"2\" x14ac:dyDescent=\"0.25\" ht=\"12.5\" customHeight=\"1\"><c r=\"A2\"><v>0.25</v></c>"
              "<c r=\"B2\" s=\"1\"><v>1.23457e+06</v></c><c r=\"C2\" s=\"1\"><f>SUM(A1:A3)</f></c>"
              "<c r=\"D2\" t=\"s\"><v>2</v></c></row>"
              "<row r=\"3\" x14ac:dyDescent=\"0.25\"><c r=\"A3\" t=\"e\"><v>#DIV/0!</v></c>"
              "<c r=\"B3\" s=\"1\" t=\"e\"><v>#DIV/0!</v></c><c r=\"C3\" t=\"e\"><v>#NUM!</v></c></row></sheetData>");
    EXPECT_EQ(Element(written.Part("/xl/sharedStrings.xml"), "sst"),
              "<sst xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" count=\"3\" uniqueCount=\"3\">"
              "<si><t>text</t></si><si><t>\xC3\xA9</t></si><si><t>=</t></si></sst>");
    EXPECT_EQ(Element(written.Part("/xl/calcChain.xml"), "c"), "<c r=\"C2\" i=\"1\"/>");
}

TEST(WorksheetTest, PreservesBlankEndsAndEscapesTexts) {
    const Written written = WriteSheet([](CWorksheet& sheet) {
        sheet.BeginRow();
        sheet.AddCell(" a ");
        sheet.AddCell("a & b\x01");
        sheet.AddCell("=\"<\"&A1");
    });
    EXPECT_NE(written.Part("/xl/sharedStrings.xml")
                  .find("<si><t xml:space=\"preserve\"> a </t></si><si><t>a &amp; b_x0001_</t></si>"),
              std::string::npos);
    EXPECT_NE(written.Part("/xl/worksheets/sheet1.xml").find("<f>\"&lt;\"&amp;A1</f>"), std::string::npos);
}

TEST(WorksheetTest, WritesNothingThatWasNotAskedFor) {
    const Written written = WriteSheet([](CWorksheet&) {});
    const std::string sheet = written.Part("/xl/worksheets/sheet1.xml");
    EXPECT_TRUE(InOrder(
        sheet, {"mc:Ignorable=\"x14ac\"", "<dimension ref=\"A1\"/>",
                "<sheetViews><sheetView tabSelected=\"0\" showGridLines=\"1\" workbookViewId=\"0\"/></sheetViews>",
                "<sheetFormatPr defaultRowHeight=\"15\" x14ac:dyDescent=\"0.25\"/><sheetData/>",
                "<pageMargins left=\"0.7\" right=\"0.7\" top=\"0.75\" bottom=\"0.75\" header=\"0.3\" footer=\"0.3\"/>",
                "<pageSetup paperSize=\"9\" orientation=\"portrait\"/></worksheet>"}))
        << sheet;
    for (const char* name :
         {"sheetPr", "cols", "mergeCells", "headerFooter", "rowBreaks", "colBreaks", "drawing", "legacyDrawing"}) {
        EXPECT_EQ(Element(sheet, name), "(none)") << name;
    }
    for (const char* path : {"/xl/sharedStrings.xml", "/xl/calcChain.xml", "/xl/drawings/drawing1.xml"}) {
        EXPECT_FALSE(written.Has(path)) << path;
    }
}

TEST(WorksheetTest, WritesColumnsMergesBreaksAndPages) {
    SheetView view;
    view.frozenPane = FrozenPane{1, 2};
    view.pageScale = PageScale::FitWidth;
    const std::string sheet = SheetOf(
        [](CWorksheet& each) {
            each.MergeCells("A1:B2");
            each.MergeCells("C3:C4");
            each.AddRowBreak(10);
            each.AddColumnBreak(3);
            each.SetPageSetup({PageOrientation::Landscape, 1, 2, 3, 4, 5, 6.5});
        },
        {{1, 1, 30}, {2, 5, 8.43}}, view);
    EXPECT_TRUE(InOrder(
        sheet,
        {"<sheetPr><pageSetUpPr fitToPage=\"1\"/></sheetPr><dimension", "<pane xSplit=\"2\" ySplit=\"1\"",
         "topLeftCell=\"C2\"", "state=\"frozen\"/>",
         "<cols><col min=\"1\" max=\"1\" width=\"30\"/><col min=\"2\" max=\"5\" width=\"8.43\"/></cols><sheetData/>",
         "<mergeCells count=\"2\"><mergeCell ref=\"A1:B2\"/><mergeCell ref=\"C3:C4\"/></mergeCells>",
         "<pageMargins left=\"1\" right=\"2\" top=\"3\" bottom=\"4\" header=\"5\" footer=\"6.5\"/>",
         "fitToHeight=\"0\" orientation=\"landscape\"/>",
         "<rowBreaks manualBreakCount=\"1\"><brk id=\"10\" max=\"16383\" man=\"1\"/></rowBreaks>",
         "<colBreaks manualBreakCount=\"1\"><brk id=\"3\" max=\"1048575\" man=\"1\"/></colBreaks></worksheet>"}))
        << sheet;
}

TEST(WorksheetTest, WritesHeaderAndFooterWithTextsThatAreNoCodes) {
    const auto headerOf = [](const PageLine& header) {
        const std::string sheet = SheetOf([&](CWorksheet& each) { each.SetPageHeader(header); });
        return Element(sheet, "headerFooter");
    };
    const auto inHeader = [](const std::string& code) {
        return "<headerFooter scaleWithDoc=\"0\"><oddHeader>" + code + "</oddHeader></headerFooter>";
    };
    const std::string house = "\xF0\x9F\x8F\xA0"; // two letters
    const std::string ellipsis = "\xE2\x80\xA6";
    const std::string letters78(78, 'x');
    const std::pair<std::string, std::string> texts[] = {
        {"2026-07-15", "2026-07-15"},
        {"Tom & <Jerry> &P", "Tom &amp;&amp; &lt;Jerry&gt; &amp;&amp;P"},
        {"&", "&amp;&amp;"},
        {"a\xFF_x0041_\x07", "a\xEF\xBF\xBD_x005F_x0041__x0007_"},
        {letters78 + "yz", letters78 + "yz"},
        {letters78 + "y" + "zz", letters78 + "y" + ellipsis},
        {letters78 + house, letters78 + house},
        {letters78 + "y" + house, letters78 + "y" + ellipsis},
        {letters78 + house + "z", letters78 + ellipsis},
        {letters78 + "&", letters78 + "&amp;&amp;"},
        {letters78 + "y&", letters78 + "y" + ellipsis},
        {letters78 + "&z", letters78 + ellipsis},
    };
    for (const auto& [text, code] : texts) {
        EXPECT_EQ(headerOf({"", text, ""}), inHeader("&amp;C" + code)) << text;
    }
    EXPECT_EQ(headerOf({"", "", ""}), "(none)");
    EXPECT_EQ(headerOf({"a&", "", "5"}), inHeader("&amp;La&amp;&amp;&amp;R5"));
    EXPECT_EQ(headerOf({"a", letters78 + "y", "5", 20}), "<headerFooter><oddHeader>&amp;L&amp;20a&amp;C&amp;20" +
                                                             std::string(77, 'x') + ellipsis +
                                                             "&amp;R&amp;20 5</oddHeader></headerFooter>");
    const std::string sheet = SheetOf([](CWorksheet& each) {
        each.AddRowBreak(1);
        each.SetPageHeader({"l", "c", "r"});
        each.SetPageFooter({"f", "", ""});
    });
    EXPECT_TRUE(
        InOrder(sheet, {"<pageSetup", "<oddHeader>&amp;Ll&amp;Cc&amp;Rr</oddHeader><oddFooter>&amp;Lf</oddFooter>",
                        "</headerFooter><rowBreaks"}))
        << sheet;
}

TEST(WorksheetTest, LimitsTheLettersOfACell) {
    const std::string most(32767, 'x');
    std::string wide; // two letters each
    for (int i = 0; i < 16383; ++i) {
        wide += "\xF0\x9F\x8F\xA0";
    }
    const auto saves = [](const std::string& text) {
        return Saves([&](CWorksheet& sheet) {
            sheet.BeginRow();
            sheet.AddCell(text);
        });
    };
    EXPECT_TRUE(saves(most));
    EXPECT_FALSE(saves(most + "x"));
    EXPECT_TRUE(saves(wide + "x"));
    EXPECT_FALSE(saves(wide + "xx"));
    EXPECT_TRUE(saves(std::string(32767, '\x80'))); // each is written as a letter
    EXPECT_FALSE(saves(std::string(32768, '\x80')));
    std::string formula(8193, '1');
    formula.front() = '=';
    EXPECT_TRUE(saves(formula));
    EXPECT_FALSE(saves(formula + "1"));
}

// Why a workbook could not be saved; empty when it could.
std::string FailureOf(const std::function<void(CWorkbook&)>& fill) {
    xlsx_test::KeepingFiles files;
    CWorkbook workbook("Author", files);
    fill(workbook);
    const bool isSaved = workbook.Save(L"no-such-folder/written.xlsx");
    EXPECT_EQ(isSaved, workbook.Failure().empty());
    EXPECT_EQ(files.inner.files.count("no-such-folder/written.xlsx"), isSaved ? 1U : 0U);
    return workbook.Failure();
}

// Two sheets, one of each kind.
std::function<void(CWorkbook&)> Titled(const std::string& first, const std::string& second) {
    return [=](CWorkbook& workbook) {
        workbook.AddSheet(first);
        workbook.AddChartsheet(second).Chart().main.kind = DiagramKind::Pie;
    };
}

std::function<void(CWorkbook&)> Filled(const std::function<void(CWorksheet&)>& fill) {
    return [=](CWorkbook& workbook) { fill(workbook.AddSheet("A")); };
}

std::function<void(CWorkbook&)> Merged(const std::vector<std::string>& ranges) {
    return Filled([=](CWorksheet& sheet) {
        for (const std::string& range : ranges) {
            sheet.MergeCells(range);
        }
    });
}

std::function<void(CWorkbook&)> BrokenBelow(unsigned first, unsigned last) {
    return Filled([=](CWorksheet& sheet) {
        for (unsigned row = first; row <= last; ++row) {
            sheet.AddRowBreak(row);
        }
    });
}

std::function<void(CWorkbook&)> Viewed(const std::vector<ColumnWidth>& columns, FrozenPane pane) {
    return [=](CWorkbook& workbook) { workbook.AddSheet("A", columns, {pane, {}}); };
}

std::function<void(CWorkbook&)> Defined(const std::vector<DefinedName>& names) {
    return [=](CWorkbook& workbook) {
        for (const DefinedName& name : names) {
            workbook.DefineName(name);
        }
        workbook.AddSheet("A");
    };
}

struct RefusalCase {
    std::function<void(CWorkbook&)> fill;
    std::string reason; ///< a piece of it; empty: saved
};

void ExpectReasons(const std::vector<RefusalCase>& cases) {
    for (const RefusalCase& row : cases) {
        const std::string failure = FailureOf(row.fill);
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
        {Titled("a/b", "B"), "'a/b' as"},
        {Titled("A", "[B]"), "'[B]' as"},
        {Titled("A\n", "B"), "\n' as"},
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
    });
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
        {Merged({"XFC1048575:XFD1048576"}), ""},
        {BrokenBelow(0, 0), "'A': a page break at 0"},
        {BrokenBelow(1, 1026), ""},
        {BrokenBelow(1, 1027), "more than 1026 page breaks"},
        {BrokenBelow(1048575, 1048575), ""},
        {BrokenBelow(1048576, 1048576), "a page break at 1048576"},
        {Filled([](CWorksheet& sheet) { sheet.AddColumnBreak(16384); }), "a page break at 16384"},
        {Filled([](CWorksheet& sheet) { sheet.BeginRow(409); }), ""},
        {Filled([](CWorksheet& sheet) { sheet.BeginRow(410); }), "row 1 of 410 points"},
        {Filled([](CWorksheet& sheet) {
             sheet.AddComment({{1048576, 0}, {}, {}, {}, {}});
         }),
         "a comment outside"},
        {Filled([](CWorksheet& sheet) {
             sheet.BeginRow();
             sheet.AddCell("");
             sheet.AddCell(1, 2);
         }),
         "cell B1 with a style"},
        {Viewed({{1, 2, 10}, {3, 16384, 255}}, {1, 1}), ""},
        {Viewed({{1, 2, 10}, {2, 3, 10}}, {0, 0}), "column widths"},
        {Viewed({{2, 2, 10}, {1, 1, 10}}, {0, 0}), "column widths"},
        {Viewed({{1, 1, 256}}, {0, 0}), "column widths"},
        {Viewed({{1, 16385, 10}}, {0, 0}), "column widths"},
        {Viewed({}, {1048576, 0}), "frozen pane"},
    });
}

TEST(WorksheetTest, LimitsRowsAndColumns) {
    const auto savesRows = [](unsigned count) {
        return Saves([&](CWorksheet& sheet) {
            for (unsigned i = 0; i < count; ++i) {
                sheet.BeginRow();
            }
        });
    };
    const auto savesColumns = [](unsigned count) {
        return Saves([&](CWorksheet& sheet) {
            sheet.BeginRow();
            for (unsigned i = 0; i < count; ++i) {
                sheet.AddCell(1);
            }
        });
    };
    EXPECT_TRUE(savesRows(1048576));
    EXPECT_FALSE(savesRows(1048577));
    EXPECT_TRUE(savesColumns(16384));
    EXPECT_FALSE(savesColumns(16385));
    EXPECT_FALSE(Saves([](CWorksheet& sheet) { sheet.AddCell("outside a row"); }));
}

TEST(WorksheetTest, NamesTheLastColumns) {
    const std::string sheet = SheetOf([](CWorksheet& each) {
        each.BeginRow();
        for (unsigned i = 0; i < 16384; ++i) {
            each.AddCell(1);
        }
    });
    EXPECT_TRUE(InOrder(sheet, {"<c r=\"Z1\">", "<c r=\"AA1\">", "<c r=\"AZ1\">", "<c r=\"BA1\">", "<c r=\"ZZ1\">",
                                "<c r=\"AAA1\">", "<c r=\"XFC1\">", "<c r=\"XFD1\">"}));
}

} // namespace
