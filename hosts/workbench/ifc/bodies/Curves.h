// Curves of a file as polylines in metres.
#pragma once

#include "workbench/ifc/bodies/Context.h"
#include "workbench/ifc/geometry/Curve.h"

namespace workbench::bodies {

/// Of any kind of IfcCurve that is bounded or closed; without points, and with a remark, for others.
[[nodiscard]] geometry::Curve ReadCurve(const Context& context, const entities::Entity& curve);

} // namespace workbench::bodies
