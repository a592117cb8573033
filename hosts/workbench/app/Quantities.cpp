#include "workbench/app/Quantities.h"

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

std::string GetTypeName(host::ElementType type) {
    const char* name = FindElementKindName(type);
    return name == nullptr ? "other" : ToLowerCase(name);
}

} // namespace workbench
