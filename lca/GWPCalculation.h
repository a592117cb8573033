// Embodied GWP of one material component, and the sums of a run over the building.
#pragma once

#include "lca/MaterialSumTable.h"

#include <cstdint>
#include <string_view>

namespace lca {

/// Declared unit of a material's GWP.
enum class MaterialUnit { CubicMetre, SquareMetre, Kilogram };

/// "m3" (also for an empty text), "m2"; anything else is a mass unit.
MaterialUnit ReadMaterialUnit(std::string_view text);

/// What a run needs of one building material, read once a run.
struct MaterialValues {
    double gwpPerUnit = 0.0; ///< kg CO2eq per unit
    MaterialUnit unit = MaterialUnit::CubicMetre;
    std::int32_t serviceLifeYears = 0; ///< 0 or less: provided once
    double densityKgM3 = 0.0;
};

/// What a run needs of one element's own LCA values.
struct ElementValues {
    double gwp = 0.0; ///< kg CO2eq, counted for doors and windows only
    bool include = true;
    double percentage = 100.0; ///< share that counts
};

/// How often something of this service life is provided within the period: period / life rounded up; once for a life of
/// 0 or less. A period of 0 provides nothing that has a service life.
std::int64_t CountProvisions(std::uint32_t periodYears, std::int32_t serviceLifeYears);

/// kg CO2eq of a component: value per unit x share x quantity in the unit x provisions.
double ComputeComponentGWP(const MaterialValues& material, double share, double volumeM3, double areaM2,
                           std::uint32_t periodYears);

/// Sums of a run, kg CO2eq. Doors and windows are without replacements, the building components with theirs.
struct BaseSums {
    double buildingComponents = 0.0;
    double doors = 0.0;
    double windows = 0.0;
};

} // namespace lca
