// The building's floor area, as the file states it.
#pragma once

#include "Units.h"
#include "workbench/ifc/ImportedBuilding.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

/// Sets the gross floor area and where it comes from: the buildings' own, else that of the storeys, gross, else that of
/// the spaces if one is gross, else that of the storeys, net, else that of the spaces as far as they say. Outdoor
/// spaces, parts of storeys and spaces that are counted with their whole, and planned areas never count.
void ReadFloorArea(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building);

} // namespace workbench::ifc
