// The pieces that booleans work on: convex plane polygons, each with its plane and its box.
#pragma once

#include <optional>
#include <vector>

#include "workbench/ifc/geometry/Box.h"
#include "workbench/ifc/geometry/Plane.h"
#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

/// Points nearer than this to a plane lie on it, in metres.
inline constexpr double OnPlaneM = 1e-6;

struct ConvexPolygon {
    Plane plane;
    std::vector<Vector3> points; ///< running left as seen from in front of the plane
    Box box;
};

using Polygons = std::vector<ConvexPolygon>;

[[nodiscard]] double GetAreaM2(const ConvexPolygon& polygon);
[[nodiscard]] Box GetBox(const Polygons& polygons);

/// As GetSignedVolumeM3 of the shell that they make.
[[nodiscard]] double GetSignedVolumeM3(const Polygons& polygons);

[[nodiscard]] ConvexPolygon Turned(const ConvexPolygon& polygon);

/// Where a polygon lies to a plane; halves that are not there have no points.
enum class Side : std::uint8_t { OnPlane, InFront, Behind, Across };

/// FRONT and BACK are set only for Across.
[[nodiscard]] Side Split(const ConvexPolygon& polygon, const Plane& plane, ConvexPolygon& front, ConvexPolygon& back);

/// Where it lies, without cutting.
[[nodiscard]] Side FindSide(const ConvexPolygon& polygon, const Plane& plane);

/// Faces that are plane, convex and have one loop stay whole, others become triangles; those without area go. Nothing
/// where a face cannot be cut into triangles.
[[nodiscard]] std::optional<Polygons> ToPolygons(const Shell& shell);

/// Each polygon with points of its own.
[[nodiscard]] Shell ToShell(const Polygons& polygons);

/// The parts of POLYGONS within BOX.
[[nodiscard]] Polygons Clip(const Polygons& polygons, const Box& box);

/// True where POINT lies in the closed body that POLYGONS bound, by the solid angles under which it sees them.
[[nodiscard]] bool IsInside(const Vector3& point, const Polygons& polygons);

} // namespace workbench::geometry
