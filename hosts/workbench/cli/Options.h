// Options that several commands have, with what they stand for in the opened model. Their failures name the option.
#pragma once

#include "workbench/app/EnergyTransfer.h"
#include "workbench/app/Membership.h"
#include "workbench/app/OpenedModel.h"

#include <optional>
#include <string>

namespace workbench::cli {

/// Where --save is given, it must name a project file.
Outcome CheckSave(const std::string& save);

/// "X,Y" in metres with decimal points, none for an empty text; a place needs a file in which to save the project.
Result<std::optional<host::Point>> ParsePlace(const std::string& option, const std::string& place,
                                              const std::string& save);

/// The database of this name; empty is the floor plan.
Result<host::Database> FindDatabase(const Model& model, const std::string& option, const std::string& name);

/// --window: brings the window of the database of this name to the front; empty is the floor plan, "3D" the 3D model.
Outcome OpenWindow(WorkbenchHost& host, const std::string& name);

/// --as: starts the model as the member of this login; empty is nobody.
Outcome StartAs(OpenedModel& model, const std::string& login, Purpose purpose);

/// --target: exports the file to the target of this menu text; empty is the only one.
Result<EnergyTransfer> SendEnergyData(Session& session, const std::string& file, const std::string& target);

} // namespace workbench::cli
