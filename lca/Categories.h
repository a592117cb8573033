// The result categories with what each counts and how, the floor and energy quantities and the unit of the thresholds,
// with the key texts under which they are stored.
#pragma once

#include "lca/Colour.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace lca {

enum class ElementCategory : std::uint8_t {
    OperatingEmission = 0, ///< B6
    BuildingComponents = 1,
    Doors = 2,
    Windows = 3,
    Inventory = 4,
    Installations = 5,
    BuildingProcess = 6 ///< A4, A5
};

enum class FloorQuantity : std::uint8_t {
    GrossFloorArea = 0,         ///< m2
    OperationalEmission = 1,    ///< kg CO2eq/a
    ReferenceFloorArea = 2,     ///< m2
    SolarPanels = 3,            ///< kWh/a
    MaxSolarContribution = 4,   ///< kWh/m2/a
    ElectricitySourceFactor = 5 ///< kg CO2eq/kWh
};

inline constexpr std::size_t FloorQuantityCount = 6;
inline constexpr std::array<FloorQuantity, FloorQuantityCount> AllFloorQuantities = {
    FloorQuantity::GrossFloorArea, FloorQuantity::OperationalEmission,  FloorQuantity::ReferenceFloorArea,
    FloorQuantity::SolarPanels,    FloorQuantity::MaxSolarContribution, FloorQuantity::ElectricitySourceFactor};

inline constexpr std::array<std::string_view, FloorQuantityCount> FloorQuantityKeys = {
    "FLOORAREA",    "OPERATIONAL_EMISSION", "REFERENCE_FLOORAREA",
    "SOLAR_PANELS", "MAX_SOLAR_CONT",       "ELECTRICITY_S_FACTOR"};
constexpr std::string_view GetKeyText(FloorQuantity quantity) {
    return FloorQuantityKeys[static_cast<std::size_t>(quantity)];
}
std::optional<FloorQuantity> FindFloorQuantity(std::string_view keyText);

/// What a run adds up, kg CO2eq: doors and windows without replacements, the building components with theirs.
struct BaseSums {
    double buildingComponents = 0.0;
    double doors = 0.0;
    double windows = 0.0;
};

struct CategoryRow {
    ElementCategory category;
    std::string_view key;   ///< as stored
    double BaseSums::*sum;  ///< null where the building's elements are not what is counted
    bool hasServiceLife;    ///< one of its own, after which all of it is replaced
    bool isShare;           ///< of the building's sums, or a value stated directly; else neither
    FloorQuantity area;     ///< by which its GWP per area is computed
    std::int32_t lifeYears; ///< default, where it has a service life
    double sharePercent;    ///< default, where it is a share
    Colour colour;          ///< default
};

inline constexpr std::size_t CategoryCount = 7;
/// By position; in the order of the result table.
inline constexpr std::array<CategoryRow, CategoryCount> CategoryRows = {{
    {ElementCategory::OperatingEmission,
     "OperatingEmission",
     nullptr,
     false,
     false,
     FloorQuantity::GrossFloorArea,
     0,
     0.0,
     {179, 109, 77}},
    {ElementCategory::BuildingComponents,
     "BuildingComponents",
     &BaseSums::buildingComponents,
     false,
     false,
     FloorQuantity::ReferenceFloorArea,
     0,
     0.0,
     {43, 130, 226}},
    {ElementCategory::Doors,
     "Doors",
     &BaseSums::doors,
     true,
     false,
     FloorQuantity::ReferenceFloorArea,
     25,
     0.0,
     {127, 127, 127}},
    {ElementCategory::Windows,
     "Windows",
     &BaseSums::windows,
     true,
     false,
     FloorQuantity::ReferenceFloorArea,
     25,
     0.0,
     {38, 198, 244}},
    {ElementCategory::Inventory,
     "Inventory",
     nullptr,
     true,
     true,
     FloorQuantity::ReferenceFloorArea,
     30,
     5.0,
     {210, 152, 102}},
    {ElementCategory::Installations,
     "Installations",
     nullptr,
     true,
     true,
     FloorQuantity::ReferenceFloorArea,
     25,
     10.0,
     {70, 173, 121}},
    {ElementCategory::BuildingProcess,
     "BuildingProcess",
     nullptr,
     false,
     true,
     FloorQuantity::ReferenceFloorArea,
     0,
     10.0,
     {127, 72, 48}},
}};

constexpr const CategoryRow& GetRow(ElementCategory category) {
    return CategoryRows[static_cast<std::size_t>(category)];
}
constexpr std::string_view GetKeyText(ElementCategory category) {
    return GetRow(category).key;
}
std::optional<ElementCategory> FindCategory(std::string_view keyText);

/// Unit of the thresholds of the LCA standards.
enum class GWPUnitType : std::uint32_t { Total = 0, PerArea = 1, PerAreaAndYear = 2 };

inline constexpr std::array<std::string_view, 3> UnitTypeKeys = {"GWP_KG", "GWP_KG_M2", "GWP_KG_M2_A"};
constexpr std::string_view GetKeyText(GWPUnitType unit) {
    return UnitTypeKeys[static_cast<std::size_t>(unit)];
}
std::optional<GWPUnitType> FindUnitType(std::string_view keyText);

} // namespace lca
