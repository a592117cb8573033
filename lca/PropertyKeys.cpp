#include "lca/PropertyKeys.h"

namespace lca {

namespace {

constexpr std::array<std::string_view, PropertyKeyCount> KeyTexts = {"GWP/UNIT",
                                                                     "UNITTYPE",
                                                                     "SERVICEYEAR",
                                                                     "GWP",
                                                                     "INCLUDE",
                                                                     "GWPPERCENTAGE",
                                                                     "GWP-STANDARDS",
                                                                     "PHASES",
                                                                     "SERVICELIFE",
                                                                     "CONTRIBUTION",
                                                                     "ELEMLIVES",
                                                                     "ELEMCOLORS",
                                                                     "FLOORAREA",
                                                                     "OPERATIONAL_EMISSION",
                                                                     "REFERENCE_FLOORAREA",
                                                                     "FLOOR_SETTINGS",
                                                                     "SOLAR_PANELS",
                                                                     "MAX_SOLAR_CONT",
                                                                     "ELECTRICITY_S_FACTOR"};

constexpr std::string_view KeyMarker = "LCAID=\"";
constexpr std::string_view UnitMarker = "LCAUNIT=\"";

struct Marker {
    std::size_t begin = 0;
    std::size_t end = 0; ///< one past the closing quote
    std::string_view text;
};

std::optional<Marker> FindQuoted(std::string_view description, std::string_view opening) {
    const std::size_t begin = description.find(opening);
    if (begin == std::string_view::npos) return std::nullopt;
    const std::size_t text = begin + opening.size();
    const std::size_t quote = description.find('"', text);
    if (quote == std::string_view::npos) return std::nullopt;
    return Marker{begin, quote + 1, description.substr(text, quote - text)};
}

} // namespace

std::string_view GetKeyText(PropertyKey key) {
    const auto index = static_cast<std::size_t>(key);
    return index < PropertyKeyCount ? KeyTexts[index] : std::string_view();
}

std::optional<PropertyKey> FindPropertyKey(std::string_view keyText) {
    for (std::size_t i = 0; i < PropertyKeyCount; ++i)
        if (KeyTexts[i] == keyText) return static_cast<PropertyKey>(i);
    return std::nullopt;
}

std::optional<FloorQuantity> GetFloorQuantity(PropertyKey key) {
    return IsProjectKey(key) ? FindFloorQuantity(GetKeyText(key)) : std::nullopt;
}

std::string WriteMarker(PropertyKey key) {
    return std::string(KeyMarker) + std::string(GetKeyText(key)) + "\"";
}

std::optional<PropertyKey> FindMarker(std::string_view description) {
    const std::optional<Marker> marker = FindQuoted(description, KeyMarker);
    return marker ? FindPropertyKey(marker->text) : std::nullopt;
}

GWPUnitType ReadUnitMarker(std::string_view description) {
    const std::optional<Marker> marker = FindQuoted(description, UnitMarker);
    return marker ? ReadUnitType(marker->text) : GWPUnitType::PerAreaAndYear;
}

std::string WriteUnitMarker(std::string_view description, GWPUnitType unit) {
    std::string result(description);
    if (const std::optional<Marker> old = FindQuoted(description, UnitMarker)) {
        const bool hasBlank = old->begin > 0 && description[old->begin - 1] == ' ';
        const std::size_t begin = old->begin - (hasBlank ? 1 : 0);
        result.erase(begin, old->end - begin);
    }
    const std::string_view text = GetKeyText(unit);
    if (text.empty()) return result;
    if (!result.empty()) result += ' ';
    return result + std::string(UnitMarker) + std::string(text) + "\"";
}

} // namespace lca
