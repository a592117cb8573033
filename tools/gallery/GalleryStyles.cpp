// Every font attribute, fill, border, number format and alignment.
#include "gallery/Gallery.h"

namespace gallery {

namespace {

using namespace Xlsx;

NumberFormat Custom(NumberKind kind, unsigned decimals) {
    NumberFormat format;
    format.id = FirstCustomFormat;
    format.kind = kind;
    format.decimals = decimals;
    return format;
}

void WriteFonts(CWorkbook& workbook, CWorksheet& sheet) {
    static constexpr std::pair<unsigned, const char*> Fonts[] = {
        {Bold, "bold"},       {Italic, "italic"}, {Underline, "underlined"}, {Strike, "struck"},
        {Outline, "outline"}, {Shadow, "shadow"}, {Condense, "condensed"},   {Extend, "extended"}};
    sheet.BeginRow(30);
    unsigned size = 9;
    for (const auto& [attribute, name] : Fonts) {
        Style style;
        style.font.attributes = attribute;
        style.font.name = size % 2 == 0 ? "Arial" : "Times New Roman";
        style.font.sizePoints = static_cast<int>(size++);
        style.font.colourSource = FontColour::Given;
        style.font.colour = "FFC00000";
        sheet.AddCell(name, workbook.AddStyle(style));
    }
    Style plain;
    plain.font.colourSource = FontColour::Given;
    plain.font.colour = "0070C0";
    sheet.AddCell("six digits", workbook.AddStyle(plain));
    Style all;
    all.font = {"A & B", 14, FontColour::Given, "", // without a colour: the theme's
                Bold | Italic | Underline | Strike | Outline | Shadow | Condense | Extend};
    sheet.AddCell("everything", workbook.AddStyle(all));
}

void WriteFills(CWorkbook& workbook, CWorksheet& sheet) {
    for (unsigned pattern = 0; pattern <= static_cast<unsigned>(FillPattern::Gray0625); ++pattern) {
        if (pattern % 8 == 0) sheet.BeginRow(24);
        Style style;
        style.fill.pattern = static_cast<FillPattern>(pattern);
        style.fill.foreground = "FF4F81BD";
        style.fill.background = "FFFDE9D9";
        sheet.AddCell(pattern, workbook.AddStyle(style));
    }
}

void WriteBorders(CWorkbook& workbook, CWorksheet& sheet) {
    for (unsigned line = 1; line <= static_cast<unsigned>(BorderLine::SlantDashDot); ++line) {
        if (line % 7 == 1) {
            sheet.BeginRow(6);
            sheet.BeginRow(24);
        }
        Style style;
        const BorderSide side = {static_cast<BorderLine>(line), line % 2 == 0 ? "FF00B050" : ""};
        style.border = {side, side, side, side, {}, false, false};
        sheet.AddCell(line, workbook.AddStyle(style));
    }
    Style crossed;
    crossed.border.diagonal = {BorderLine::Thin, "FFFF0000"};
    crossed.border.hasDiagonalUp = true;
    crossed.border.hasDiagonalDown = true;
    sheet.AddCell("", workbook.AddStyle(crossed));
    Style sides;
    sides.border = {{BorderLine::Thin, "FF111111"},
                    {BorderLine::Medium, "FF222222"},
                    {BorderLine::Thick, "FF333333"},
                    {BorderLine::Double, "FF444444"},
                    {BorderLine::Hair, ""},
                    true,
                    false};
    sheet.AddCell("", workbook.AddStyle(sides));
    sides.border.hasDiagonalUp = false;
    sides.border.hasDiagonalDown = true;
    sheet.AddCell("", workbook.AddStyle(sides));
}

void WriteNumbers(CWorkbook& workbook, CWorksheet& sheet) {
    NumberFormat suffixed = Custom(NumberKind::Suffixed, 1);
    suffixed.suffix = "\"kg CO2eq\"";
    NumberFormat red = Custom(NumberKind::Plain, 2);
    red.hasThousandsSeparator = true;
    red.negativeColour = NegativeColour::Red;
    NumberFormat black = Custom(NumberKind::Plain, 0);
    black.negativeColour = NegativeColour::Black;
    black.negativeSign = NegativeSign::None;
    NumberFormat accounting = Custom(NumberKind::Accounting, 2);
    accounting.hasThousandsSeparator = true;
    NumberFormat builtIn;
    builtIn.id = 14;
    NumberFormat date = red; // which shows nothing of the rest
    date.kind = NumberKind::Date;
    std::vector<std::pair<NumberFormat, double>> rows = {{red, -1234.5},
                                                         {black, -17},
                                                         {Custom(NumberKind::Percent, 1), 0.125},
                                                         {Custom(NumberKind::Scientific, 2), 123456},
                                                         {accounting, 1234.5},
                                                         {suffixed, 42.25},
                                                         {Custom(NumberKind::Date, 0), 45000},
                                                         {Custom(NumberKind::Time, 0), 0.75},
                                                         {Custom(NumberKind::DateTime, 0), 45000.5},
                                                         {builtIn, 45000},
                                                         {Custom(NumberKind::General, 0), -17},
                                                         {date, 45000}};
    for (const auto colour : {NegativeColour::Green, NegativeColour::White, NegativeColour::Blue,
                              NegativeColour::Magenta, NegativeColour::Yellow, NegativeColour::Cyan}) {
        black.negativeColour = colour;
        rows.emplace_back(black, -17);
    }
    for (const auto& [format, value] : rows) {
        Style style;
        style.numberFormat = format;
        sheet.BeginRow();
        sheet.AddCell(value, workbook.AddStyle(style));
    }
}

void WriteAlignments(CWorkbook& workbook, CWorksheet& sheet) {
    static constexpr const char* HorizontalNames[] = {"none", "left", "centre", "right"};
    for (const auto vertical : {VerticalAlignment::Top, VerticalAlignment::Centre, VerticalAlignment::Bottom}) {
        sheet.BeginRow(40);
        for (unsigned horizontal = 0; horizontal < 4; ++horizontal) {
            Style style;
            style.alignment.horizontal = static_cast<HorizontalAlignment>(horizontal);
            style.alignment.vertical = vertical;
            sheet.AddCell(HorizontalNames[horizontal], workbook.AddStyle(style));
        }
    }
    sheet.BeginRow(60);
    Style wrapped;
    wrapped.alignment.wrapsText = true;
    sheet.AddCell("two\nlines", workbook.AddStyle(wrapped));
    for (const int degrees : {45, 90, -45, -90, 255}) {
        Style style;
        style.alignment.rotationDegrees = degrees;
        sheet.AddCell(std::to_string(degrees), workbook.AddStyle(style));
    }
}

} // namespace

void FillStyles(CWorkbook& workbook) {
    const std::vector<ColumnWidth> columns = {{1, 9, 14}};
    WriteFonts(workbook, workbook.AddSheet("Fonts", columns));
    WriteFills(workbook, workbook.AddSheet("Fills", columns));
    WriteBorders(workbook, workbook.AddSheet("Borders", columns));
    WriteNumbers(workbook, workbook.AddSheet("Numbers", {{1, 1, 30}}));
    WriteAlignments(workbook, workbook.AddSheet("Alignment", columns));
    workbook.SetActiveSheet(3);
}

} // namespace gallery
