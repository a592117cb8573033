// An oriented plane; a body lies behind the planes of its faces.
#pragma once

#include "workbench/ifc/geometry/Vector.h"

namespace workbench::geometry {

struct Plane {
    Vector3 normal;      ///< of length 1
    double offset = 0.0; ///< of its points along the normal, in metres

    /// Above 0 in front, in metres.
    [[nodiscard]] double GetDistance(const Vector3& point) const { return Dot(normal, point) - offset; }
};

/// NORMAL may have any length above 0.
inline Plane PlaneAt(const Vector3& point, const Vector3& normal) {
    const Vector3 unit = Unit(normal);
    return {unit, Dot(unit, point)};
}

inline Plane Turned(const Plane& plane) {
    return {-plane.normal, -plane.offset};
}

} // namespace workbench::geometry
