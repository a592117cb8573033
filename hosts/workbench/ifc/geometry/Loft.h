// A body between sections that have the same number of points each: what extrusions, revolutions and sweeps have in
// common.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/Body.h"
#include "workbench/ifc/geometry/Profile.h"

namespace workbench::geometry {

/// The outline and the voids of a profile in space.
using Section = std::vector<std::vector<Vector3>>;

[[nodiscard]] Section PlaceSection(const Profile& profile, const Transform& place);

enum class Ends : std::uint8_t {
    Capped, ///< by the first and the last section
    Joined, ///< the last section is followed by the first
};

/// Joins the points of each section to those of the next. Sections may shrink to a line or a point. Empty where
/// sections differ in their number of points.
[[nodiscard]] Body Loft(const std::vector<Section>& sections, Ends ends);

} // namespace workbench::geometry
