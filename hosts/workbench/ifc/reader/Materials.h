// The materials of the file with their densities, and which of them an object is made of.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "MaterialShares.h"
#include "Units.h"
#include "workbench/ifc/ElementRules.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

class Materials {
public:
    Materials(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building)
        : model(model), units(units), building(building), shares(model) {}

    /// The object's own materials, else those of its type, else those of the whole that it is part of; in shares that
    /// the file gives elsewhere, where it gives none with them.
    [[nodiscard]] MaterialUse UseOf(const entities::Entity& object);

    /// Index of the entry for elements without a material.
    [[nodiscard]] std::size_t WithoutMaterial();

    /// Where the file gives no density, the elements' weight is one: of those that are of one material and state weight
    /// and volume.
    void TakeWeight(const MaterialUse& use, const StatedQuantities& stated);
    void DeriveDensities();

private:
    [[nodiscard]] MaterialUse FindUse(const entities::Entity& object);
    void FindShares(const entities::Entity& object, MaterialUse& use);
    [[nodiscard]] std::vector<SharingMaterial> Describe(const MaterialUse& use) const;
    [[nodiscard]] MaterialUse OwnUse(const entities::Entity& definition);
    [[nodiscard]] MaterialUse Read(const entities::Entity& select);
    [[nodiscard]] MaterialUse Single(const entities::Entity& material);
    [[nodiscard]] MaterialUse List(const std::vector<entities::Entity>& materials);
    [[nodiscard]] MaterialUse Layers(const entities::Entity& set);
    [[nodiscard]] MaterialUse Profiles(const entities::Entity& set);
    [[nodiscard]] MaterialUse Constituents(const entities::Entity& set);
    [[nodiscard]] std::size_t IndexOf(const entities::Entity& material);
    [[nodiscard]] std::size_t IndexOfName(const std::string& name);
    [[nodiscard]] std::size_t IndexOfLayer(const entities::Entity& layer);
    [[nodiscard]] std::optional<double> DensityOf(const entities::Entity& material) const;
    [[nodiscard]] std::optional<double> StatedDensity(const entities::Entity& material) const;

    const entities::Model& model;
    const UnitFactors& units;
    ImportedBuilding& building;
    struct Weighed {
        double kg = 0.0;
        double m3 = 0.0;
    };

    MaterialShares shares;
    std::map<std::size_t, Weighed> weighed; ///< by material
    std::map<std::string, std::size_t> byName;
    std::map<entities::Entity, std::size_t> byEntity;
};

} // namespace workbench::ifc
