#include "workbench/ifc/geometry/TJunctions.h"

#include <array>
#include <unordered_map>

#include "workbench/ifc/geometry/Edges.h"

namespace workbench::geometry {
namespace {

constexpr double OnEdgeM = 3e-5;
constexpr int Rounds = 3;
constexpr std::size_t MostLooks = 20'000'000;
constexpr double SmallestCellM = 1e-4;

std::uint64_t KeyOf(Index low, Index high) {
    return static_cast<std::uint64_t>(low) << 32U | high;
}

using Cell = std::array<std::int64_t, 3>;

struct CellHash {
    std::size_t operator()(const Cell& cell) const {
        std::uint64_t hash = 0;
        for (const std::int64_t part : cell)
            hash = (hash ^ static_cast<std::uint64_t>(part)) * 0x9E3779B97F4A7C15U;
        return static_cast<std::size_t>(hash ^ (hash >> 31U));
    }
};

/// Where on an edge a point lies.
struct Split {
    double at = 0.0; ///< metres from the edge's first point
    Index point = 0;

    friend bool operator==(const Split&, const Split&) = default;
    friend bool operator<(const Split& a, const Split& b) { return a.at != b.at ? a.at < b.at : a.point < b.point; }
};

/// End points of odd edges in cells about as wide as an edge is long.
class EndPoints {
public:
    EndPoints(const std::vector<Vector3>& points, const std::vector<EdgeUse>& odd) : points(points) {
        double length = 0.0;
        for (const EdgeUse& edge : odd)
            length += Length(points[edge.high] - points[edge.low]);
        width = std::max(SmallestCellM, length / static_cast<double>(odd.size()));
        std::vector<Index> ends;
        for (const EdgeUse& edge : odd)
            ends.insert(ends.end(), {edge.low, edge.high});
        std::sort(ends.begin(), ends.end());
        ends.erase(std::unique(ends.begin(), ends.end()), ends.end());
        for (const Index end : ends)
            cells[CellOf(points[end])].push_back(end);
    }

    /// Those strictly between the ends of EDGE, in order from LOW to HIGH.
    std::vector<Split> FindOn(const EdgeUse& edge) {
        std::vector<Split> found;
        const Vector3 start = points[edge.low];
        const Vector3 whole = points[edge.high] - start;
        const double length = Length(whole);
        const int steps = 1 + static_cast<int>(std::min(length / width, 1e6));
        for (int i = 0; i < steps && looks < MostLooks; ++i) {
            Box box;
            box.Include(start + whole * (static_cast<double>(i) / steps));
            box.Include(start + whole * (static_cast<double>(i + 1) / steps));
            LookInto(Grown(box, OnEdgeM), edge, found);
        }
        std::sort(found.begin(), found.end());
        found.erase(std::unique(found.begin(), found.end()), found.end());
        return found;
    }

private:
    [[nodiscard]] Cell CellOf(const Vector3& point) const {
        return {static_cast<std::int64_t>(std::floor(point.x / width)),
                static_cast<std::int64_t>(std::floor(point.y / width)),
                static_cast<std::int64_t>(std::floor(point.z / width))};
    }

    void LookInto(const Box& box, const EdgeUse& edge, std::vector<Split>& found) {
        const Cell low = CellOf(box.low);
        const Cell high = CellOf(box.high);
        Cell cell;
        for (cell[0] = low[0]; cell[0] <= high[0]; ++cell[0])
            for (cell[1] = low[1]; cell[1] <= high[1]; ++cell[1])
                for (cell[2] = low[2]; cell[2] <= high[2]; ++cell[2])
                    LookInto(cell, edge, found);
    }

    void LookInto(const Cell& cell, const EdgeUse& edge, std::vector<Split>& found) {
        ++looks;
        const auto here = cells.find(cell);
        if (here == cells.end()) return;
        looks += here->second.size();
        const Vector3 along = Unit(points[edge.high] - points[edge.low]);
        const double length = Length(points[edge.high] - points[edge.low]);
        for (const Index point : here->second) {
            if (point == edge.low || point == edge.high) continue;
            const Vector3 from = points[point] - points[edge.low];
            const double at = Dot(from, along);
            if (at > 0.0 && at < length && Length(from - along * at) <= OnEdgeM) found.push_back({at, point});
        }
    }

    const std::vector<Vector3>& points;
    double width = 0.0;
    std::unordered_map<Cell, std::vector<Index>, CellHash> cells;
    std::size_t looks = 0;
};

using SplitsByEdge = std::unordered_map<std::uint64_t, std::vector<Split>>;

SplitsByEdge FindSplits(const std::vector<Vector3>& points, const std::vector<EdgeUse>& odd) {
    SplitsByEdge splits;
    EndPoints ends(points, odd);
    for (const EdgeUse& edge : odd) {
        std::vector<Split> found = ends.FindOn(edge);
        if (!found.empty()) splits.emplace(KeyOf(edge.low, edge.high), std::move(found));
    }
    return splits;
}

PointLoop WithSplits(const PointLoop& loop, const SplitsByEdge& splits) {
    PointLoop longer;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const Index from = loop[i];
        const Index to = loop[i + 1 < loop.size() ? i + 1 : 0];
        longer.push_back(from);
        const auto found = splits.find(KeyOf(std::min(from, to), std::max(from, to)));
        if (found == splits.end()) continue;
        const std::size_t start = longer.size();
        for (const Split& split : found->second)
            longer.push_back(split.point);
        if (from > to) std::reverse(longer.begin() + static_cast<std::ptrdiff_t>(start), longer.end());
    }
    return longer;
}

} // namespace

void SplitTJunctions(const std::vector<Vector3>& points, std::vector<Face>& faces) {
    for (int round = 0; round < Rounds; ++round) {
        const std::vector<EdgeUse> odd = FindOddEdges(CollectEdgeUses(faces));
        if (odd.empty()) return;
        const SplitsByEdge splits = FindSplits(points, odd);
        if (splits.empty()) return;
        for (Face& face : faces)
            for (PointLoop& loop : face.loops)
                loop = WithSplits(loop, splits);
    }
}

} // namespace workbench::geometry
