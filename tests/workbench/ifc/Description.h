// An imported building as lines of text, for tests to compare and for a person to look at.
#pragma once

#include <string>

#include "workbench/ifc/ImportedBuilding.h"

namespace ifctest {

/// A line for each element with its components, each finding, the floor area, each warning; what is usual is not said.
[[nodiscard]] std::string Describe(const workbench::ifc::ImportedBuilding& building);

} // namespace ifctest
