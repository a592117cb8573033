// The result categories, the floor and energy quantities and the unit of the thresholds, with the key texts under which
// they are stored.
#pragma once

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

inline constexpr std::size_t CategoryCount = 7;
inline constexpr std::array<ElementCategory, CategoryCount> AllCategories = {
    ElementCategory::OperatingEmission, ElementCategory::BuildingComponents, ElementCategory::Doors,
    ElementCategory::Windows,           ElementCategory::Inventory,          ElementCategory::Installations,
    ElementCategory::BuildingProcess};

/// Key text of a category; empty for a value outside the seven.
std::string_view GetKeyText(ElementCategory category);
std::optional<ElementCategory> FindCategory(std::string_view keyText);

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

std::string_view GetKeyText(FloorQuantity quantity);
std::optional<FloorQuantity> FindFloorQuantity(std::string_view keyText);

/// Unit of the thresholds of the LCA standards.
enum class GWPUnitType : std::uint32_t { Total = 0, PerArea = 1, PerAreaAndYear = 2 };

/// "GWP_KG" and "GWP_KG_M2"; empty for PerAreaAndYear, which is what any other text reads as.
std::string_view GetKeyText(GWPUnitType unit);
GWPUnitType ReadUnitType(std::string_view keyText);

} // namespace lca
