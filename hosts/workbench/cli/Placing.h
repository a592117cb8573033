// Options that place a report object on the floor plan.
#pragma once

#include "host/Values.h"
#include "workbench/cli/Outcome.h"

#include <string>

namespace workbench::cli {

/// "X,Y" in metres with decimal points; option is its name in the sentence of a failure.
Outcome ParsePoint(const std::string& option, const std::string& text, host::Point& point);

/// A place, where one is given, must be well-formed and the changed project be saved somewhere.
Outcome CheckPlacing(const std::string& option, const std::string& place, const std::string& save);

} // namespace workbench::cli
