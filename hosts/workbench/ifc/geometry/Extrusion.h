// Bodies that a profile in the xy plane makes by moving or turning.
#pragma once

#include "workbench/ifc/geometry/Body.h"
#include "workbench/ifc/geometry/Profile.h"

namespace workbench::geometry {

/// Along DIRECTION (any length) over DEPTHM; the volume is exact where the profile's area is. Empty where the profile
/// has no area or the direction lies in its plane.
[[nodiscard]] Body Extrude(const Profile& profile, const Vector3& direction, double depthM);

/// From START to END, DEPTHM away along DIRECTION; both need the same number of points. The volume is that of the body
/// whose sides are ruled from one outline to the other.
[[nodiscard]] Body ExtrudeTapered(const Profile& start, const Profile& end, const Vector3& direction, double depthM);

/// An axis in the xy plane.
struct Axis {
    Vector2 point;
    Vector2 direction; ///< of any length above 0
};

/// About AXIS over ANGLE in radians, a full turn at most. The volume is that of the round body, by the way that the
/// profile's centroid makes. A profile that crosses the axis gives what its faces give.
[[nodiscard]] Body Revolve(const Profile& profile, const Axis& axis, double angle);

} // namespace workbench::geometry
