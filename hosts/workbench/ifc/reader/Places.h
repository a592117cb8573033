// Layer and storey of an element.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "LibraryModel.h"
#include "Units.h"
#include "workbench/ifc/ImportedBuilding.h"

class IfcElement;
class IfcObjectDefinition;
class IfcRepresentation;

namespace workbench::ifc {

class Places {
public:
    /// Puts the storeys, by elevation, into BUILDING; layers are put there as elements ask for them.
    Places(const LibraryModel& model, const UnitFactors& units, ImportedBuilding& building);

    /// Layer of the body, its items or the shape that they are copies of; failing that of any other representation.
    [[nodiscard]] std::size_t LayerOf(const IfcElement& element);

    /// The storey that holds the element, the whole that it is part of, or the space that it stands in.
    [[nodiscard]] std::optional<std::size_t> StoreyOf(const IfcElement& element) const;

private:
    [[nodiscard]] std::optional<std::string> LayerName(const IfcRepresentation& representation, int depth) const;

    const LibraryModel& model;
    ImportedBuilding& building;
    std::map<std::string, std::size_t> layers;
    std::map<const IfcObjectDefinition*, std::size_t> storeys;
};

} // namespace workbench::ifc
