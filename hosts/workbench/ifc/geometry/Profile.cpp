#include "workbench/ifc/geometry/Profile.h"

namespace workbench::geometry {
namespace {

/// A mitre longer than this many half thicknesses is cut off.
constexpr double LongestMitre = 10.0;

double GetAreaM2(const Loop& loop) {
    return std::abs(GetPolygonAreaM2(loop) + loop.bulgeM2);
}

/// The integral of x and y over the polygon, above 0 as its area.
Vector2 Moment(const Loop& loop, const Vector2& origin) {
    Vector2 moment;
    for (std::size_t i = 0; i < loop.points.size(); ++i) {
        const Vector2 a = loop.points[i] - origin;
        const Vector2 b = loop.points[(i + 1) % loop.points.size()] - origin;
        moment = moment + (a + b) * (Cross(a, b) / 6.0);
    }
    return GetPolygonAreaM2(loop) < 0.0 ? moment * -1.0 : moment;
}

Loop Transformed(const Loop& loop, const Transform& transform) {
    Loop image;
    for (const Vector2& point : loop.points)
        image.points.push_back(Flat(transform.Apply(Raised(point))));
    image.bulgeM2 = loop.bulgeM2 * Cross(Flat(transform.x), Flat(transform.y));
    return image;
}

Vector2 LeftOf(const Vector2& from, const Vector2& to) {
    const double length = Length(to - from);
    return length > 0.0 ? Vector2{(from.y - to.y) / length, (to.x - from.x) / length} : Vector2{};
}

/// From a corner to that of the line which runs at distance 1 to the left.
Vector2 Mitre(const Vector2& before, const Vector2& after) {
    const Vector2 sum = before + after;
    const double size = Dot(sum, sum);
    return size * LongestMitre * LongestMitre > 4.0 ? sum * (2.0 / size) : before;
}

std::vector<Vector2> WithoutRepeats(const Curve& curve) {
    std::vector<Vector2> points;
    for (const Vector3& point : curve.points)
        if (points.empty() || Length(Flat(point) - points.back()) > 0.0) points.push_back(Flat(point));
    return points;
}

/// The line DISTANCE to the left of POINTS; of a closed one without its repeated last point.
std::vector<Vector2> Offset(const std::vector<Vector2>& points, double distance, bool isClosed) {
    std::vector<Vector2> line;
    const std::size_t last = points.size() - 1;
    for (std::size_t i = 0; i < points.size() - (isClosed ? 1 : 0); ++i) {
        const std::size_t before = i > 0 ? i - 1 : isClosed ? last - 1 : 0;
        const Vector2 in = i > 0 || isClosed ? LeftOf(points[before], points[i]) : LeftOf(points[0], points[1]);
        const Vector2 out = i < last ? LeftOf(points[i], points[i + 1]) : in;
        line.push_back(points[i] + Mitre(in, out) * distance);
    }
    return line;
}

/// Sets the bulge so that the strip's area is as long as the curve times as wide as THICKNESSM.
Profile WithStripArea(Profile strip, const Curve& curve, double thicknessM) {
    const double missing = GetLengthM(curve) * thicknessM - GetPolygonAreaM2(strip);
    strip.outer.bulgeM2 = GetPolygonAreaM2(strip.outer) < 0.0 ? -missing : missing;
    return strip;
}

} // namespace

Loop ToLoop(const Curve& curve) {
    Loop loop;
    const std::size_t count = curve.points.size() - (IsClosed(curve) ? 1 : 0);
    for (std::size_t i = 0; i < count; ++i)
        loop.points.push_back(Flat(curve.points[i]));
    loop.bulgeM2 = curve.bulge.z;
    return loop;
}

double GetPolygonAreaM2(const Loop& loop) {
    double doubled = 0.0;
    for (std::size_t i = 2; i < loop.points.size(); ++i)
        doubled += Cross(loop.points[i - 1] - loop.points[0], loop.points[i] - loop.points[0]);
    return doubled / 2.0;
}

double GetPolygonAreaM2(const Profile& profile) {
    double area = std::abs(GetPolygonAreaM2(profile.outer));
    for (const Loop& hole : profile.voids)
        area -= std::abs(GetPolygonAreaM2(hole));
    return area;
}

double GetAreaM2(const Profile& profile) {
    double area = GetAreaM2(profile.outer);
    for (const Loop& hole : profile.voids)
        area -= GetAreaM2(hole);
    return area;
}

Vector2 GetCentroid(const Profile& profile) {
    if (profile.outer.points.empty()) return {};
    const Vector2 origin = profile.outer.points.front();
    Vector2 moment = Moment(profile.outer, origin);
    for (const Loop& hole : profile.voids)
        moment = moment - Moment(hole, origin);
    const double area = GetPolygonAreaM2(profile);
    return area > 0.0 ? origin + moment * (1.0 / area) : origin;
}

Profile Transformed(const Profile& profile, const Transform& transform) {
    Profile image{Transformed(profile.outer, transform), {}};
    for (const Loop& hole : profile.voids)
        image.voids.push_back(Transformed(hole, transform));
    return image;
}

Profile ThickenedCurve(const Curve& curve, double thicknessM) {
    const std::vector<Vector2> middle = WithoutRepeats(curve);
    const bool isClosed = IsClosed(curve);
    if (middle.size() < (isClosed ? 4U : 2U)) return {};
    Profile strip{{Offset(middle, thicknessM / 2.0, isClosed), 0.0}, {}};
    std::vector<Vector2> right = Offset(middle, -thicknessM / 2.0, isClosed);
    if (isClosed) {
        strip.voids.push_back({right, 0.0});
        if (GetPolygonAreaM2(strip) < 0.0) std::swap(strip.outer, strip.voids.front());
    } else {
        strip.outer.points.insert(strip.outer.points.end(), right.rbegin(), right.rend());
    }
    return WithStripArea(std::move(strip), curve, thicknessM);
}

} // namespace workbench::geometry
