#include "lca/GWPCalculation.h"

namespace lca {

MaterialUnit ReadMaterialUnit(std::string_view text) {
    if (text.empty() || text == "m3") return MaterialUnit::CubicMetre;
    return text == "m2" ? MaterialUnit::SquareMetre : MaterialUnit::Kilogram;
}

std::int64_t CountProvisions(std::uint32_t periodYears, std::int32_t serviceLifeYears) {
    if (serviceLifeYears <= 0) return 1;
    const std::int64_t period = periodYears;
    return period / serviceLifeYears + (period % serviceLifeYears > 0 ? 1 : 0);
}

double ComputeComponentGWP(const MaterialValues& material, double share, double volumeM3, double areaM2,
                           std::uint32_t periodYears) {
    double gwp = material.gwpPerUnit * share;
    switch (material.unit) {
    case MaterialUnit::CubicMetre:
        gwp *= volumeM3;
        break;
    case MaterialUnit::SquareMetre:
        gwp *= areaM2;
        break;
    case MaterialUnit::Kilogram:
        gwp = gwp * volumeM3 * material.densityKgM3;
        break;
    }
    if (material.serviceLifeYears > 0)
        gwp *= static_cast<double>(CountProvisions(periodYears, material.serviceLifeYears));
    return gwp;
}

} // namespace lca
