#include "lca/MaterialSumTable.h"

namespace lca {

void MaterialSumTable::Clear() {
    layers.clear();
    positionOfLayer.clear();
    positionOfMaterial.clear();
    lastLayer = 0;
}

void MaterialSumTable::Add(std::int32_t layer, std::int32_t buildingMaterial, double gwp) {
    FindMaterial(FindLayer(layer), buildingMaterial).gwp += gwp;
}

std::size_t MaterialSumTable::FindLayer(std::int32_t layer) {
    if (lastLayer < layers.size() && layers[lastLayer].layer == layer) return lastLayer;
    const auto [entry, isNew] = positionOfLayer.try_emplace(layer, layers.size());
    if (isNew) {
        layers.push_back({layer, {}});
        positionOfMaterial.emplace_back();
    }
    lastLayer = entry->second;
    return lastLayer;
}

MaterialSum& MaterialSumTable::FindMaterial(std::size_t layerPosition, std::int32_t buildingMaterial) {
    std::vector<MaterialSum>& materials = layers[layerPosition].materials;
    const auto [entry, isNew] = positionOfMaterial[layerPosition].try_emplace(buildingMaterial, materials.size());
    if (isNew) materials.push_back({buildingMaterial, 0.0});
    return materials[entry->second];
}

} // namespace lca
