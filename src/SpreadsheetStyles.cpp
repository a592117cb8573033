#include "src/SpreadsheetStyles.h"

#include <cmath>
#include <cstdio>

namespace {

using lca::CellRole;

constexpr char DarkFill[] = "FF274B5A", StageFill[] = "FFF3E3D3", PartFill[] = "FFDCE9F2", PerYearFill[] = "FF1F6FCB";
constexpr char LightText[] = "FFFFFFFF", DarkText[] = "FF1F2A30", NoteText[] = "FF5A6B73", Black[] = "FF000000";
constexpr char LineColour[] = "FFB7C4CB", LegendLine[] = "FFFFFFFF";

Xlsx::Style MakeBase(int fontPoints) {
    Xlsx::Style style;
    style.font.sizePoints = fontPoints;
    style.alignment.vertical = Xlsx::VerticalAlignment::Centre;
    return style;
}

void SetFill(Xlsx::Style& style, const std::string& fill) {
    style.fill = {Xlsx::FillPattern::Solid, fill, ""};
}

void SetText(Xlsx::Style& style, const char* colour, unsigned attributes) {
    style.font.attributes = attributes;
    style.font.colourSource = Xlsx::FontColour::Given;
    style.font.colour = colour;
}

void SetBand(Xlsx::Style& style, const char* fill, const char* text) {
    SetFill(style, fill);
    SetText(style, text, Xlsx::Bold);
}

/// The blank before the suffix keeps the digits off the cell's edge; the suffix itself is as wide as what is not shown.
void SetNumber(Xlsx::Style& style, const CellLook& look) {
    style.numberFormat.id = Xlsx::FirstCustomFormat;
    style.numberFormat.kind = Xlsx::NumberKind::Suffixed;
    style.numberFormat.decimals = look.decimals;
    style.numberFormat.hasThousandsSeparator = true;
    if (look.decimals == 0 && look.mostDecimals > 0) style.numberFormat.suffix += "_.";
    for (unsigned i = look.decimals; i < look.mostDecimals; ++i)
        style.numberFormat.suffix += "_0";
    style.alignment.horizontal = Xlsx::HorizontalAlignment::Right;
}

void SetNote(Xlsx::Style& style) {
    SetText(style, NoteText, 0);
    style.border = {};
    style.alignment.wrapsText = false;
}

/// Fill and letters; what holds a number or a heading has its alignment from MakeCellStyle.
void SetColours(Xlsx::Style& style, CellRole role) {
    switch (role) {
    case CellRole::Header:
    case CellRole::NumberHeader:
    case CellRole::TotalLabel:
    case CellRole::TotalNumber:
        return SetBand(style, DarkFill, LightText);
    case CellRole::TotalPerYear:
        return SetBand(style, PerYearFill, LightText);
    case CellRole::StageLabel:
        return SetBand(style, StageFill, DarkText);
    case CellRole::PartLabel:
    case CellRole::PartNumber:
        return SetBand(style, PartFill, DarkText);
    case CellRole::NoteLabel:
    case CellRole::NoteNumber:
        return SetNote(style);
    case CellRole::Text:
    case CellRole::Number:
        return SetText(style, DarkText, 0);
    }
}

bool IsNumber(CellRole role) {
    return role == CellRole::Number || role == CellRole::PartNumber || role == CellRole::TotalNumber ||
           role == CellRole::TotalPerYear || role == CellRole::NoteNumber;
}

/// Of a colour against black, by the sRGB curve: 0 for black, 1 for white.
double MeasureLuminance(lca::Colour colour) {
    const auto linear = [](std::uint8_t channel) {
        const double share = channel / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

} // namespace

CellLook FindLook(const lca::SheetCell& cell) {
    if (!cell.number) return {cell.role, 0, 0};
    return {cell.role, lca::CountShownDecimals(*cell.number, cell.decimals), cell.decimals};
}

Xlsx::Style MakeCellStyle(const CellLook& look, int fontPoints) {
    Xlsx::Style style = MakeBase(fontPoints);
    style.border.bottom = {Xlsx::BorderLine::Thin, LineColour};
    style.alignment.wrapsText = !IsNumber(look.role);
    style.alignment.horizontal = Xlsx::HorizontalAlignment::Left;
    if (look.role == CellRole::NumberHeader) style.alignment.horizontal = Xlsx::HorizontalAlignment::Right;
    if (IsNumber(look.role)) SetNumber(style, look);
    SetColours(style, look.role);
    return style;
}

Xlsx::Style MakeLegendStyle(lca::Colour fill, int fontPoints) {
    constexpr double Flare = 0.05; ///< of the surroundings, added to both sides of a contrast
    const double light = MeasureLuminance(fill) + Flare;
    const bool isDark = (1.0 + Flare) / light > light / Flare;
    char colour[9];
    std::snprintf(colour, sizeof colour, "FF%02X%02X%02X", unsigned{fill.red}, unsigned{fill.green},
                  unsigned{fill.blue});
    Xlsx::Style style = MakeBase(fontPoints);
    SetFill(style, colour);
    SetText(style, isDark ? LightText : Black, 0);
    style.alignment.wrapsText = true;
    style.border.right = {Xlsx::BorderLine::Medium, LegendLine}; // a gap between two colours
    return style;
}

Xlsx::Style MakePictureTitleStyle(int fontPoints) {
    Xlsx::Style style = MakeBase(fontPoints);
    SetText(style, DarkText, Xlsx::Bold);
    return style;
}
