// Units of the project and of single values, as factors to SI.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "LibraryModel.h"

class IfcUnit;
class IfcValue;

namespace workbench::ifc {

struct UnitFactors {
    double lengthM = 1.0;
    double areaM2 = 1.0;
    double volumeM3 = 1.0;
    double densityKgPerM3 = 1.0;
    double angleRad = 1.0;
};

/// Units that the project does not name are derived from its length; without a length unit metres are taken. Each
/// assumption becomes a sentence in WARNINGS.
[[nodiscard]] UnitFactors ReadUnits(const LibraryModel& model, std::vector<std::string>& warnings);

/// Factor of one unit to SI (kilograms, metres, radians and their products), where it is understood.
[[nodiscard]] std::optional<double> UnitFactor(const std::shared_ptr<IfcUnit>& unit);

/// The number in a measure value, where it is one.
[[nodiscard]] std::optional<double> NumberOf(const std::shared_ptr<IfcValue>& value);

} // namespace workbench::ifc
