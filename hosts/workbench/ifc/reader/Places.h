// Layer and storey of an element.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "Units.h"
#include "workbench/ifc/ImportedBuilding.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

class Places {
public:
    /// Puts the storeys, by elevation, into BUILDING, and behind them the parts of roads, bridges and the like, which
    /// have none; layers are put there as elements ask for them.
    Places(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building);

    /// Layer of the body, its items or the shape that they are copies of; failing that of any other representation.
    [[nodiscard]] std::size_t LayerOf(const entities::Entity& element);

    /// The storey that holds the element, the whole that it is part of, or the space that it stands in.
    [[nodiscard]] std::optional<std::size_t> StoreyOf(const entities::Entity& element) const;

private:
    void PutStoreys(const UnitFactors& units);
    void PutStorey(const entities::Entity& storey, double elevationM);
    [[nodiscard]] std::optional<std::string> FindLayer(const entities::Entity& element) const;
    [[nodiscard]] std::optional<std::string> LayerName(const entities::Entity& representation, int depth) const;
    [[nodiscard]] std::optional<std::string> OwnLayerName(const entities::Entity& item) const;
    [[nodiscard]] entities::Entity HolderOf(const entities::Entity& object) const;

    const entities::Model& model;
    ImportedBuilding& building;
    std::map<std::string, std::size_t> layers;
    std::map<entities::Entity, std::size_t> storeys;
};

} // namespace workbench::ifc
