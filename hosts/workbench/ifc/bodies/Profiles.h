// Profiles of a file in metres.
#pragma once

#include <vector>

#include "workbench/ifc/bodies/Context.h"
#include "workbench/ifc/geometry/Profile.h"

namespace workbench::bodies {

/// Any kind of IfcProfileDef that has an area; several for one that is composed. None, and a remark, for others and for
/// those whose measures do not fit together.
[[nodiscard]] std::vector<geometry::Profile> ReadProfiles(const Context& context, const entities::Entity& profile);

} // namespace workbench::bodies
