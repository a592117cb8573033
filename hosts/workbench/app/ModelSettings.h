// Writes what the user states into the open project, as a person would in the host's own dialogs:
// material values, element values and the record's stored values, each as one undoable command.
#pragma once

#include "workbench/app/ElementSettings.h"
#include "workbench/app/Findings.h"
#include "workbench/app/MaterialTable.h"
#include "workbench/app/RecordSettings.h"
#include "workbench/app/Session.h"

namespace workbench {

/// The rows' values go to the building materials, doors and windows that they match.
Outcome ApplyMaterialTable(Session& session, const MaterialTable& table);

/// The first setting of an element that the model does not have, to be asked before anything is written; null where
/// there is none.
const ElementSetting* FindMissingElement(const Model& model, const std::vector<ElementSetting>& settings);
Outcome ApplyElementSettings(Session& session, const std::vector<ElementSetting>& settings);

/// A floor area that the model states.
struct StatedFloorArea {
    double areaM2 = 0.0;
    std::string source; ///< as people read it
};

/// The stated area becomes the gross and the reference floor area where neither the settings nor the project give one;
/// the value is a sentence for each.
Result<std::vector<std::string>> ApplyRecordSettings(Session& session, const RecordSettings& settings,
                                                     const std::optional<StatedFloorArea>& stated);

/// Materials with a quantity and without GWP, kg materials without density, materials whose components lack the
/// quantity of their unit, doors and windows without GWP.
std::vector<Finding> ListMissingValues(const Model& model);

} // namespace workbench
