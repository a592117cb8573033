#include "src/SpreadsheetStyles.h"

#include <cstdio>

namespace {

using lca::CellRole;

constexpr char DarkFill[] = "FF274B5A", StageFill[] = "FFF3E3D3", PartFill[] = "FFDCE9F2", PerYearFill[] = "FF2B82E2";
constexpr char LightText[] = "FFFFFFFF", DarkText[] = "FF1F2A30", NoteText[] = "FF5A6B73";
constexpr char LineColour[] = "FFB7C4CB", LegendLine[] = "FFFFFFFF";
constexpr double DarkestLight = 150.0; ///< brightness (0-255) from which on a fill takes dark letters

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

/// The blank of an empty suffix keeps the digits off the cell's edge.
void SetNumber(Xlsx::Style& style, unsigned decimals) {
    style.numberFormat.id = Xlsx::firstCustomFormat;
    style.numberFormat.kind = Xlsx::NumberKind::Suffixed;
    style.numberFormat.decimals = decimals;
    style.numberFormat.hasThousandsSeparator = true;
    style.alignment.horizontal = Xlsx::HorizontalAlignment::Right;
}

void SetNote(Xlsx::Style& style) {
    SetText(style, NoteText, 0);
    style.border = {};
    style.alignment.horizontal = Xlsx::HorizontalAlignment::Left;
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
    case CellRole::NoteYears:
        return SetNote(style);
    case CellRole::Text:
    case CellRole::Number:
        return SetText(style, DarkText, 0);
    }
}

} // namespace

Xlsx::Style MakeCellStyle(CellRole role, int fontPoints) {
    constexpr unsigned Decimals = 2;
    Xlsx::Style style = MakeBase(fontPoints);
    style.border.bottom = {Xlsx::BorderLine::Thin, LineColour};
    switch (role) {
    case CellRole::Number:
    case CellRole::PartNumber:
    case CellRole::TotalNumber:
    case CellRole::TotalPerYear:
    case CellRole::NoteNumber:
        SetNumber(style, Decimals);
        break;
    case CellRole::NoteYears:
        SetNumber(style, 0);
        break;
    case CellRole::NumberHeader:
        style.alignment.horizontal = Xlsx::HorizontalAlignment::Right;
        break;
    default:
        style.alignment.horizontal = Xlsx::HorizontalAlignment::Left;
        break;
    }
    style.alignment.wrapsText = role == CellRole::Header || role == CellRole::NumberHeader;
    SetColours(style, role);
    return style;
}

Xlsx::Style MakeLegendStyle(std::uint32_t argb, int fontPoints) {
    const auto channel = [&](unsigned shift) { return (argb >> shift) & 0xFFU; };
    const double brightness = 0.299 * channel(16) + 0.587 * channel(8) + 0.114 * channel(0);
    char colour[9];
    std::snprintf(colour, sizeof colour, "FF%06X", static_cast<unsigned>(argb & 0xFFFFFFU));
    Xlsx::Style style = MakeBase(fontPoints);
    SetFill(style, colour);
    SetText(style, brightness < DarkestLight ? LightText : DarkText, 0);
    style.border.bottom = {Xlsx::BorderLine::Medium, LegendLine}; // a gap between two colours
    return style;
}

Xlsx::Style MakePictureTitleStyle(int fontPoints) {
    Xlsx::Style style = MakeBase(fontPoints);
    SetText(style, DarkText, Xlsx::Bold);
    return style;
}
