// An affine map of space: placements, and operators that scale each axis differently or mirror.
#pragma once

#include "workbench/ifc/geometry/Vector.h"

namespace workbench::geometry {

/// The images of the three axes and of the origin.
struct Transform {
    Vector3 x{1.0, 0.0, 0.0}, y{0.0, 1.0, 0.0}, z{0.0, 0.0, 1.0}, origin;

    [[nodiscard]] Vector3 ApplyToDirection(const Vector3& a) const { return x * a.x + y * a.y + z * a.z; }
    [[nodiscard]] Vector3 Apply(const Vector3& a) const { return origin + ApplyToDirection(a); }
    /// By what factor volumes grow; below 0 where it mirrors.
    [[nodiscard]] double GetDeterminant() const { return Dot(x, Cross(y, z)); }
};

inline Transform MoveBy(const Vector3& by) {
    return {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, by};
}

/// First INNER, then OUTER.
inline Transform Combine(const Transform& outer, const Transform& inner) {
    return {outer.ApplyToDirection(inner.x), outer.ApplyToDirection(inner.y), outer.ApplyToDirection(inner.z),
            outer.Apply(inner.origin)};
}

/// The other way round; nothing is moved where TRANSFORM flattens space.
inline Transform Inverse(const Transform& transform) {
    const double determinant = transform.GetDeterminant();
    if (determinant == 0.0 || !std::isfinite(determinant)) return {};
    const double factor = 1.0 / determinant;
    const Vector3 a = Cross(transform.y, transform.z) * factor;
    const Vector3 b = Cross(transform.z, transform.x) * factor;
    const Vector3 c = Cross(transform.x, transform.y) * factor;
    Transform inverse{{a.x, b.x, c.x}, {a.y, b.y, c.y}, {a.z, b.z, c.z}, {}};
    inverse.origin = -inverse.ApplyToDirection(transform.origin);
    return inverse;
}

/// A right-angled right-handed frame at ORIGIN: z along AXIS, x as near to REFERENCE as that allows. Lengths do not
/// matter; an axis without length is the z axis, a reference that is parallel to the axis any normal of it.
inline Transform Frame(const Vector3& origin, const Vector3& axis, const Vector3& reference) {
    Vector3 z = Unit(axis);
    if (z == Vector3{}) z = {0.0, 0.0, 1.0};
    const Vector3 unit = Unit(reference);
    const Vector3 across = unit - z * Dot(unit, z);
    const Vector3 x = Length(across) > 1e-9 ? Unit(across) : AnyNormalTo(z);
    return {x, Cross(z, x), z, origin};
}

} // namespace workbench::geometry
