// The materials of the file with their densities, and which of them an object is made of.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "LibraryModel.h"
#include "Units.h"
#include "workbench/ifc/ElementRules.h"

class IfcMaterial;
class IfcMaterialConstituentSet;
class IfcMaterialLayerSet;
class IfcMaterialProfileSet;
class IfcMaterialSelect;
class IfcObject;
class IfcObjectDefinition;

namespace workbench::ifc {

class Materials {
public:
    Materials(const LibraryModel& model, const UnitFactors& units, ImportedBuilding& building);

    /// The object's own materials, else those of its type, else those of the whole that it is part of.
    [[nodiscard]] MaterialUse UseOf(const IfcObject& object);

    /// Index of the entry for elements without a material.
    [[nodiscard]] std::size_t WithoutMaterial();

private:
    [[nodiscard]] MaterialUse OwnUse(const IfcObjectDefinition& definition);
    [[nodiscard]] MaterialUse Read(const std::shared_ptr<IfcMaterialSelect>& select);
    [[nodiscard]] MaterialUse Single(const std::shared_ptr<IfcMaterial>& material);
    [[nodiscard]] MaterialUse List(const std::vector<std::shared_ptr<IfcMaterial>>& materials);
    [[nodiscard]] MaterialUse Layers(const std::shared_ptr<IfcMaterialLayerSet>& set);
    [[nodiscard]] MaterialUse Profiles(const std::shared_ptr<IfcMaterialProfileSet>& set);
    [[nodiscard]] MaterialUse Constituents(const IfcMaterialConstituentSet& set);
    [[nodiscard]] std::size_t IndexOf(const std::shared_ptr<IfcMaterial>& material);
    [[nodiscard]] std::optional<double> DensityOf(const IfcMaterial& material) const;

    const LibraryModel& model;
    const UnitFactors& units;
    ImportedBuilding& building;
    std::map<std::string, std::size_t> byName;
    std::map<const IfcMaterial*, std::size_t> byEntity;
    std::map<int, double> oldDensities; ///< by entity number, kg/m3
};

} // namespace workbench::ifc
