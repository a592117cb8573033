// The shares of an element's materials where the file lists them without fractions or thicknesses: it may say them
// elsewhere.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

/// One of the materials that share an element.
struct SharingMaterial {
    std::string name;
    std::string constituent; ///< the name of its part of the element, where it has one
};

struct FoundWeights {
    std::vector<double> values; ///< volumes or widths in the order of the materials, > 0, all of them or none
    std::string origin{};       ///< in plain English
};

struct FoundLayerSet {
    entities::Entity set; ///< none where there is none
    std::string origin{}; ///< in plain English
};

class MaterialShares {
public:
    explicit MaterialShares(const entities::Model& model) : model(model) {}

    /// By the element's own quantities: complex ones that are called as the materials, with a volume or a width; for
    /// constituents also widths under the constituents' names.
    [[nodiscard]] FoundWeights FindWeights(const entities::Entity& element,
                                           const std::vector<SharingMaterial>& materials) const;

    /// A layer set with just these materials: of the element's type, of another element of this type or of the same
    /// object type text, or one that is called as the type.
    [[nodiscard]] FoundLayerSet FindLayerSet(const entities::Entity& element,
                                             const std::vector<SharingMaterial>& materials);

private:
    using LayerSets = std::vector<entities::Entity>;

    void IndexLayerSets();

    const entities::Model& model;
    bool isIndexed = false;
    std::map<entities::Entity, LayerSets> byType;
    std::map<std::string, LayerSets> byObjectType;
    std::map<std::string, LayerSets> byName;
};

} // namespace workbench::ifc
