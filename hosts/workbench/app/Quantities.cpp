#include "workbench/app/Quantities.h"

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

const char* GetTypeName(host::ElementType type) {
    switch (type) {
    case host::ElementType::All:
        break;
    case host::ElementType::Wall:
        return "wall";
    case host::ElementType::Column:
        return "column";
    case host::ElementType::Beam:
        return "beam";
    case host::ElementType::Window:
        return "window";
    case host::ElementType::Door:
        return "door";
    case host::ElementType::Object:
        return "object";
    case host::ElementType::Slab:
        return "slab";
    case host::ElementType::Roof:
        return "roof";
    case host::ElementType::Mesh:
        return "mesh";
    case host::ElementType::CurtainWall:
        return "curtain wall";
    case host::ElementType::Shell:
        return "shell";
    case host::ElementType::Skylight:
        return "skylight";
    case host::ElementType::Morph:
        return "morph";
    case host::ElementType::Stair:
        return "stair";
    case host::ElementType::Railing:
        return "railing";
    }
    return "other";
}

} // namespace workbench
