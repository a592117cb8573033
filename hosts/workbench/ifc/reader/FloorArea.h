// The building's floor area, as the file states it.
#pragma once

#include "Units.h"
#include "workbench/ifc/ImportedBuilding.h"
#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

/// Sets the gross floor area: that of the buildings, failing that the sum over the spaces, gross before net.
void ReadFloorArea(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building);

} // namespace workbench::ifc
