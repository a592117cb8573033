// Everything that quantity and property sets say of an object as numbers, in SI units and with the name of the set.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Units.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

enum class Measure : std::uint8_t { Length, Area, Volume, Mass };

struct StatedValue {
    std::string set; ///< both names without blanks and underscores around them, ASCII letters small
    std::string name;
    std::string writtenName; ///< with the set's: "BaseQuantities.NetVolume"
    Measure measure = Measure::Length;
    bool isProperty = false; ///< a single value of a property set, by its measure type; else of a quantity set
    double value = 0.0;      ///< m, m2, m3 or kg; finite, maybe negative
};

/// A property of the sets in which one program gives an element's sizes, in several languages.
[[nodiscard]] bool IsOfDimensions(const StatedValue& value);

/// In the order of the file.
[[nodiscard]] std::vector<StatedValue> ReadStatedValues(const entities::Model& model, const UnitFactors& units,
                                                        const entities::Entity& object);

/// The quantity and property sets that belong to OBJECT.
[[nodiscard]] std::vector<entities::Entity> SetsOf(const entities::Model& model, const entities::Entity& object);

/// NAME as names of sets and values are compared.
[[nodiscard]] std::string ComparableName(std::string_view name);

} // namespace workbench::ifc
