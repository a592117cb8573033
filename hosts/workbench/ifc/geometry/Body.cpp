#include "workbench/ifc/geometry/Body.h"

#include <iterator>

#include "workbench/ifc/geometry/PointWeld.h"

namespace workbench::geometry {
namespace {

/// A regular hexagon has 17 % less area than its circle; no chords of ours are coarser than twelve to a circle.
constexpr double MostOffByChords = 1.2;
/// Of volumes: a thousand kilometres for a metre.
constexpr double MostScale = 1e18;

Body GivenUp() {
    Body body;
    body.status = BodyStatus::GivenUp;
    return body;
}

bool IsUsable(const Shell& shell) {
    return std::all_of(shell.points.begin(), shell.points.end(), [](const Vector3& point) { return IsUsable(point); });
}

} // namespace

double GetVolumeM3(const Solid& solid) {
    return GetSignedVolumeM3(solid.shell) * solid.volumeRatio;
}

double GetVolumeM3(const Body& body) {
    double volume = body.sheetVolumeM3 - body.deductedM3;
    for (const Solid& solid : body.solids)
        volume += GetVolumeM3(solid);
    return std::max(0.0, volume);
}

double GetSurfaceM2(const Body& body) {
    double surface = body.sheetAreaM2;
    for (const Solid& solid : body.solids)
        surface += GetSurfaceM2(solid.shell);
    return surface;
}

double GetPlanAreaM2(const Body& body) {
    double area = 0.0;
    for (const Solid& solid : body.solids)
        area += GetDownwardAreaM2(solid.shell);
    return area;
}

Box GetBox(const Body& body) {
    Box box;
    for (const Solid& solid : body.solids)
        box.Include(GetBox(solid.shell));
    return box;
}

Body Transformed(Body body, const Transform& transform) {
    const double factor = std::abs(transform.GetDeterminant());
    if (!(factor < MostScale)) return GivenUp();
    for (Solid& solid : body.solids) {
        solid.shell = Transformed(std::move(solid.shell), transform);
        if (!IsUsable(solid.shell)) return GivenUp();
    }
    const double areaFactor = std::cbrt(factor) * std::cbrt(factor);
    body.capAreaM2 *= areaFactor;
    body.sheetAreaM2 *= areaFactor;
    body.sheetVolumeM3 *= factor;
    body.deductedM3 *= factor;
    return body;
}

Body Together(Body body, Body other) {
    body.status = std::max(body.status, other.status);
    std::move(other.solids.begin(), other.solids.end(), std::back_inserter(body.solids));
    body.capAreaM2 += other.capAreaM2;
    body.sheetAreaM2 += other.sheetAreaM2;
    body.sheetVolumeM3 += other.sheetVolumeM3;
    body.deductedM3 += other.deductedM3;
    return body;
}

void SetTrueVolume(Body& body, double volumeM3) {
    const double faces = GetVolumeM3(body);
    const double ratio = faces > 0.0 ? volumeM3 / faces : 0.0;
    if (!(ratio > 1.0 / MostOffByChords && ratio < MostOffByChords)) return;
    for (Solid& solid : body.solids)
        solid.volumeRatio *= ratio;
}

} // namespace workbench::geometry
