// Bodies that a profile makes on its way along a curve in space.
#pragma once

#include "workbench/ifc/geometry/Body.h"
#include "workbench/ifc/geometry/Profile.h"

namespace workbench::geometry {

/// A profile that stands square to the curve, its x axis turned as near as possible to REFERENCE all along; mitred at
/// corners. A closed curve gives a ring. Curves with more than 20,000 points give nothing.
[[nodiscard]] Body SweepAlong(const Profile& profile, const Curve& curve, const Vector3& reference);

/// A disk, with a hole where INNERRADIUSM is above 0. Its volume is area times length.
[[nodiscard]] Body SweepDisk(const Curve& curve, double radiusM, double innerRadiusM = 0.0);

} // namespace workbench::geometry
