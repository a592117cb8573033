// Curves as polylines that remember what the polyline cuts off, so that areas and lengths of arcs stay exact.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/Transform.h"

namespace workbench::geometry {

struct Curve {
    std::vector<Vector3> points;
    /// Area between the arcs and their chords in m2, along the normal about which the curve turns to the left.
    Vector3 bulge;
    double extraLengthM = 0.0; ///< by how much the arcs are longer than their chords
};

/// Chords of an arc of RADIUSM over ANGLE (radians, any sign), at least 1. The chords are off by at most 0.1 mm or 0.1
/// % of the radius, whichever is more; a full circle has 12 to 96.
[[nodiscard]] int CountChords(double radiusM, double angle);

/// The part of the circle or ellipse centre + cos(t) a + sin(t) b from t = START over SWEEP radians (any sign, cut at a
/// full turn); t = 0 and a full turn are two equal points. CHORDS 0: as many as CountChords says.
[[nodiscard]] Curve ConicArc(const Vector3& centre, const Vector3& a, const Vector3& b, double start, double sweep,
                             int chords = 0);

/// The circular arc from FIRST over MIDDLE to LAST; the two chords where they lie on a line.
[[nodiscard]] Curve ArcThrough(const Vector3& first, const Vector3& middle, const Vector3& last);

/// One curve after another; an end that meets the next start within 0.01 mm becomes one point with it.
[[nodiscard]] Curve Join(const std::vector<Curve>& curves);

[[nodiscard]] Curve Reversed(Curve curve);
[[nodiscard]] Curve Transformed(const Curve& curve, const Transform& transform);

/// From parameter FROM to TO of a polyline that reaches its i-th point at i; cut at its ends.
[[nodiscard]] Curve TrimPolyline(const std::vector<Vector3>& points, double from, double to);

[[nodiscard]] double GetLengthM(const Curve& curve);

/// True where the ends are one point (within 0.01 mm).
[[nodiscard]] bool IsClosed(const Curve& curve);

} // namespace workbench::geometry
