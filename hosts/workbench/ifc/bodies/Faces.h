// Faces of a file: breps, surface models and face sets as shells in metres.
#pragma once

#include <optional>

#include "workbench/ifc/bodies/Context.h"
#include "workbench/ifc/geometry/Body.h"

namespace workbench::bodies {

/// An IfcManifoldSolidBrep, surface model, connected face set or tessellated face set as a body; nothing for other
/// entities. Empty, with a remark, where a face is curved.
[[nodiscard]] std::optional<geometry::Body> ReadFaces(const Context& context, const entities::Entity& item);

} // namespace workbench::bodies
