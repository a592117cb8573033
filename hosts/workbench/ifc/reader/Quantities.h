// Quantities that the file states for an object, and the building's floor area.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "LibraryModel.h"
#include "Units.h"
#include "workbench/ifc/ElementRules.h"

class IfcObject;

namespace workbench::ifc {

/// Areas, volumes and lengths of all quantity sets of OBJECT by name, in SI units, as the file says them: finite, but
/// maybe negative. Of a name that comes twice the first counts. With PROPERTIES single property values count too,
/// behind the quantities.
enum class QuantityPlaces : std::uint8_t { QuantitySets, QuantitySetsAndProperties };
[[nodiscard]] std::map<std::string, double> ReadQuantities(const LibraryModel& model, const UnitFactors& units,
                                                           const IfcObject& object, QuantityPlaces places);

/// The plausible ones of QUANTITIES; what is not becomes a sentence in WARNINGS that calls the element WHOSE.
[[nodiscard]] StatedQuantities PickStated(const std::map<std::string, double>& quantities, AreaRule rule,
                                          const std::string& whose, std::vector<std::string>& warnings);

/// Sets the gross floor area: that of the buildings, failing that the sum over the spaces, gross before net.
void ReadFloorArea(const LibraryModel& model, const UnitFactors& units, ImportedBuilding& building);

} // namespace workbench::ifc
