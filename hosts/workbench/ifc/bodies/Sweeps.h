// Swept solids and primitives of a file as bodies in metres.
#pragma once

#include <optional>

#include "workbench/ifc/bodies/Context.h"
#include "workbench/ifc/geometry/Body.h"

namespace workbench::bodies {

/// An IfcSweptAreaSolid, IfcSweptDiskSolid or IfcCsgPrimitive3D in its own coordinates; nothing for other entities.
/// Empty, with a remark, for kinds and measures that cannot be computed.
[[nodiscard]] std::optional<geometry::Body> ReadSweep(const Context& context, const entities::Entity& item);

} // namespace workbench::bodies
