// The nineteen keys by which the LCA property definitions are found again, and the markers that carry them in a
// definition's description: LCAID="KEY", and LCAUNIT="UNIT" for the standards' unit.
#pragma once

#include "lca/Categories.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace lca {

/// Position of a key in the key table.
enum class PropertyKey : std::uint8_t {
    GWPPerUnit = 0, ///< of a building material, as are the next two
    UnitType = 1,
    ServiceYear = 2,
    GWP = 3, ///< of an element, as are the next two
    Include = 4,
    GWPPercentage = 5,
    GWPStandards = 6, ///< of the project, as are all that follow
    Phases = 7,
    ServiceLife = 8,
    Contribution = 9,
    ElementLives = 10,
    ElementColours = 11,
    GrossFloorArea = 12,
    OperationalEmission = 13,
    ReferenceFloorArea = 14,
    FloorSettings = 15,
    SolarPanels = 16,
    MaxSolarContribution = 17,
    ElectricitySourceFactor = 18
};

inline constexpr std::size_t PropertyKeyCount = 19;
inline constexpr std::size_t FirstElementKey = 3;
inline constexpr std::size_t FirstProjectKey = 6;

std::string_view GetKeyText(PropertyKey key);
std::optional<PropertyKey> FindPropertyKey(std::string_view keyText);

inline bool IsMaterialKey(PropertyKey key) {
    return static_cast<std::size_t>(key) < FirstElementKey;
}
inline bool IsProjectKey(PropertyKey key) {
    return static_cast<std::size_t>(key) >= FirstProjectKey;
}
inline bool IsElementKey(PropertyKey key) {
    return !IsMaterialKey(key) && !IsProjectKey(key);
}

/// The quantity that a project key stores as its plain real value.
std::optional<FloorQuantity> GetFloorQuantity(PropertyKey key);

/// LCAID="KEY"
std::string WriteMarker(PropertyKey key);
/// Key of the first marker in a description; none when the marker, its closing quote or a matching key is missing.
std::optional<PropertyKey> FindMarker(std::string_view description);

/// Unit of the standards from the second marker; PerAreaAndYear when it is missing or says something else.
GWPUnitType ReadUnitMarker(std::string_view description);
/// The description with its unit marker replaced, added or (PerAreaAndYear has none) removed.
std::string WriteUnitMarker(std::string_view description, GWPUnitType unit);

} // namespace lca
