// Plane profiles to extrude and to turn: an outline with voids, as polygons beside their exact areas.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/Curve.h"

namespace workbench::geometry {

/// A closed polygon; the last point is joined to the first.
struct Loop {
    std::vector<Vector2> points;
    double bulgeM2 = 0.0; ///< what the true outline has beyond the polygon; signed as the polygon's area
};

/// Loops may run either way round.
struct Profile {
    Loop outer;
    std::vector<Loop> voids;
};

/// The x and y of a curve that ends where it began, or whose ends are to be joined.
[[nodiscard]] Loop ToLoop(const Curve& curve);

/// Of the polygon, above 0 where it runs to the left.
[[nodiscard]] double GetPolygonAreaM2(const Loop& loop);

/// Of the polygons, voids taken off.
[[nodiscard]] double GetPolygonAreaM2(const Profile& profile);

/// Of the true outlines, voids taken off.
[[nodiscard]] double GetAreaM2(const Profile& profile);

/// Centre of the polygons' area, voids taken off; its first point where there is no area.
[[nodiscard]] Vector2 GetCentroid(const Profile& profile);

/// The profile under the part of TRANSFORM that lies in the plane; it may mirror and scale each axis differently.
[[nodiscard]] Profile Transformed(const Profile& profile, const Transform& transform);

/// A strip of THICKNESSM with its middle along an open CURVE in the plane, corners mitred, ends cut square. A closed
/// curve becomes a ring. Its exact area is length times thickness.
[[nodiscard]] Profile ThickenedCurve(const Curve& curve, double thicknessM);

} // namespace workbench::geometry
