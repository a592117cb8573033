// Quantities that the file states for an object.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Units.h"
#include "workbench/ifc/ElementRules.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

/// Areas, volumes and lengths of all quantity sets of OBJECT by name, in SI units, as the file says them: finite, but
/// maybe negative. Of a name that comes twice the first counts. With PROPERTIES single property values count too,
/// behind the quantities.
enum class QuantityPlaces : std::uint8_t { QuantitySets, QuantitySetsAndProperties };
[[nodiscard]] std::map<std::string, double> ReadQuantities(const entities::Model& model, const UnitFactors& units,
                                                           const entities::Entity& object, QuantityPlaces places);

/// The plausible ones of QUANTITIES; what is not becomes a sentence in WARNINGS that calls the element WHOSE.
[[nodiscard]] StatedQuantities PickStated(const std::map<std::string, double>& quantities, AreaRule rule,
                                          const std::string& whose, std::vector<std::string>& warnings);

} // namespace workbench::ifc
