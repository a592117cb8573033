// Makes a body of the faces that a file holds, whatever their directions, gaps and doubles.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/Body.h"

namespace workbench::geometry {

/// In this order: welds points within 0.01 mm and drops faces that collapse; turns inner bounds against their outer
/// one; splits T-junctions; drops faces that lie within the body (all edges met three, five ... times); turns faces to
/// one direction; closes small or flat gaps; else looks for a plate. Each connected part becomes a solid that looks
/// outward, flat ones are dropped. A body of nothing but flat parts is an open surface. Indices beyond SHELL's points
/// drop the face.
[[nodiscard]] Body MakeBody(const Shell& shell);

/// CAVITIES are taken out of the solid in whose box they lie. One that is not closed, or lies nowhere, is not used.
[[nodiscard]] Body MakeBodyWithCavities(const Shell& outer, const std::vector<Shell>& cavities);

} // namespace workbench::geometry
