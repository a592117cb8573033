// The table of the nineteen keys by which the LCA property definitions are found again, with what each stores, and the
// markers that carry them in a definition's description: LCAID="KEY", and LCAUNIT="UNIT" for the standards' unit.
#pragma once

#include "lca/LCAProjectData.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

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

enum class KeyOwner : std::uint8_t { BuildingMaterial, Element, Project };

/// What a project definition stores as its default value.
using StoredValue = std::variant<std::int32_t, double, std::string>;
/// The first three are the positions in StoredValue; project keys have no other.
enum class StoredKind : std::uint8_t { Integer, Real, Text, Boolean };

struct PropertyKeyRow {
    PropertyKey key;
    std::string_view text;
    StoredKind kind;
    KeyOwner owner;
    std::optional<FloorQuantity> quantity; ///< that a project key stores as its plain real value
    /// Of project keys, else null. A value of the key's kind goes into the record; what cannot be read is left out.
    void (*decode)(const StoredValue& stored, LCAProjectData& record);
    StoredValue (*encode)(const LCAProjectData& record);
};

/// By position.
const std::array<PropertyKeyRow, PropertyKeyCount>& GetPropertyKeys();
const PropertyKeyRow& GetRow(PropertyKey key);
/// Null for a text that is no key.
const PropertyKeyRow* FindPropertyKey(std::string_view keyText);

inline std::string_view GetKeyText(PropertyKey key) {
    return GetRow(key).text;
}
inline bool IsProjectKey(PropertyKey key) {
    return GetRow(key).owner == KeyOwner::Project;
}

/// Takes what a project definition holds into the record, whose floor maps BeginLoad has cleared before the first.
/// Answers false and changes nothing where the key is no project key, the value is of another kind or no finite number.
bool ReadStoredValue(PropertyKey key, const StoredValue& stored, std::string_view description, LCAProjectData& record);
/// The description as the record wants it: all of it stays but the unit marker of the standards.
std::string WriteDescription(PropertyKey key, const LCAProjectData& record, std::string_view description);

/// As a plain text: a whole number, a decimal number, or the text itself.
std::string WriteStoredText(const StoredValue& stored);

/// LCAID="KEY"
std::string WriteMarker(PropertyKey key);
/// Key of the first marker in a description; none when the marker, its closing quote or a matching key is missing.
std::optional<PropertyKey> FindMarker(std::string_view description);

/// Unit of the standards from the second marker; PerAreaAndYear when it is missing or says something else.
GWPUnitType ReadUnitMarker(std::string_view description);
/// The description with its unit marker replaced, added or (PerAreaAndYear has none) removed.
std::string WriteUnitMarker(std::string_view description, GWPUnitType unit);

} // namespace lca
