// Cuts plane polygons with holes into triangles.
#pragma once

#include <array>
#include <vector>

#include "workbench/ifc/geometry/Profile.h"
#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

/// Points of a triangle by number, running as the outer loop does.
using Triangle = std::array<Index, 3>;

/// The first loop is the outline, the others are holes; numbers of the triangles count through all loops. The areas of
/// the triangles always sum up to that of the outline less the holes, also where loops cross; then triangles overlap,
/// or run the other way. Points in line give no triangle. Time grows with the square of the number of points at worst;
/// of outlines with more than 20,000 points nothing is made.
[[nodiscard]] std::vector<Triangle> Triangulate(const std::vector<std::vector<Vector2>>& loops);

/// The triangles of FACE, numbers of SHELL's points; seen from where the face's own area vector points they run left.
[[nodiscard]] std::vector<Triangle> Triangulate(const Shell& shell, const Face& face);

/// All faces, as for display.
[[nodiscard]] std::vector<Triangle> Triangulate(const Shell& shell);

/// The axes of a plane with NORMAL (any length), x across y pointing along it.
[[nodiscard]] Transform PlaneFrame(const Vector3& normal);

} // namespace workbench::geometry
