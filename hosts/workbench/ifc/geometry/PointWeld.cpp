#include "workbench/ifc/geometry/PointWeld.h"

#include <optional>

#include "workbench/ifc/geometry/PointGrid.h"

namespace workbench::geometry {
namespace {

constexpr double FarthestM = 1e8;
/// Wider cells are seldom at the border of several, but hold more points.
constexpr double CellWidths = 4.0;

/// The point before INDEX that is near enough, else INDEX, which the grid then holds.
Index FindOrAdd(PointGrid& grid, const std::vector<Vector3>& points, Index index, double toleranceM) {
    const Vector3& point = points[index];
    Box near;
    near.Include(point);
    std::optional<Index> found;
    grid.LookInto(Grown(near, toleranceM), [&](std::span<const Index> cell) {
        const auto isNear = [&](Index known) { return Length(points[known] - point) <= toleranceM; };
        const auto known = std::find_if(cell.begin(), cell.end(), isNear);
        if (known != cell.end()) found = *known;
        return found.has_value();
    });
    if (found) return *found;
    grid.Add(point, index);
    return index;
}

} // namespace

bool IsUsable(const Vector3& point) {
    return std::abs(point.x) <= FarthestM && std::abs(point.y) <= FarthestM && std::abs(point.z) <= FarthestM;
}

std::vector<Index> FindSamePoints(const std::vector<Vector3>& points, double toleranceM) {
    PointGrid grid(toleranceM * CellWidths);
    std::vector<Index> same(points.size());
    for (Index i = 0; i < points.size(); ++i)
        same[i] = IsUsable(points[i]) ? FindOrAdd(grid, points, i, toleranceM) : i;
    return same;
}

} // namespace workbench::geometry
