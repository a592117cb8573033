#include "workbench/ifc/geometry/Caps.h"

#include <unordered_map>

namespace workbench::geometry {
namespace {

constexpr double MostShareOfSurface = 0.1;
constexpr double MostOffPlaneM = 1e-3;
/// A loop whose area as a vector is less than this share of its fan's goes there and back, or is no plane one.
constexpr double FlatShare = 1e-3;

/// The odd edges at each point. Their number is even everywhere, as each face has two edges at each of its corners.
class OpenEdges {
public:
    explicit OpenEdges(const std::vector<EdgeUse>& edges) : edges(edges), isTaken(edges.size(), false) {
        for (std::size_t i = 0; i < edges.size(); ++i) {
            at[edges[i].low].push_back(i);
            at[edges[i].high].push_back(i);
        }
    }

    /// Takes away an edge at FROM and answers its other end.
    std::optional<Index> Take(Index from) {
        std::vector<std::size_t>& here = at[from];
        while (!here.empty() && isTaken[here.back()])
            here.pop_back();
        if (here.empty()) return std::nullopt;
        const std::size_t edge = here.back();
        isTaken[edge] = true;
        return edges[edge].low == from ? edges[edge].high : edges[edge].low;
    }

private:
    const std::vector<EdgeUse>& edges;
    std::vector<bool> isTaken;
    std::unordered_map<Index, std::vector<std::size_t>> at;
};

/// Walks from START until no edge is left there; each time the way crosses itself a loop is complete.
void TakeLoops(OpenEdges& edges, Index start, std::vector<PointLoop>& loops) {
    PointLoop way{start};
    std::unordered_map<Index, std::size_t> placeOf{{start, 0}};
    while (const std::optional<Index> next = edges.Take(way.back())) {
        const auto known = placeOf.find(*next);
        if (known == placeOf.end()) {
            placeOf[*next] = way.size();
            way.push_back(*next);
            continue;
        }
        const auto from = way.begin() + static_cast<std::ptrdiff_t>(known->second);
        loops.emplace_back(from, way.end());
        for (auto point = from + 1; point != way.end(); ++point)
            placeOf.erase(*point);
        way.erase(from + 1, way.end());
    }
}

double FanArea(const std::vector<Vector3>& points, const PointLoop& loop) {
    double doubled = 0.0;
    for (std::size_t i = 2; i < loop.size(); ++i)
        doubled += Length(Cross(points[loop[i - 1]] - points[loop[0]], points[loop[i]] - points[loop[0]]));
    return doubled / 2.0;
}

bool IsFlat(const std::vector<Vector3>& points, const PointLoop& loop, double fanArea) {
    const Vector3 doubled = GetDoubledArea(points, loop);
    if (Length(doubled) < FlatShare * fanArea) return fanArea < MostOffPlaneM * MostOffPlaneM;
    const Vector3 normal = Unit(doubled);
    double low = 0.0;
    double high = 0.0;
    for (const Index point : loop) {
        const double distance = Dot(points[point] - points[loop[0]], normal);
        low = std::min(low, distance);
        high = std::max(high, distance);
    }
    return high - low <= 2.0 * MostOffPlaneM;
}

} // namespace

std::optional<Caps> FindCaps(const std::vector<Vector3>& points, const std::vector<EdgeUse>& oddEdges,
                             double surfaceM2) {
    OpenEdges edges(oddEdges);
    std::vector<PointLoop> loops;
    for (const EdgeUse& edge : oddEdges)
        TakeLoops(edges, edge.low, loops);
    Caps caps;
    for (PointLoop& loop : loops) {
        const double area = FanArea(points, loop);
        caps.areaM2 += area;
        if (!IsFlat(points, loop, area)) return std::nullopt;
        caps.faces.push_back({{std::move(loop)}});
    }
    if (caps.areaM2 > MostShareOfSurface * surfaceM2) return std::nullopt;
    return caps;
}

} // namespace workbench::geometry
