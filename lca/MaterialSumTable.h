// GWP sums by layer and building material, in the order in which a run meets them.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace lca {

struct MaterialSum {
    std::int32_t buildingMaterial = 0; ///< attribute index
    double gwp = 0.0;                  ///< kg CO2eq
};

struct LayerSums {
    std::int32_t layer = 0; ///< attribute index
    std::vector<MaterialSum> materials;
};

class MaterialSumTable {
public:
    void Clear();
    /// Adds to the pair of this layer and material; a layer or material met for the first time is appended.
    void Add(std::int32_t layer, std::int32_t buildingMaterial, double gwp);
    const std::vector<LayerSums>& GetLayers() const { return layers; }

private:
    std::size_t FindLayer(std::int32_t layer);
    MaterialSum& FindMaterial(std::size_t layerPosition, std::int32_t buildingMaterial);

    std::vector<LayerSums> layers;
    std::unordered_map<std::int32_t, std::size_t> positionOfLayer;
    std::vector<std::unordered_map<std::int32_t, std::size_t>> positionOfMaterial; ///< parallel to layers
    std::size_t lastLayer = 0; ///< elements of one layer come in runs
};

} // namespace lca
