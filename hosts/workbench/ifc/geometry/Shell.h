// Faces over shared points, as files hold them: nothing is promised about directions, gaps or doubled faces. What is
// asked here wants loops of points that are there; MakeBody also takes others.
#pragma once

#include <cstdint>
#include <vector>

#include "workbench/ifc/geometry/Box.h"
#include "workbench/ifc/geometry/Transform.h"

namespace workbench::geometry {

using Index = std::uint32_t;
/// Indices of points; the last is joined to the first.
using PointLoop = std::vector<Index>;

struct Face {
    std::vector<PointLoop> loops; ///< the outer bound, then the inner ones
};

struct Shell {
    std::vector<Vector3> points;
    std::vector<Face> faces;
};

/// Twice the area of the polygon, along the normal about which it runs to the left.
[[nodiscard]] Vector3 GetDoubledArea(const std::vector<Vector3>& points, const PointLoop& loop);
/// Of all loops together; inner loops that run the other way take off.
[[nodiscard]] Vector3 GetDoubledArea(const std::vector<Vector3>& points, const Face& face);

[[nodiscard]] double GetSurfaceM2(const Shell& shell);

/// By the divergence theorem with the first point as origin, so that far coordinates do not cost digits; above 0 where
/// the faces look outward. Means something only for a closed shell whose faces have one direction.
[[nodiscard]] double GetSignedVolumeM3(const Shell& shell);

/// The shadow from above in m2, each stacked part by itself: all faces that look downward, projected to the xy plane.
[[nodiscard]] double GetDownwardAreaM2(const Shell& shell);

/// Of the points that faces use.
[[nodiscard]] Box GetBox(const Shell& shell);

void TurnFace(Face& face);
void TurnFaces(Shell& shell);

/// A map that mirrors turns the faces, so that what looked outward still does.
[[nodiscard]] Shell Transformed(Shell shell, const Transform& transform);

/// Puts the faces of OTHER beside those of SHELL.
void Append(Shell& shell, const Shell& other);

} // namespace workbench::geometry
