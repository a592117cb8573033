// Half spaces as bodies that reach beyond whatever they are combined with.
#pragma once

#include "workbench/ifc/geometry/Boolean.h"
#include "workbench/ifc/geometry/Profile.h"

namespace workbench::geometry {

/// What lies behind SURFACE (against its normal), as far as AROUND reaches and beyond.
[[nodiscard]] Body HalfSpace(const Plane& surface, const Box& around);

/// The part of that which lies within BOUNDARY, a loop in the xy plane of POSITION, extended along POSITION's z both
/// ways. The surface may also be parallel to that z. GivenUp where the two cannot be combined.
[[nodiscard]] Body BoundedHalfSpace(const Plane& surface, const Transform& position, const Loop& boundary,
                                    const Box& around, const BooleanLimits& limits = {});

} // namespace workbench::geometry
