// Finds points that are meant to be one.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

/// Points nearer than this are one, in metres.
inline constexpr double SamePointM = 1e-5;

/// For each point the first one before it that lies within TOLERANCEM, else itself. Time grows with the number of
/// points, wherever they lie. Points beyond 1e8 m, or not finite, are met by none.
[[nodiscard]] std::vector<Index> FindSamePoints(const std::vector<Vector3>& points, double toleranceM = SamePointM);

/// True where POINT can be worked with: finite, within 1e8 m of the origin.
[[nodiscard]] bool IsUsable(const Vector3& point);

} // namespace workbench::geometry
