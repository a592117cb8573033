// The simple bodies of constructive geometry. Lengths in metres; each has its exact volume. Measures that are not above
// 0 give an empty body.
#pragma once

#include "workbench/ifc/geometry/Body.h"

namespace workbench::geometry {

/// From the origin along the positive axes.
[[nodiscard]] Body Block(double x, double y, double z);
/// On a rectangle from the origin along the positive axes, with its point above the middle.
[[nodiscard]] Body Pyramid(double x, double y, double height);
/// Upright; the middle of its bottom is the origin.
[[nodiscard]] Body Cylinder(double radius, double height);
[[nodiscard]] Body Cone(double radius, double height);
/// About the origin.
[[nodiscard]] Body Sphere(double radius);

} // namespace workbench::geometry
