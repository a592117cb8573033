#include "workbench/ifc/ElementRules.h"

#include <algorithm>
#include <cmath>

namespace workbench::ifc {
namespace {

constexpr double LargestQuantity = 1e7;
constexpr double SmallestVolumeM3 = 1e-12;

struct Sourced {
    double value = 0.0;
    QuantitySource source = QuantitySource::None;
};

Sourced NetBeforeGross(const std::optional<double>& net, const std::optional<double>& gross) {
    if (net) return {*net, QuantitySource::StatedNet};
    if (gross) return {*gross, QuantitySource::StatedGross};
    return {};
}

Sourced AreaStated(AreaRule rule, const StatedQuantities& stated) {
    switch (rule) {
    case AreaRule::Side:
        return NetBeforeGross(stated.netSideAreaM2, stated.grossSideAreaM2);
    case AreaRule::Plan:
        return NetBeforeGross(stated.netAreaM2, stated.grossAreaM2);
    case AreaRule::None:
        break;
    }
    return {};
}

Sourced MeshVolume(const MeshQuantities& meshes, double totalThicknessM) {
    if (meshes.closedVolumeM3 > SmallestVolumeM3) return {meshes.closedVolumeM3, QuantitySource::Geometry};
    const double shell = meshes.openSurfaceM2 * totalThicknessM;
    if (shell > SmallestVolumeM3) return {shell, QuantitySource::ShellThickness};
    return {};
}

Sourced ComputedArea(const ImportedElement& element, const std::optional<MeshQuantities>& meshes,
                     double totalThicknessM) {
    if (element.volumeM3 > 0.0 && totalThicknessM > 0.0) {
        return {element.volumeM3 / totalThicknessM, QuantitySource::LayerThickness};
    }
    const double surface = meshes ? meshes->closedSurfaceM2 + meshes->openSurfaceM2 : 0.0;
    return surface > 0.0 ? Sourced{surface / 2.0, QuantitySource::Geometry} : Sourced{};
}

} // namespace

std::optional<double> StatedVolume(const StatedQuantities& stated) {
    return stated.netVolumeM3 ? stated.netVolumeM3 : stated.grossVolumeM3;
}

std::optional<double> StatedArea(AreaRule rule, const StatedQuantities& stated) {
    const Sourced area = AreaStated(rule, stated);
    return area.source == QuantitySource::None ? std::nullopt : std::optional(area.value);
}

std::optional<double> PlausibleQuantity(double value) {
    return std::isfinite(value) && value > 0.0 && value <= LargestQuantity ? std::optional(value) : std::nullopt;
}

double TotalThicknessM(const MaterialUse& use) {
    double total = 0.0;
    if (use.form != MaterialForm::Layers) return total;
    for (const MaterialShare& share : use.shares)
        total += std::max(0.0, share.thicknessM);
    return total;
}

bool SetQuantities(ImportedElement& element, AreaRule rule, const StatedQuantities& stated,
                   const std::optional<MeshQuantities>& meshes, double totalThicknessM) {
    const Sourced computed = meshes ? MeshVolume(*meshes, totalThicknessM) : Sourced{};
    Sourced said = NetBeforeGross(stated.netVolumeM3, stated.grossVolumeM3);
    if (said.source == QuantitySource::None && computed.source == QuantitySource::None)
        said = NetBeforeGross(stated.roundedVolumeM3, std::nullopt);
    if (said.source != QuantitySource::None) element.statedVolumeM3 = said.value;
    if (computed.source != QuantitySource::None) element.geometryVolumeM3 = computed.value;

    const bool comparable = said.value > 0.0 && computed.source == QuantitySource::Geometry;
    const bool corrected =
        comparable && (said.value > MostOff * computed.value || computed.value > MostOff * said.value);
    const Sourced volume = said.source != QuantitySource::None && !corrected ? said : computed;
    element.volumeM3 = volume.value;
    element.volumeSource = volume.source;

    Sourced area = corrected ? Sourced{} : AreaStated(rule, stated);
    if (area.source == QuantitySource::None) area = ComputedArea(element, meshes, totalThicknessM);
    element.areaM2 = area.value;
    element.areaSource = area.source;
    return corrected;
}

std::vector<ImportedComponent> SplitByMaterial(const MaterialUse& use, double volumeM3, double areaM2) {
    const bool layered = use.form == MaterialForm::Layers;
    const bool byFraction = use.form == MaterialForm::Constituents &&
                            std::all_of(use.shares.begin(), use.shares.end(), [](const MaterialShare& share) {
                                return share.fraction && std::isfinite(*share.fraction) && *share.fraction >= 0.0;
                            });
    const auto weight = [&](const MaterialShare& share) {
        return layered ? std::max(0.0, share.thicknessM) : byFraction ? *share.fraction : 1.0;
    };
    double total = 0.0;
    for (const MaterialShare& share : use.shares)
        total += weight(share);

    std::vector<ImportedComponent> components;
    for (const MaterialShare& share : use.shares) {
        const double part = total > 0.0 ? weight(share) / total : 0.0;
        if (part <= 0.0) continue;
        components.push_back({share.material, volumeM3 * part, layered ? areaM2 : areaM2 * part});
        if (layered) components.back().thicknessM = share.thicknessM;
    }
    return components;
}

} // namespace workbench::ifc
