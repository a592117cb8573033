// Writes what the user states into the open project, as a person would in the host's own dialogs:
// material values, element values and the record's stored values, each as one undoable command.
#pragma once

#include "workbench/app/ElementSettings.h"
#include "workbench/app/MaterialTable.h"
#include "workbench/app/Outcome.h"
#include "workbench/app/RecordSettings.h"
#include "workbench/host/WorkbenchHost.h"

namespace workbench {

/// Why the open project answered this code to a write.
Failure DescribeWriteRefusal(host::ErrorCode code, const Project& project);

/// The rows' values go to the building materials, doors and windows that they match.
Outcome ApplyMaterialTable(WorkbenchHost& host, const MaterialTable& table);

/// A usage error where the model has no such element; asked before anything is written.
Outcome CheckElementSettings(const Model& model, const std::vector<ElementSetting>& settings);
Outcome ApplyElementSettings(WorkbenchHost& host, const std::vector<ElementSetting>& settings);

/// floorAreaM2 is offered by the model; it becomes the gross and the reference floor area where neither the settings
/// nor the project give one. notes gets a sentence when it does.
Outcome ApplyRecordSettings(WorkbenchHost& host, const RecordSettings& settings, std::optional<double> floorAreaM2,
                            const std::string& floorAreaSource, std::vector<std::string>& notes);

/// Materials with a quantity and without GWP, kg materials without density, materials whose components lack the
/// quantity of their unit, doors and windows without GWP: one sentence each.
std::vector<std::string> ListMissingValues(const Model& model);

} // namespace workbench
