#include "lca/MaterialSumTable.h"

namespace lca {

void MaterialSumTable::Clear() {
    layers.clear();
    positionOfLayer.clear();
    positionOfMaterial.clear();
    lastLayer = 0;
}

void MaterialSumTable::Add(LayerIndex layer, BuildingMaterialIndex buildingMaterial, double gwp) {
    FindMaterial(FindLayer(layer), buildingMaterial).gwp += gwp;
}

std::size_t MaterialSumTable::FindLayer(LayerIndex layer) {
    if (lastLayer < layers.size() && layers[lastLayer].layer.value == layer.value) return lastLayer;
    const auto [entry, isNew] = positionOfLayer.try_emplace(layer.value, layers.size());
    if (isNew) {
        layers.push_back({layer, {}});
        positionOfMaterial.emplace_back();
    }
    lastLayer = entry->second;
    return lastLayer;
}

MaterialSum& MaterialSumTable::FindMaterial(std::size_t layerPosition, BuildingMaterialIndex buildingMaterial) {
    std::vector<MaterialSum>& materials = layers[layerPosition].materials;
    const auto [entry, isNew] = positionOfMaterial[layerPosition].try_emplace(buildingMaterial.value, materials.size());
    if (isNew) materials.push_back({buildingMaterial, 0.0});
    return materials[entry->second];
}

} // namespace lca
