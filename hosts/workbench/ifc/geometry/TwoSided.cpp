#include "workbench/ifc/geometry/TwoSided.h"

#include <numeric>

#include "workbench/ifc/geometry/Plane.h"

namespace workbench::geometry {
namespace {

constexpr double ParallelCosine = 0.99985; // 1 degree
constexpr double SamePlaneM = 1e-3;
constexpr double LeastRatio = 0.8;
constexpr double LeastShare = 0.7;
/// A plate has few planes; the largest faces come first, so what finds no place any more is small.
constexpr std::size_t MostPlanes = 64;

struct PlaneArea {
    Plane plane;
    Vector3 point;
    double areaM2 = 0.0;
};

bool AreParallel(const Vector3& a, const Vector3& b) {
    return std::abs(Dot(a, b)) >= ParallelCosine;
}

void AddFace(std::vector<PlaneArea>& planes, const Vector3& point, const Vector3& doubledArea) {
    const double area = Length(doubledArea) / 2.0;
    const Vector3 normal = Unit(doubledArea);
    for (PlaneArea& known : planes) {
        if (!AreParallel(known.plane.normal, normal)) continue;
        if (std::abs(known.plane.GetDistance(point)) > SamePlaneM) continue;
        known.areaM2 += area;
        return;
    }
    if (planes.size() < MostPlanes) planes.push_back({PlaneAt(point, normal), point, area});
}

/// The planes by area, the largest first.
std::vector<PlaneArea> CollectPlanes(const Shell& shell) {
    std::vector<std::pair<double, Index>> order;
    for (Index face = 0; face < shell.faces.size(); ++face)
        order.emplace_back(-Length(GetDoubledArea(shell.points, shell.faces[face])), face);
    std::sort(order.begin(), order.end());
    std::vector<PlaneArea> planes;
    for (const auto& [area, face] : order)
        if (area < 0.0)
            AddFace(planes, shell.points[shell.faces[face].loops[0][0]],
                    GetDoubledArea(shell.points, shell.faces[face]));
    std::sort(planes.begin(), planes.end(), [](const PlaneArea& a, const PlaneArea& b) { return a.areaM2 > b.areaM2; });
    return planes;
}

} // namespace

std::optional<Plate> FindPlate(const Shell& shell) {
    const std::vector<PlaneArea> planes = CollectPlanes(shell);
    if (planes.size() < 2) return std::nullopt;
    const double both = planes[0].areaM2 + planes[1].areaM2;
    const double distance = std::abs(planes[0].plane.GetDistance(planes[1].point));
    const bool isPlate = AreParallel(planes[0].plane.normal, planes[1].plane.normal) && distance > SamePlaneM &&
                         planes[1].areaM2 >= LeastRatio * planes[0].areaM2 && both >= LeastShare * GetSurfaceM2(shell);
    if (!isPlate) return std::nullopt;
    return Plate{both / 2.0, both / 2.0 * distance};
}

} // namespace workbench::geometry
