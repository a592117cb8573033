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

Contribution ComputeContribution(const MaterialValues& material, double share, double volumeM3, double areaM2,
                                 std::uint32_t periodYears) {
    Contribution result;
    result.factor = material.gwpPerUnit;
    result.material = &material;
    result.share = share;
    result.quantity = material.unit == MaterialUnit::SquareMetre ? areaM2 : volumeM3;
    result.gwp = result.factor * result.share * result.quantity;
    if (material.unit == MaterialUnit::Kilogram) {
        result.quantity *= material.densityKgM3;
        result.gwp *= material.densityKgM3;
    }
    result.provisions = static_cast<double>(CountProvisions(periodYears, material.serviceLifeYears));
    result.gwp *= result.provisions;
    return result;
}

Contribution ComputeContribution(const ElementValues& own) {
    Contribution result;
    result.factor = own.gwp;
    result.share = own.GetShare();
    result.gwp = result.share * result.factor;
    return result;
}

} // namespace lca
