// GWP sums by layer and building material, in the order in which a run meets them.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace lca {

/// Attribute indices of the host.
struct LayerIndex {
    std::int32_t value = 0;
};
struct BuildingMaterialIndex {
    std::int32_t value = 0;
};

struct MaterialSum {
    BuildingMaterialIndex buildingMaterial;
    double gwp = 0.0; ///< kg CO2eq
};

struct LayerSums {
    LayerIndex layer;
    std::vector<MaterialSum> materials;
};

class MaterialSumTable {
public:
    void Clear();
    /// Adds to the pair of this layer and material; a layer or material met for the first time is appended.
    void Add(LayerIndex layer, BuildingMaterialIndex buildingMaterial, double gwp);
    const std::vector<LayerSums>& GetLayers() const { return layers; }

private:
    std::size_t FindLayer(LayerIndex layer);
    MaterialSum& FindMaterial(std::size_t layerPosition, BuildingMaterialIndex buildingMaterial);

    std::vector<LayerSums> layers;
    std::unordered_map<std::int32_t, std::size_t> positionOfLayer;
    std::vector<std::unordered_map<std::int32_t, std::size_t>> positionOfMaterial; ///< parallel to layers
    std::size_t lastLayer = 0; ///< elements of one layer come in runs
};

} // namespace lca
