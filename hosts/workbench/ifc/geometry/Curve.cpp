#include "workbench/ifc/geometry/Curve.h"

#include <numbers>

namespace workbench::geometry {
namespace {

constexpr double ChordErrorM = 1e-4;
constexpr double ChordErrorOfRadius = 1e-3;
constexpr double FewestChords = 12.0;
constexpr double MostChords = 96.0;
constexpr double SamePointM = 1e-5;
constexpr double FullTurn = 2.0 * std::numbers::pi;

/// Of the chords along a circle of radius 1 over ANGLE.
double ChordLength(double angle, int chords) {
    return 2.0 * chords * std::sin(std::abs(angle) / chords / 2.0);
}

bool AreSame(const Vector3& a, const Vector3& b) {
    return Length(a - b) <= SamePointM;
}

bool IsCircle(const Vector3& a, const Vector3& b) {
    const double size = Dot(a, a);
    return std::abs(Dot(a, b)) <= 1e-9 * size && std::abs(size - Dot(b, b)) <= 1e-9 * size;
}

Vector3 PointAt(const std::vector<Vector3>& points, double parameter) {
    const double whole = std::floor(parameter);
    const auto at = std::min(static_cast<std::size_t>(whole), points.size() - 1);
    const auto next = std::min(at + 1, points.size() - 1);
    return points[at] + (points[next] - points[at]) * (parameter - whole);
}

} // namespace

int CountChords(double radiusM, double angle) {
    const double radius = std::abs(radiusM);
    const double error = std::max(ChordErrorM, ChordErrorOfRadius * radius);
    const double circle = radius > error ? std::ceil(std::numbers::pi / std::acos(1.0 - error / radius)) : FewestChords;
    const double turn = std::min(std::abs(angle) / FullTurn, 1.0);
    return static_cast<int>(std::max(1.0, std::ceil(std::clamp(circle, FewestChords, MostChords) * turn - 1e-9)));
}

Curve ConicArc(const Vector3& centre, const Vector3& a, const Vector3& b, double start, double sweep, int chords) {
    if (!std::isfinite(start) || !std::isfinite(sweep)) return {};
    sweep = std::clamp(sweep, -FullTurn, FullTurn);
    const double radius = std::max(Length(a), Length(b));
    if (chords <= 0) chords = CountChords(radius, sweep);
    Curve curve;
    for (int i = 0; i <= chords; ++i) {
        const double t = start + sweep * i / chords;
        curve.points.push_back(centre + a * std::cos(t) + b * std::sin(t));
    }
    if (std::abs(sweep) == FullTurn) curve.points.back() = curve.points.front();
    curve.bulge = Cross(a, b) * (0.5 * (sweep - chords * std::sin(sweep / chords)));
    if (IsCircle(a, b)) curve.extraLengthM = radius * (std::abs(sweep) - ChordLength(sweep, chords));
    return curve;
}

Curve ArcThrough(const Vector3& first, const Vector3& middle, const Vector3& last) {
    const Vector3 u = middle - first;
    const Vector3 v = last - first;
    const Vector3 normal = Cross(u, v);
    const double size = Dot(normal, normal);
    if (!(size > 1e-12 * Dot(u, u) * Dot(v, v))) return {{first, middle, last}, {}, 0.0};
    // The centre is as far from all three points.
    const Vector3 toCentre = (Cross(normal, u) * Dot(v, v) + Cross(v, normal) * Dot(u, u)) * (0.5 / size);
    const Vector3 a = -toCentre;
    const Vector3 b = Cross(Unit(normal), a);
    const Vector3 end = last - first - toCentre;
    const double angle = std::atan2(Dot(end, b), Dot(end, a));
    Curve curve = ConicArc(first + toCentre, a, b, 0.0, angle <= 0.0 ? angle + FullTurn : angle);
    curve.points.front() = first;
    curve.points.back() = last;
    return curve;
}

Curve Join(const std::vector<Curve>& curves) {
    Curve joined;
    for (const Curve& curve : curves) {
        auto from = curve.points.begin();
        const bool doMeet =
            !joined.points.empty() && from != curve.points.end() && AreSame(joined.points.back(), *from);
        joined.points.insert(joined.points.end(), doMeet ? from + 1 : from, curve.points.end());
        joined.bulge += curve.bulge;
        joined.extraLengthM += curve.extraLengthM;
    }
    return joined;
}

Curve Reversed(Curve curve) {
    std::reverse(curve.points.begin(), curve.points.end());
    curve.bulge = -curve.bulge;
    return curve;
}

Curve Transformed(const Curve& curve, const Transform& transform) {
    Curve image;
    image.points.reserve(curve.points.size());
    for (const Vector3& point : curve.points)
        image.points.push_back(transform.Apply(point));
    // An area vector goes with the cofactors of the map.
    const auto& [x, y, z, origin] = transform;
    image.bulge = Cross(y, z) * curve.bulge.x + Cross(z, x) * curve.bulge.y + Cross(x, y) * curve.bulge.z;
    image.extraLengthM = curve.extraLengthM * std::cbrt(std::abs(transform.GetDeterminant()));
    return image;
}

Curve TrimPolyline(const std::vector<Vector3>& points, double from, double to) {
    if (points.empty() || !std::isfinite(from) || !std::isfinite(to)) return {};
    const double last = static_cast<double>(points.size() - 1);
    from = std::clamp(from, 0.0, last);
    to = std::clamp(to, 0.0, last);
    Curve curve;
    curve.points.push_back(PointAt(points, std::min(from, to)));
    const auto next = static_cast<std::size_t>(std::min(from, to)) + 1;
    for (std::size_t i = next; static_cast<double>(i) < std::max(from, to); ++i)
        curve.points.push_back(points[i]);
    curve.points.push_back(PointAt(points, std::max(from, to)));
    return from <= to ? curve : Reversed(std::move(curve));
}

double GetLengthM(const Curve& curve) {
    double length = curve.extraLengthM;
    for (std::size_t i = 1; i < curve.points.size(); ++i)
        length += Length(curve.points[i] - curve.points[i - 1]);
    return length;
}

bool IsClosed(const Curve& curve) {
    return curve.points.size() > 2 && AreSame(curve.points.front(), curve.points.back());
}

} // namespace workbench::geometry
