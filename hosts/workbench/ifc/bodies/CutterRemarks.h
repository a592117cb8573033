// What became of the bodies that cut another one, as sentences.
#pragma once

#include <string>
#include <vector>

#include "workbench/ifc/bodies/Context.h"
#include "workbench/ifc/geometry/Subtraction.h"

namespace workbench::bodies {

/// WHAT begins the sentences: "An opening". Nothing is said of cutters that were used or lie apart.
void RemarkOnCutters(Remarks& remarks, const std::vector<geometry::CutterUse>& uses, const std::string& what);

} // namespace workbench::bodies
