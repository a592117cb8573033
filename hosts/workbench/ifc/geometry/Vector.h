// Points and directions of the plane and of space, as plain values. Lengths are in metres unless a function says
// otherwise.
#pragma once

#include <algorithm>
#include <cmath>

namespace workbench::geometry {

struct Vector2 {
    double x = 0.0, y = 0.0;

    friend constexpr bool operator==(const Vector2&, const Vector2&) = default;
};

struct Vector3 {
    double x = 0.0, y = 0.0, z = 0.0;

    friend constexpr bool operator==(const Vector3&, const Vector3&) = default;
};

constexpr Vector2 operator+(const Vector2& a, const Vector2& b) {
    return {a.x + b.x, a.y + b.y};
}
constexpr Vector2 operator-(const Vector2& a, const Vector2& b) {
    return {a.x - b.x, a.y - b.y};
}
constexpr Vector2 operator*(const Vector2& a, double factor) {
    return {a.x * factor, a.y * factor};
}
constexpr double Dot(const Vector2& a, const Vector2& b) {
    return a.x * b.x + a.y * b.y;
}
/// Twice the area of the triangle from the origin over A to B, positive to the left.
constexpr double Cross(const Vector2& a, const Vector2& b) {
    return a.x * b.y - a.y * b.x;
}
inline double Length(const Vector2& a) {
    return std::hypot(a.x, a.y);
}

constexpr Vector3 operator+(const Vector3& a, const Vector3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vector3 operator-(const Vector3& a, const Vector3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vector3 operator-(const Vector3& a) {
    return {-a.x, -a.y, -a.z};
}
constexpr Vector3 operator*(const Vector3& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
constexpr Vector3& operator+=(Vector3& a, const Vector3& b) {
    return a = a + b;
}
constexpr double Dot(const Vector3& a, const Vector3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Vector3 Cross(const Vector3& a, const Vector3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Length(const Vector3& a) {
    return std::sqrt(Dot(a, a));
}

/// The direction of A with length 1; zero where A has no length or is not finite.
inline Vector3 Unit(const Vector3& a) {
    const double largest = std::max({std::abs(a.x), std::abs(a.y), std::abs(a.z)});
    if (!(largest > 0.0) || !std::isfinite(largest)) return {};
    const Vector3 scaled = a * (1.0 / largest);
    return scaled * (1.0 / Length(scaled));
}

/// A direction of length 1 at right angles to the direction A.
inline Vector3 AnyNormalTo(const Vector3& a) {
    return Unit(Cross(a, std::abs(a.x) < 0.6 * Length(a) ? Vector3{1.0, 0.0, 0.0} : Vector3{0.0, 1.0, 0.0}));
}

inline bool IsFinite(const Vector3& a) {
    return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z);
}

constexpr Vector2 Flat(const Vector3& a) {
    return {a.x, a.y};
}
constexpr Vector3 Raised(const Vector2& a, double z = 0.0) {
    return {a.x, a.y, z};
}

} // namespace workbench::geometry
