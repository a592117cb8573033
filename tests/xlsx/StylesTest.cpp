#include "WrittenWorkbook.h"

#include <gtest/gtest.h>

namespace {

using namespace Xlsx;
using xlsx_test::CountOf;
using xlsx_test::Element;
using xlsx_test::InOrder;

std::string StylesOf(const std::function<void(CWorkbook&)>& fill) {
    return xlsx_test::Write([&](CWorkbook& workbook) {
               workbook.AddSheet("A");
               fill(workbook);
           })
        .Part("/xl/styles.xml");
}

std::string StylesOf(const Style& style) {
    return StylesOf([&](CWorkbook& workbook) { EXPECT_EQ(workbook.AddStyle(style), 2U); });
}

NumberFormat Custom(NumberKind kind, unsigned decimals = 0) {
    NumberFormat format;
    format.id = firstCustomFormat;
    format.kind = kind;
    format.decimals = decimals;
    return format;
}

TEST(StylesTest, GivesEqualRecordsOneIndex) {
    CStyleRegistry styles;
    Style style;
    EXPECT_EQ(styles.AddStyle(style), 0U);
    style.font.attributes = Bold;
    EXPECT_EQ(styles.AddStyle(style), 2U);
    Style centred = style;
    centred.alignment.horizontal = HorizontalAlignment::Centre;
    EXPECT_EQ(styles.AddStyle(centred), 3U);
    EXPECT_EQ(styles.AddStyle(style), 2U);
    EXPECT_EQ(styles.Fonts().size(), 2U);
    EXPECT_EQ(styles.Fills().size(), 2U);
    EXPECT_EQ(styles.Borders().size(), 1U);
    EXPECT_EQ(styles.CellFormats().size(), 4U);
    Style gray;
    gray.fill.pattern = FillPattern::Gray125;
    gray.numberFormat.id = 1;
    EXPECT_EQ(styles.AddStyle(gray), 1U);
}

TEST(StylesTest, TellsRecordsApartByEachField) {
    const std::function<void(Style&)> changes[] = {
        [](Style& style) { style.font.name = "Arial"; },
        [](Style& style) { style.font.sizePoints = 12; },
        [](Style& style) { style.font.colourSource = FontColour::Given; },
        [](Style& style) { style.font.colour = "FF000000"; },
        [](Style& style) { style.font.attributes = Extend; },
        [](Style& style) { style.fill.pattern = FillPattern::Solid; },
        [](Style& style) { style.fill.foreground = "FF000000"; },
        [](Style& style) { style.fill.background = "FF000000"; },
        [](Style& style) { style.border.left.line = BorderLine::Thin; },
        [](Style& style) { style.border.right.colour = "FF000000"; },
        [](Style& style) { style.border.top.line = BorderLine::Hair; },
        [](Style& style) { style.border.bottom.line = BorderLine::Thick; },
        [](Style& style) { style.border.diagonal.line = BorderLine::Thin; },
        [](Style& style) { style.border.hasDiagonalUp = true; },
        [](Style& style) { style.border.hasDiagonalDown = true; },
        [](Style& style) { style.numberFormat.id = 14; },
        [](Style& style) { style.numberFormat = Custom(NumberKind::Plain); },
        [](Style& style) { style.numberFormat = Custom(NumberKind::Percent); },
        [](Style& style) { style.numberFormat = Custom(NumberKind::Plain, 1); },
        [](Style& style) { (style.numberFormat = Custom(NumberKind::Plain)).hasThousandsSeparator = true; },
        [](Style& style) { (style.numberFormat = Custom(NumberKind::Plain)).negativeSign = NegativeSign::None; },
        [](Style& style) { (style.numberFormat = Custom(NumberKind::Plain)).negativeColour = NegativeColour::Red; },
        [](Style& style) { (style.numberFormat = Custom(NumberKind::Plain)).suffix = "m"; },
        [](Style& style) { style.alignment.horizontal = HorizontalAlignment::Right; },
        [](Style& style) { style.alignment.vertical = VerticalAlignment::Top; },
        [](Style& style) { style.alignment.wrapsText = true; },
        [](Style& style) { style.alignment.rotationDegrees = 1; },
    };
    CStyleRegistry styles;
    unsigned expected = 2;
    for (const auto& change : changes) {
        Style style;
        change(style);
        EXPECT_EQ(styles.AddStyle(style), expected);
        EXPECT_EQ(styles.AddStyle(style), expected) << "again";
        ++expected;
    }
}

TEST(StylesTest, NumbersCustomFormatsFrom164) {
    CStyleRegistry styles;
    Style style;
    style.numberFormat.id = 14;
    styles.AddStyle(style);
    EXPECT_TRUE(styles.NumberFormats().empty());
    for (const auto& [kind, id] : {std::pair(NumberKind::Percent, 164U), std::pair(NumberKind::Date, 165U),
                                   std::pair(NumberKind::Percent, 164U), std::pair(NumberKind::Date, 165U)}) {
        style.numberFormat = Custom(kind);
        const unsigned index = styles.AddStyle(style);
        EXPECT_EQ(styles.CellFormats()[index].numberFormat, id);
    }
    style.numberFormat = Custom(NumberKind::Percent);
    style.numberFormat.id = 200; // any id from 164 on only says "custom"
    EXPECT_EQ(styles.CellFormats()[styles.AddStyle(style)].numberFormat, 164U);
    EXPECT_EQ(styles.NumberFormats().size(), 2U);
}

TEST(StylesTest, BuildsNumberFormatCodes) {
    struct Case {
        NumberKind kind;
        unsigned decimals;
        bool hasThousands;
        NegativeSign sign;
        NegativeColour colour;
        const char* code;
    };
    const Case cases[] = {
        {NumberKind::General, 0, false, NegativeSign::Minus, NegativeColour::None, "0;\\-0"},
        {NumberKind::Plain, 2, true, NegativeSign::Minus, NegativeColour::Red, "#,##0.00;[Red]\\-#,##0.00"},
        {NumberKind::Plain, 1, false, NegativeSign::None, NegativeColour::Black, "0.0;[BLACK]0.0"},
        {NumberKind::Plain, 0, false, NegativeSign::None, NegativeColour::Green, "0;[Green]0"},
        {NumberKind::Plain, 0, false, NegativeSign::None, NegativeColour::White, "0;[White]0"},
        {NumberKind::Plain, 0, false, NegativeSign::None, NegativeColour::Blue, "0;[Blue]0"},
        {NumberKind::Plain, 0, false, NegativeSign::None, NegativeColour::Magenta, "0;[Magenta]0"},
        {NumberKind::Plain, 0, false, NegativeSign::None, NegativeColour::Yellow, "0;[Yellow]0"},
        {NumberKind::Plain, 0, false, NegativeSign::None, NegativeColour::Cyan, "0;[Cyan]0"},
        {NumberKind::Percent, 1, false, NegativeSign::Minus, NegativeColour::None, "0.0%;\\-0.0%"},
        {NumberKind::Scientific, 2, false, NegativeSign::Minus, NegativeColour::None, "0.00E+00;\\-0.00E+00"},
        {NumberKind::Suffixed, 0, true, NegativeSign::Minus, NegativeColour::None, "#,##0 m2;\\-#,##0 m2"},
        {NumberKind::Accounting, 2, true, NegativeSign::Minus, NegativeColour::None,
         "_-* #,##0.00_-;\\-* #,##0.00_-;_-* \"-\"??_-;_-@_-"},
        {NumberKind::Date, 3, true, NegativeSign::Minus, NegativeColour::Red, "yyyy.mm.dd"},
        {NumberKind::Time, 0, false, NegativeSign::Minus, NegativeColour::None, "hh:mm:ss"},
        {NumberKind::DateTime, 0, false, NegativeSign::Minus, NegativeColour::None, "yyyy.mm.dd hh:mm:ss"},
    };
    for (const Case& row : cases) {
        const NumberFormat format = {firstCustomFormat, row.kind,   row.decimals, row.hasThousands,
                                     row.sign,          row.colour, "m2"};
        EXPECT_EQ(NumberFormatCode(format), row.code);
    }
}

TEST(StylesTest, WritesTheTwoFirstFormatsAlone) {
    const std::string styles = StylesOf([](CWorkbook&) {});
    EXPECT_EQ(Element(styles, "numFmts"), "(none)");
    EXPECT_EQ(Element(styles, "fonts"),
              "<fonts count=\"1\"><font><sz val=\"11\"/><name val=\"Calibri\"/><charset val=\"204\"/>"
              "<color theme=\"1\"/></font></fonts>");
    EXPECT_EQ(Element(styles, "fills"), "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
                                        "<fill><patternFill patternType=\"gray125\"/></fill></fills>");
    EXPECT_EQ(Element(styles, "borders"),
              "<borders count=\"1\"><border><left><color indexed=\"64\"/></left><right><color indexed=\"64\"/></right>"
              "<top><color indexed=\"64\"/></top><bottom><color indexed=\"64\"/></bottom>"
              "<diagonal><color indexed=\"64\"/></diagonal></border></borders>");
    EXPECT_EQ(Element(styles, "cellXfs"),
              "<cellXfs count=\"2\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/>"
              "<xf numFmtId=\"1\" fontId=\"0\" fillId=\"1\" borderId=\"0\" applyFill=\"1\" applyNumberFormat=\"1\"/>"
              "</cellXfs>");
    EXPECT_TRUE(
        InOrder(styles, {"<styleSheet ", "<fonts", "<fills", "<borders", "<cellStyleXfs count=\"1\">", "<cellXfs",
                         "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/>",
                         "<dxfs count=\"0\"/>", "<tableStyles count=\"0\"", "<extLst>",
                         "{EB79DEF2-80B8-43e5-95BD-54CBDDF9020C}", "x14:slicerStyles"}))
        << styles;
}

TEST(StylesTest, WritesEachFieldOfARecord) {
    Style style;
    style.font = {"A & B", 14, FontColour::Given, "FF0000",
                  Bold | Italic | Underline | Strike | Outline | Shadow | Condense | Extend};
    style.fill = {FillPattern::DarkTrellis, "FF00FF00", "FF0000FF"};
    style.border.left = {BorderLine::SlantDashDot, "FF123456"};
    style.border.diagonal = {BorderLine::Hair, ""};
    style.border.hasDiagonalUp = true;
    style.numberFormat = Custom(NumberKind::Accounting);
    style.alignment = {HorizontalAlignment::Centre, VerticalAlignment::Bottom, true, -30};
    const std::string styles = StylesOf(style);
    EXPECT_EQ(Element(styles, "numFmts"), "<numFmts count=\"1\"><numFmt numFmtId=\"164\" "
                                          "formatCode=\"_-* 0_-;\\-* 0_-;_-* &quot;-&quot;??_-;_-@_-\"/></numFmts>");
    EXPECT_NE(styles.find("<font><b/><i/><u/><strike/><outline/><shadow/><condense/><extend/><sz val=\"14\"/>"
                          "<name val=\"A &amp; B\"/><charset val=\"204\"/><color rgb=\"FF0000\"/></font>"),
              std::string::npos);
    EXPECT_NE(styles.find("<patternFill patternType=\"darkTrellis\"><fgColor rgb=\"FF00FF00\"/>"
                          "<bgColor rgb=\"FF0000FF\"/></patternFill>"),
              std::string::npos);
    EXPECT_NE(styles.find("<border diagonalUp=\"1\"><left style=\"slantDashDot\"><color rgb=\"FF123456\"/></left>"
                          "<right><color indexed=\"64\"/></right>"),
              std::string::npos);
    EXPECT_NE(styles.find("<diagonal style=\"hair\"><color indexed=\"64\"/></diagonal></border></borders>"),
              std::string::npos);
    EXPECT_NE(
        styles.find("<xf numFmtId=\"164\" fontId=\"1\" fillId=\"2\" borderId=\"1\" applyFont=\"1\" applyFill=\"1\" "
                    "applyBorder=\"1\" applyNumberFormat=\"1\" applyAlignment=\"1\"><alignment "
                    "horizontal=\"center\" vertical=\"bottom\" wrapText=\"1\" textRotation=\"120\"/></xf>"),
        std::string::npos)
        << Element(styles, "cellXfs");
}

TEST(StylesTest, TakesTenThousandStyles) {
    const std::string styles = StylesOf([](CWorkbook& workbook) {
        for (unsigned i = 0; i < 20000; ++i) {
            const unsigned number = i % 10000; // all of them once more at the end
            Style style;
            style.font.sizePoints = static_cast<int>(1 + number % 100);
            style.font.name = "Font " + std::to_string(number / 100);
            ASSERT_EQ(workbook.AddStyle(style), number + 2);
        }
    });
    EXPECT_EQ(CountOf(styles, "<xf "), 10003U);
    EXPECT_EQ(CountOf(styles, "<font>"), 10001U);
}

} // namespace
