#include "workbench/ifc/ElementRules.h"

#include <algorithm>
#include <cmath>

#include "workbench/ifc/Origins.h"

namespace workbench::ifc {
namespace {

constexpr double LargestQuantity = 1e7;
constexpr double SmallestVolumeM3 = 1e-12;

struct Sourced {
    double value = 0.0;
    QuantitySource source = QuantitySource::None;
    std::string origin;
};

bool IsKnown(const Sourced& quantity) {
    return quantity.source != QuantitySource::None;
}

Sourced NetBeforeGross(const std::optional<StatedQuantity>& net, const std::optional<StatedQuantity>& gross) {
    if (net) return {net->value, QuantitySource::StatedNet, OriginBeginnings::Stated + net->name};
    if (gross) return {gross->value, QuantitySource::StatedGross, OriginBeginnings::Stated + gross->name};
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

Sourced MeshVolume(const MeshQuantities& meshes, const Thickness& thickness) {
    if (meshes.closedVolumeM3 > SmallestVolumeM3)
        return {meshes.closedVolumeM3, QuantitySource::Geometry, OriginBeginnings::Computed + meshes.method};
    const double shell = meshes.openSurfaceM2 * thickness.valueM;
    if (shell > SmallestVolumeM3)
        return {shell, QuantitySource::ShellThickness,
                std::string(OriginBeginnings::OpenShell) + ", its area x " + thickness.name};
    return {};
}

Sourced ComputedArea(const ImportedElement& element, const std::optional<MeshQuantities>& meshes,
                     const Thickness& thickness) {
    if (element.volumeM3 > 0.0 && thickness.valueM > 0.0)
        return {element.volumeM3 / thickness.valueM, QuantitySource::LayerThickness,
                std::string(OriginBeginnings::Computed) + "volume / " + thickness.name};
    const double surface = meshes ? meshes->closedSurfaceM2 + meshes->openSurfaceM2 : 0.0;
    if (surface <= 0.0) return {};
    return {surface / 2.0, QuantitySource::Geometry, std::string(OriginBeginnings::Computed) + "half the surface"};
}

double TotalThicknessM(const MaterialUse& use) {
    double total = 0.0;
    if (use.form != MaterialForm::Layers) return total;
    for (const MaterialShare& share : use.shares)
        total += std::max(0.0, share.thicknessM);
    return total;
}

void SetVolume(ImportedElement& element, const Sourced& volume) {
    element.volumeM3 = volume.value;
    element.volumeSource = volume.source;
    element.volumeOrigin = volume.origin;
}

void SetArea(ImportedElement& element, const Sourced& area) {
    element.areaM2 = area.value;
    element.areaSource = area.source;
    element.areaOrigin = area.origin;
}

} // namespace

std::optional<StatedQuantity> StatedVolume(const StatedQuantities& stated) {
    return stated.netVolumeM3 ? stated.netVolumeM3 : stated.grossVolumeM3;
}

bool HasStatedArea(AreaRule rule, const StatedQuantities& stated) {
    return IsKnown(AreaStated(rule, stated));
}

std::optional<double> PlausibleQuantity(double value) {
    return std::isfinite(value) && value > 0.0 && value <= LargestQuantity ? std::optional(value) : std::nullopt;
}

VolumeCheck CheckByUncut(double statedM3, double uncutM3) {
    const bool isWithin = statedM3 >= LeastLeft * uncutM3 && statedM3 <= MostOff * uncutM3;
    return isWithin ? VolumeCheck::Passed : VolumeCheck::Open;
}

Thickness ThicknessOf(const StatedQuantities& stated, const MaterialUse& use) {
    const double layersM = TotalThicknessM(use);
    if (layersM > 0.0 || !stated.thicknessM) return {layersM};
    return {stated.thicknessM->value, stated.thicknessM->name};
}

bool SetQuantities(ImportedElement& element, AreaRule rule, const StatedQuantities& stated,
                   const std::optional<MeshQuantities>& meshes, const Thickness& thickness, VolumeCheck check) {
    Sourced computed = meshes ? MeshVolume(*meshes, thickness) : Sourced{};
    Sourced said = NetBeforeGross(stated.netVolumeM3, stated.grossVolumeM3);
    if (!IsKnown(said) && !IsKnown(computed)) said = NetBeforeGross(stated.roundedVolumeM3, std::nullopt);
    if (IsKnown(said)) element.statedVolumeM3 = said.value;
    if (IsKnown(computed)) element.geometryVolumeM3 = computed.value;

    const bool comparable =
        check == VolumeCheck::Open && said.value > 0.0 && computed.source == QuantitySource::Geometry;
    const bool corrected =
        comparable && (said.value > MostOff * computed.value || computed.value > MostOff * said.value);
    if (corrected) computed.origin += "; the stated volume does not fit it";
    SetVolume(element, IsKnown(said) && !corrected ? said : computed);

    const Sourced area = corrected ? Sourced{} : AreaStated(rule, stated);
    SetArea(element, IsKnown(area) ? area : ComputedArea(element, meshes, thickness));
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
