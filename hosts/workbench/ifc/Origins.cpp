#include "workbench/ifc/Origins.h"

#include <algorithm>

namespace workbench::ifc {
namespace {

bool IsOpening(const ImportedElement& element) {
    return element.kind == ElementKind::Door || element.kind == ElementKind::Window;
}

bool HasSideArea(const ImportedElement& element) {
    return element.kind == ElementKind::Wall || element.kind == ElementKind::CurtainWall;
}

std::string DescribeVolume(const ImportedElement& element) {
    switch (element.volumeSource) {
    case QuantitySource::StatedNet:
        return "stated: NetVolume";
    case QuantitySource::StatedGross:
        return "stated: GrossVolume";
    case QuantitySource::Geometry:
        return element.statedVolumeM3 ? "computed: closed body; the stated volume does not fit it"
                                      : "computed: closed body";
    case QuantitySource::ShellThickness:
        return "computed: open shell, its area x thickness of the layers";
    case QuantitySource::LayerThickness:
    case QuantitySource::None:
        break;
    }
    return {};
}

std::string DescribeArea(const ImportedElement& element) {
    const std::string name = HasSideArea(element) ? "SideArea" : "Area";
    switch (element.areaSource) {
    case QuantitySource::StatedNet:
        return "stated: Net" + name;
    case QuantitySource::StatedGross:
        return IsOpening(element) ? "stated: overall width x height" : "stated: Gross" + name;
    case QuantitySource::Geometry:
        return "computed: half the surface";
    case QuantitySource::LayerThickness:
        return "computed: volume / thickness of the layers";
    case QuantitySource::ShellThickness:
    case QuantitySource::None:
        break;
    }
    return {};
}

bool AreLayers(const std::vector<ImportedComponent>& components) {
    return std::any_of(components.begin(), components.end(),
                       [](const ImportedComponent& component) { return component.thicknessM > 0.0; });
}

/// A list says no more than what there is; so do constituents without fractions.
bool AreEqual(const std::vector<ImportedComponent>& components) {
    return std::all_of(components.begin(), components.end(), [&](const ImportedComponent& component) {
        return component.volumeM3 == components.front().volumeM3 && component.areaM2 == components.front().areaM2;
    });
}

std::string DescribeShares(const ImportedElement& element) {
    if (element.components.empty()) return {};
    if (AreLayers(element.components)) return "layers by thickness";
    if (element.components.size() == 1) return "one material";
    return AreEqual(element.components) ? "equal shares; the model gives none" : "constituents by fraction";
}

} // namespace

void DescribeOrigins(ImportedBuilding& building) {
    for (ImportedMaterial& material : building.materials)
        if (material.densityKgPerM3) material.densityOrigin = "stated: MassDensity";
    for (ImportedElement& element : building.elements) {
        element.volumeOrigin = DescribeVolume(element);
        element.areaOrigin = DescribeArea(element);
        element.sharesOrigin = DescribeShares(element);
    }
}

} // namespace workbench::ifc
