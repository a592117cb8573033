#include "workbench/ifc/geometry/PointWeld.h"

#include <array>
#include <unordered_map>

namespace workbench::geometry {
namespace {

constexpr double FarthestM = 1e8;
/// Wider cells are seldom at the border of several, but hold more points.
constexpr double CellWidths = 4.0;

using Cell = std::array<std::int64_t, 3>;

struct CellHash {
    std::size_t operator()(const Cell& cell) const {
        std::uint64_t hash = 0;
        for (const std::int64_t part : cell)
            hash = (hash ^ static_cast<std::uint64_t>(part)) * 0x9E3779B97F4A7C15U;
        return static_cast<std::size_t>(hash ^ (hash >> 29U));
    }
};

class Grid {
public:
    explicit Grid(double toleranceM) : tolerance(toleranceM), width(toleranceM * CellWidths) {}

    /// The point before that is near enough, else INDEX, which is then remembered.
    Index FindOrAdd(const std::vector<Vector3>& points, Index index) {
        const Vector3& point = points[index];
        const Vector3 margin{tolerance, tolerance, tolerance};
        const Cell low = CellOf(point - margin);
        const Cell high = CellOf(point + margin);
        Cell cell;
        for (cell[0] = low[0]; cell[0] <= high[0]; ++cell[0])
            for (cell[1] = low[1]; cell[1] <= high[1]; ++cell[1])
                for (cell[2] = low[2]; cell[2] <= high[2]; ++cell[2])
                    if (const Index* known = FindIn(cell, points, point)) return *known;
        cells[CellOf(point)].push_back(index);
        return index;
    }

private:
    [[nodiscard]] Cell CellOf(const Vector3& point) const {
        return {static_cast<std::int64_t>(std::floor(point.x / width)),
                static_cast<std::int64_t>(std::floor(point.y / width)),
                static_cast<std::int64_t>(std::floor(point.z / width))};
    }

    /// A cell holds few points, as those in it are apart from each other.
    const Index* FindIn(const Cell& cell, const std::vector<Vector3>& points, const Vector3& point) const {
        const auto found = cells.find(cell);
        if (found == cells.end()) return nullptr;
        for (const Index& known : found->second)
            if (Length(points[known] - point) <= tolerance) return &known;
        return nullptr;
    }

    double tolerance;
    double width;
    std::unordered_map<Cell, std::vector<Index>, CellHash> cells;
};

} // namespace

bool IsUsable(const Vector3& point) {
    return std::abs(point.x) <= FarthestM && std::abs(point.y) <= FarthestM && std::abs(point.z) <= FarthestM;
}

std::vector<Index> FindSamePoints(const std::vector<Vector3>& points, double toleranceM) {
    Grid grid(toleranceM);
    std::vector<Index> same(points.size());
    for (Index i = 0; i < points.size(); ++i)
        same[i] = IsUsable(points[i]) ? grid.FindOrAdd(points, i) : i;
    return same;
}

} // namespace workbench::geometry
