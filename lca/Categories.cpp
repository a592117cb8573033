#include "lca/Categories.h"

namespace lca {

namespace {

constexpr std::array<std::string_view, CategoryCount> CategoryKeys = {
    "OperatingEmission", "BuildingComponents", "Doors", "Windows", "Inventory", "Installations", "BuildingProcess"};

constexpr std::array<std::string_view, FloorQuantityCount> QuantityKeys = {
    "FLOORAREA",    "OPERATIONAL_EMISSION", "REFERENCE_FLOORAREA",
    "SOLAR_PANELS", "MAX_SOLAR_CONT",       "ELECTRICITY_S_FACTOR"};

template <typename Value, std::size_t Count>
std::string_view KeyOf(const std::array<std::string_view, Count>& keys, Value value) {
    const auto index = static_cast<std::size_t>(value);
    return index < Count ? keys[index] : std::string_view();
}

template <typename Value, std::size_t Count>
std::optional<Value> ValueOf(const std::array<std::string_view, Count>& keys, std::string_view text) {
    for (std::size_t i = 0; i < Count; ++i)
        if (keys[i] == text) return static_cast<Value>(i);
    return std::nullopt;
}

} // namespace

std::string_view GetKeyText(ElementCategory category) {
    return KeyOf(CategoryKeys, category);
}

std::optional<ElementCategory> FindCategory(std::string_view keyText) {
    return ValueOf<ElementCategory>(CategoryKeys, keyText);
}

std::string_view GetKeyText(FloorQuantity quantity) {
    return KeyOf(QuantityKeys, quantity);
}

std::optional<FloorQuantity> FindFloorQuantity(std::string_view keyText) {
    return ValueOf<FloorQuantity>(QuantityKeys, keyText);
}

std::string_view GetKeyText(GWPUnitType unit) {
    if (unit == GWPUnitType::Total) return "GWP_KG";
    if (unit == GWPUnitType::PerArea) return "GWP_KG_M2";
    return {};
}

GWPUnitType ReadUnitType(std::string_view keyText) {
    if (keyText == "GWP_KG_M2") return GWPUnitType::PerArea;
    if (keyText == "GWP_KG") return GWPUnitType::Total;
    return GWPUnitType::PerAreaAndYear;
}

} // namespace lca
