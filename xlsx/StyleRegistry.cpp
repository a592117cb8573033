#include "xlsx/StyleRegistry.h"

#include <tuple>

namespace Xlsx {

namespace {

auto Fields(const Font& font) {
    return std::tie(font.sizePoints, font.name, font.colourSource, font.colour, font.attributes);
}
auto Fields(const CellFill& fill) {
    return std::tie(fill.pattern, fill.foreground, fill.background);
}
auto Fields(const BorderSide& side) {
    return std::tie(side.line, side.colour);
}
auto Fields(const Border& border) {
    return std::tuple_cat(std::tie(border.hasDiagonalUp, border.hasDiagonalDown), Fields(border.left),
                          Fields(border.right), Fields(border.top), Fields(border.bottom), Fields(border.diagonal));
}
auto Fields(const CustomNumberFormat& custom) {
    const NumberFormat& format = custom.format;
    return std::tie(format.kind, format.decimals, format.hasThousandsSeparator, format.negativeSign,
                    format.negativeColour, format.suffix);
}
auto Fields(const CellFormat& format) {
    return std::tie(format.font, format.fill, format.border, format.numberFormat, format.alignment.horizontal,
                    format.alignment.vertical, format.alignment.wrapsText, format.alignment.rotationDegrees);
}

std::string Digits(const NumberFormat& format) {
    std::string digits = format.hasThousandsSeparator ? "#,##0" : "0";
    if (format.decimals > 0) digits += "." + std::string(format.decimals, '0');
    switch (format.kind) {
    case NumberKind::Percent:
        return digits + "%";
    case NumberKind::Scientific:
        return digits + "E+00";
    case NumberKind::Suffixed:
        return digits + " " + format.suffix;
    default:
        return digits;
    }
}

std::string NegativeSection(const NumberFormat& format) {
    static constexpr const char* Colours[] = {"",          "[BLACK]",  "[Green]", "[White]", "[Blue]",
                                              "[Magenta]", "[Yellow]", "[Cyan]",  "[Red]"};
    const std::string sign = format.negativeSign == NegativeSign::Minus ? "\\-" : "";
    return Colours[static_cast<unsigned>(format.negativeColour)] + sign + Digits(format);
}

} // namespace

template <class Entry>
bool ByFields::operator()(const Entry& left, const Entry& right) const {
    return Fields(left) < Fields(right);
}

template <class Entry>
unsigned EntryList<Entry>::Register(const Entry& entry) {
    const auto place = positions.lower_bound(entry);
    if (place != positions.end() && !ByFields()(entry, place->first)) return place->second;
    const auto position = static_cast<unsigned>(entries.size());
    entries.push_back(entry);
    positions.emplace_hint(place, entry, position);
    return position;
}

CStyleRegistry::CStyleRegistry() {
    Style style;
    AddStyle(style);
    style.fill.pattern = FillPattern::Gray125;
    style.numberFormat.id = 1;
    AddStyle(style);
}

unsigned CStyleRegistry::AddStyle(const Style& style) {
    CellFormat format;
    format.border = borders.Register(style.border);
    format.font = fonts.Register(style.font);
    format.fill = fills.Register(style.fill);
    format.numberFormat = NumberFormatId(style.numberFormat);
    format.alignment = style.alignment;
    return cellFormats.Register(format);
}

unsigned CStyleRegistry::NumberFormatId(const NumberFormat& format) {
    if (format.id < FirstCustomFormat) return format.id;
    const auto nextId = static_cast<unsigned>(FirstCustomFormat + GetNumberFormats().size());
    return GetNumberFormats()[numberFormats.Register({nextId, format})].id;
}

std::string NumberFormatCode(const NumberFormat& format) {
    switch (format.kind) {
    case NumberKind::Date:
        return "yyyy.mm.dd";
    case NumberKind::Time:
        return "hh:mm:ss";
    case NumberKind::DateTime:
        return "yyyy.mm.dd hh:mm:ss";
    case NumberKind::Accounting:
        return "_-* " + Digits(format) + "_-;\\-* " + Digits(format) + "_-;_-* \"-\"??_-;_-@_-";
    default:
        return Digits(format) + ";" + NegativeSection(format);
    }
}

} // namespace Xlsx
