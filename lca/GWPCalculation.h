// Embodied GWP of one material component or opening.
#pragma once

#include "lca/MaterialGWP.h"

#include <cstdint>
#include <string_view>

namespace lca {

/// Declared unit of a material's GWP.
enum class MaterialUnit { CubicMetre, SquareMetre, Kilogram };

/// "m3" (also for an empty text), "m2"; anything else is a mass unit.
MaterialUnit ReadMaterialUnit(std::string_view text);

/// What a run needs of one building material, read once a run.
struct MaterialValues {
    double gwpPerUnit = 0.0; ///< kg CO2eq per unit, over the used modules
    MaterialGWP gwp;         ///< what it is the sum of, used or not
    MaterialUnit unit = MaterialUnit::CubicMetre;
    std::int32_t serviceLifeYears = 0; ///< 0 or less: provided once
    double densityKgM3 = 0.0;
};

/// What a run needs of one element's own LCA values.
struct ElementValues {
    double gwp = 0.0; ///< kg CO2eq, counted for doors and windows only
    bool include = true;
    double percentage = 100.0; ///< share that counts

    double GetShare() const { return percentage / 100.0; }
};

/// How often something of this service life is provided within the period: period / life rounded up; once for a life of
/// 0 or less. A period of 0 provides nothing that has a service life.
std::int64_t CountProvisions(std::uint32_t periodYears, std::int32_t serviceLifeYears);

/// One part of the building's embodied GWP, as a run adds it up.
struct Contribution {
    double quantity = 1.0;                    ///< in the factor's unit; a piece where the GWP is the element's own
    double factor = 0.0;                      ///< kg CO2eq per unit
    const MaterialValues* material = nullptr; ///< that the factor comes from, by module; null for the element's own
    double share = 1.0;
    double provisions = 1.0; ///< how often it is provided within the period, where that does not count by category
    double gwp = 0.0;        ///< kg CO2eq: factor x share x quantity x provisions
};

/// Of a material component.
Contribution ComputeContribution(const MaterialValues& material, double share, double volumeM3, double areaM2,
                                 std::uint32_t periodYears);
/// Of a door or window, which has a GWP of its own.
Contribution ComputeContribution(const ElementValues& own);

} // namespace lca
