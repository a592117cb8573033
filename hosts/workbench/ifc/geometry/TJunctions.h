// Makes faces meet that run along the same line but have not the same points on it.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

/// Splits each edge that an odd number of faces runs along at the end points of other such edges that lie on it, within
/// 0.03 mm; three times over, as a split may make the next possible. Time grows with the number of such edges; of a
/// shell that would need more than some ten million looks the rest is left as it is.
void SplitTJunctions(const std::vector<Vector3>& points, std::vector<Face>& faces);

} // namespace workbench::geometry
