// Options that change the project: where in which window a report object is placed, and the file that keeps it.
#pragma once

#include "workbench/app/Outcome.h"
#include "workbench/host/WorkbenchHost.h"

#include <string>

namespace workbench::cli {

/// Where --save is given, it must name a project file.
Outcome CheckSave(const std::string& save);

/// "X,Y" in metres with decimal points; option is its name in the sentence of a failure.
Outcome ParsePoint(const std::string& option, const std::string& text, host::Point& point);

/// A place, where one is given, must be well-formed and the changed project be saved somewhere.
Outcome CheckPlacing(const std::string& option, const std::string& place, const std::string& save);

/// The database of this name; empty is the floor plan. option is its name in the sentence of a failure.
Outcome FindDatabase(const Model& model, const std::string& option, const std::string& name, host::Database& database);

/// Brings the window of the database of this name to the front; empty is the floor plan, "3D" the 3D model.
Outcome OpenWindow(WorkbenchHost& host, const std::string& name);

} // namespace workbench::cli
