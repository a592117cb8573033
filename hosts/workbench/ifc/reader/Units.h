// Units of the project and of single values, as factors to SI.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

struct UnitFactors {
    double lengthM = 1.0;
    double areaM2 = 1.0;
    double volumeM3 = 1.0;
    double massKg = 1.0;
    double densityKgPerM3 = 1.0;
    std::optional<double> angleRad; ///< nothing where the project names no unit of plane angles
};

/// Units that the project does not name are derived from its length; without a length unit metres are taken. Each
/// assumption becomes a sentence in WARNINGS.
[[nodiscard]] UnitFactors ReadUnits(const entities::Model& model, std::vector<std::string>& warnings);

/// Factor of one unit to SI (kilograms, metres, radians and their products), where it is understood.
[[nodiscard]] std::optional<double> UnitFactor(const entities::Entity& unit);

} // namespace workbench::ifc
