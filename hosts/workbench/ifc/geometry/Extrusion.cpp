#include "workbench/ifc/geometry/Extrusion.h"

#include <numbers>

#include "workbench/ifc/geometry/Loft.h"

namespace workbench::geometry {
namespace {

constexpr double FullTurn = 2.0 * std::numbers::pi;

/// Between two loops of the same number of points, half way.
Loop Middle(const Loop& a, const Loop& b) {
    Loop middle;
    for (std::size_t i = 0; i < a.points.size(); ++i)
        middle.points.push_back((a.points[i] + b.points[i]) * 0.5);
    // Arcs of the same angle: what is between arc and chord grows with the square of the radius.
    const double root = (std::sqrt(std::abs(a.bulgeM2)) + std::sqrt(std::abs(b.bulgeM2))) / 2.0;
    if (a.bulgeM2 * b.bulgeM2 >= 0.0) middle.bulgeM2 = std::copysign(root * root, a.bulgeM2 + b.bulgeM2);
    return middle;
}

bool AreAlike(const Profile& a, const Profile& b) {
    const auto sameSize = [](const Loop& x, const Loop& y) { return x.points.size() == y.points.size(); };
    return sameSize(a.outer, b.outer) &&
           std::equal(a.voids.begin(), a.voids.end(), b.voids.begin(), b.voids.end(), sameSize);
}

Profile Middle(const Profile& a, const Profile& b) {
    Profile middle{Middle(a.outer, b.outer), {}};
    for (std::size_t i = 0; i < a.voids.size(); ++i)
        middle.voids.push_back(Middle(a.voids[i], b.voids[i]));
    return middle;
}

/// How far the origin moves, and by how much that rises.
Vector3 PathOf(const Vector3& direction, double depthM) {
    return std::isfinite(depthM) ? Unit(direction) * depthM : Vector3{};
}

/// POINT turned about an axis through ORIGIN.
Vector3 Turned(const Vector3& point, const Vector3& origin, const Vector3& axis, double angle) {
    const Vector3 arm = point - origin;
    const Vector3 along = axis * Dot(arm, axis);
    const Vector3 across = arm - along;
    return origin + along + across * std::cos(angle) + Cross(axis, across) * std::sin(angle);
}

Section Turned(Section section, const Vector3& origin, const Vector3& axis, double angle) {
    for (std::vector<Vector3>& loop : section)
        for (Vector3& point : loop)
            point = Turned(point, origin, axis, angle);
    return section;
}

/// The least and the greatest distance from the axis, below 0 on its right.
struct Reach {
    double least = 0.0, most = 0.0;
};

Reach FindReach(const Profile& profile, const Axis& axis, const Vector2& along) {
    Reach reach{Box::Far, -Box::Far};
    for (const Vector2& point : profile.outer.points) {
        const double distance = Cross(along, point - axis.point);
        reach = {std::min(reach.least, distance), std::max(reach.most, distance)};
    }
    return reach;
}

} // namespace

Body Extrude(const Profile& profile, const Vector3& direction, double depthM) {
    const Vector3 path = PathOf(direction, depthM);
    const Transform top = MoveBy(path);
    Body body = Loft({PlaceSection(profile, {}), PlaceSection(profile, top)}, Ends::Capped);
    SetTrueVolume(body, GetAreaM2(profile) * std::abs(path.z));
    return body;
}

Body ExtrudeTapered(const Profile& start, const Profile& end, const Vector3& direction, double depthM) {
    if (!AreAlike(start, end)) return {};
    const Vector3 path = PathOf(direction, depthM);
    const Transform top = MoveBy(path);
    Body body = Loft({PlaceSection(start, {}), PlaceSection(end, top)}, Ends::Capped);
    const double areas = GetAreaM2(start) + 4.0 * GetAreaM2(Middle(start, end)) + GetAreaM2(end);
    SetTrueVolume(body, areas * std::abs(path.z) / 6.0);
    return body;
}

Body Revolve(const Profile& profile, const Axis& axis, double angle) {
    const Vector3 along = Unit(Raised(axis.direction));
    if (along == Vector3{} || profile.outer.points.empty() || !std::isfinite(angle)) return {};
    angle = std::clamp(angle, -FullTurn, FullTurn);
    const Reach reach = FindReach(profile, axis, Flat(along));
    const double farthest = std::max(std::abs(reach.least), std::abs(reach.most));
    const bool isFull = std::abs(angle) > FullTurn - 1e-9;
    const int steps = CountChords(farthest, angle);
    std::vector<Section> sections;
    sections.reserve(static_cast<std::size_t>(steps) + 1);
    for (int i = 0; i < steps + (isFull ? 0 : 1); ++i)
        sections.push_back(Turned(PlaceSection(profile, {}), Raised(axis.point), along, angle * i / steps));
    Body body = Loft(sections, isFull ? Ends::Joined : Ends::Capped);
    const double arm = Cross(Flat(along), GetCentroid(profile) - axis.point);
    if (reach.least * reach.most >= -1e-9 * farthest * farthest)
        SetTrueVolume(body, std::abs(arm * angle) * GetAreaM2(profile));
    return body;
}

} // namespace workbench::geometry
