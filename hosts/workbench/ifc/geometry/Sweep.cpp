#include "workbench/ifc/geometry/Sweep.h"

#include "workbench/ifc/geometry/Loft.h"
#include "workbench/ifc/geometry/ParametricProfile.h"
#include "workbench/ifc/geometry/PointWeld.h"

namespace workbench::geometry {
namespace {

constexpr std::size_t MostPoints = 20'000;
/// A corner sharper than this is not mitred: the cosine of half the turn.
constexpr double SharpestCosine = 0.1;

/// The curve's points without repeats, and without the last of a closed one.
std::vector<Vector3> WayOf(const Curve& curve) {
    std::vector<Vector3> way;
    for (const Vector3& point : curve.points)
        if (IsUsable(point) && (way.empty() || Length(point - way.back()) > SamePointM)) way.push_back(point);
    if (IsClosed(curve) && way.size() > 1 && Length(way.back() - way.front()) <= SamePointM) way.pop_back();
    return way;
}

/// Where a curve bends: the normal of the mitre plane, and how the profile is stretched in it.
struct Bend {
    Vector3 normal;
    Vector3 across; ///< of length 1, or zero where the curve goes straight on
    double stretch = 1.0;
};

Bend BendOf(const Vector3& in, const Vector3& out) {
    const Vector3 normal = Unit(in + out);
    const double cosine = Dot(normal, out);
    if (cosine < SharpestCosine) return {out, {}, 1.0};
    return {normal, Unit(out - in), 1.0 / cosine};
}

Section Stretched(Section section, const Vector3& centre, const Bend& bend) {
    for (std::vector<Vector3>& loop : section)
        for (Vector3& point : loop)
            point += bend.across * (Dot(point - centre, bend.across) * (bend.stretch - 1.0));
    return section;
}

enum class Reference : std::uint8_t { Fixed, Carried };

Body Sweep(const Profile& profile, const Curve& curve, Vector3 reference, Reference kind) {
    const std::vector<Vector3> way = WayOf(curve);
    const bool isRing = IsClosed(curve);
    const std::size_t count = way.size();
    if (count < 2 || count > MostPoints) return {};
    std::vector<Section> sections;
    for (std::size_t i = 0; i < count; ++i) {
        const Vector3 toNext = Unit(way[(i + 1) % count] - way[i]);
        const Vector3 fromLast = Unit(way[i] - way[(i + count - 1) % count]);
        const Vector3 in = i > 0 || isRing ? fromLast : toNext;
        const Bend bend = BendOf(in, i + 1 < count || isRing ? toNext : in);
        const Transform place = Frame(way[i], bend.normal, reference);
        sections.push_back(Stretched(PlaceSection(profile, place), way[i], bend));
        if (kind == Reference::Carried) reference = place.x;
    }
    return Loft(sections, isRing ? Ends::Joined : Ends::Capped);
}

} // namespace

Body SweepAlong(const Profile& profile, const Curve& curve, const Vector3& reference) {
    Body body = Sweep(profile, curve, reference, Reference::Fixed);
    const double polygon = GetPolygonAreaM2(profile);
    if (polygon > 0.0) SetTrueVolume(body, GetVolumeM3(body) * GetAreaM2(profile) / polygon);
    return body;
}

Body SweepDisk(const Curve& curve, double radiusM, double innerRadiusM) {
    if (curve.points.empty()) return {};
    const Profile disk = innerRadiusM > 0.0 ? HollowCircle(radiusM, radiusM - innerRadiusM) : Circle(radiusM);
    const Vector3 reference = curve.points.size() > 1 ? AnyNormalTo(curve.points[1] - curve.points[0]) : Vector3{};
    Body body = Sweep(disk, curve, reference, Reference::Carried);
    SetTrueVolume(body, GetAreaM2(disk) * GetLengthM(curve));
    return body;
}

} // namespace workbench::geometry
