// Options that place a report object: where in which window.
#pragma once

#include "workbench/cli/Outcome.h"
#include "workbench/host/WorkbenchHost.h"

#include <string>

namespace workbench::cli {

/// "X,Y" in metres with decimal points; option is its name in the sentence of a failure.
Outcome ParsePoint(const std::string& option, const std::string& text, host::Point& point);

/// A place, where one is given, must be well-formed and the changed project be saved somewhere.
Outcome CheckPlacing(const std::string& option, const std::string& place, const std::string& save);

/// The database of this name; empty is the floor plan. option is its name in the sentence of a failure.
Outcome FindDatabase(const Model& model, const std::string& option, const std::string& name, host::Database& database);

/// Brings the window of the database of this name to the front; empty is the floor plan, "3D" the 3D model.
Outcome OpenWindow(WorkbenchHost& host, const std::string& name);

} // namespace workbench::cli
