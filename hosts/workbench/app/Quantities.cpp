#include "workbench/app/Quantities.h"

#include "workbench/app/Text.h"
#include "workbench/model/NewProject.h"
#include "workbench/text/Letters.h"

namespace workbench {

std::vector<MaterialQuantity> SumMaterialQuantities(const Model& model) {
    std::vector<MaterialQuantity> sums(model.GetBuildingMaterials().size());
    for (const Element& element : model.GetElements())
        for (const host::MaterialComponent& component : model.GetComponents(element)) {
            MaterialQuantity& sum = sums[static_cast<std::size_t>(component.buildingMaterial.value - 1)];
            ++sum.components;
            sum.volumeM3 += component.volumeM3;
            sum.areaM2 += component.areaM2;
            sum.withoutVolume += component.volumeM3 == 0.0 && component.areaM2 != 0.0 ? 1 : 0;
            sum.withoutArea += component.areaM2 == 0.0 && component.volumeM3 != 0.0 ? 1 : 0;
        }
    return sums;
}

bool IsOpening(const Element& element) {
    return element.type == host::ElementType::Door || element.type == host::ElementType::Window;
}

double SumVolumeM3(const Model& model, const Element& element) {
    double sumM3 = 0.0;
    for (const host::MaterialComponent& component : model.GetComponents(element))
        sumM3 += component.volumeM3;
    return sumM3;
}

double SumVolumeM3(const Model& model) {
    double sumM3 = 0.0;
    for (const Element& element : model.GetElements())
        sumM3 += SumVolumeM3(model, element);
    return sumM3;
}

std::string FormatShare(double partM3, double totalM3) {
    constexpr double Least = 0.05;
    if (partM3 <= 0.0 || totalM3 <= 0.0) return {};
    const double percent = 100.0 * partM3 / totalM3;
    return percent < Least ? "under 0.1 %" : FormatShort(percent, 1) + " %";
}

std::string GetTypeName(host::ElementType type) {
    const char* name = FindElementKindName(type);
    return name == nullptr ? "other" : ToLowerCase(name);
}

} // namespace workbench
