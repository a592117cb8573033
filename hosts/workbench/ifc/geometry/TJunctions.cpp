#include "workbench/ifc/geometry/TJunctions.h"

#include <unordered_map>

#include "workbench/ifc/geometry/Edges.h"
#include "workbench/ifc/geometry/PointGrid.h"

namespace workbench::geometry {
namespace {

constexpr double OnEdgeM = 3e-5;
constexpr int Rounds = 3;
constexpr std::size_t MostLooks = 20'000'000;
constexpr double SmallestCellM = 1e-4;

std::uint64_t KeyOf(Index low, Index high) {
    return static_cast<std::uint64_t>(low) << 32U | high;
}

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
    EndPoints(const std::vector<Vector3>& points, const std::vector<EdgeUse>& odd)
        : points(points), width(FindWidth(points, odd)), grid(width) {
        std::vector<Index> ends;
        for (const EdgeUse& edge : odd)
            ends.insert(ends.end(), {edge.low, edge.high});
        std::sort(ends.begin(), ends.end());
        ends.erase(std::unique(ends.begin(), ends.end()), ends.end());
        for (const Index end : ends)
            grid.Add(points[end], end);
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
            grid.LookInto(Grown(box, OnEdgeM), [&](std::span<const Index> cell) {
                LookAt(cell, edge, found);
                return false;
            });
        }
        std::sort(found.begin(), found.end());
        found.erase(std::unique(found.begin(), found.end()), found.end());
        return found;
    }

private:
    static double FindWidth(const std::vector<Vector3>& points, const std::vector<EdgeUse>& odd) {
        double length = 0.0;
        for (const EdgeUse& edge : odd)
            length += Length(points[edge.high] - points[edge.low]);
        return std::max(SmallestCellM, length / static_cast<double>(odd.size()));
    }

    void LookAt(std::span<const Index> cell, const EdgeUse& edge, std::vector<Split>& found) {
        looks += 1 + cell.size();
        const Vector3 along = Unit(points[edge.high] - points[edge.low]);
        const double length = Length(points[edge.high] - points[edge.low]);
        for (const Index point : cell) {
            if (point == edge.low || point == edge.high) continue;
            const Vector3 from = points[point] - points[edge.low];
            const double at = Dot(from, along);
            if (at > 0.0 && at < length && Length(from - along * at) <= OnEdgeM) found.push_back({at, point});
        }
    }

    const std::vector<Vector3>& points;
    double width;
    PointGrid grid;
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
