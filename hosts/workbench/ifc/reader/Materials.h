// The materials of the file with their densities, and which of them an object is made of.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Units.h"
#include "workbench/ifc/ElementRules.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

class Materials {
public:
    Materials(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building)
        : model(model), units(units), building(building) {}

    /// The object's own materials, else those of its type, else those of the whole that it is part of.
    [[nodiscard]] MaterialUse UseOf(const entities::Entity& object);

    /// Index of the entry for elements without a material.
    [[nodiscard]] std::size_t WithoutMaterial();

private:
    [[nodiscard]] MaterialUse OwnUse(const entities::Entity& definition);
    [[nodiscard]] MaterialUse Read(const entities::Entity& select);
    [[nodiscard]] MaterialUse Single(const entities::Entity& material);
    [[nodiscard]] MaterialUse List(const std::vector<entities::Entity>& materials);
    [[nodiscard]] MaterialUse Layers(const entities::Entity& set);
    [[nodiscard]] MaterialUse Profiles(const entities::Entity& set);
    [[nodiscard]] MaterialUse Constituents(const entities::Entity& set);
    [[nodiscard]] std::size_t IndexOf(const entities::Entity& material);
    [[nodiscard]] std::optional<double> DensityOf(const entities::Entity& material) const;
    [[nodiscard]] std::optional<double> StatedDensity(const entities::Entity& material) const;

    const entities::Model& model;
    const UnitFactors& units;
    ImportedBuilding& building;
    std::map<std::string, std::size_t> byName;
    std::map<entities::Entity, std::size_t> byEntity;
};

} // namespace workbench::ifc
