#include "workbench/ifc/geometry/Orientation.h"

#include <numbers>
#include <numeric>
#include <utility>

namespace workbench::geometry {
namespace {

constexpr Index NoPart = static_cast<Index>(-1);

/// Two faces along one edge.
struct Link {
    Index face = 0;
    bool isOpposite = false; ///< one of them has to be turned
};

/// The links of face i stand from starts[i] to starts[i + 1].
struct Links {
    std::vector<std::size_t> starts;
    std::vector<Link> links;
};

struct Pair {
    Index a = 0, b = 0;
    bool isOpposite = false;
};

Links SortByFace(std::size_t faces, const std::vector<Pair>& pairs) {
    Links sorted{std::vector<std::size_t>(faces + 1, 0), std::vector<Link>(2 * pairs.size())};
    for (const Pair& pair : pairs) {
        ++sorted.starts[pair.a + 1];
        ++sorted.starts[pair.b + 1];
    }
    std::partial_sum(sorted.starts.begin(), sorted.starts.end(), sorted.starts.begin());
    std::vector<std::size_t> next(sorted.starts.begin(), sorted.starts.end() - 1);
    for (const Pair& pair : pairs) {
        sorted.links[next[pair.a]++] = {pair.b, pair.isOpposite};
        sorted.links[next[pair.b]++] = {pair.a, pair.isOpposite};
    }
    return sorted;
}

struct Parts {
    std::vector<Index> partOf; ///< by face
    std::vector<bool> isTurned;
    Index count = 0;
};

/// Faces that are linked to START get its part. False where links contradict each other.
bool Flood(const Links& links, Index start, Parts& parts) {
    std::vector<Index> open{start};
    parts.partOf[start] = parts.count;
    while (!open.empty()) {
        const Index face = open.back();
        open.pop_back();
        for (std::size_t i = links.starts[face]; i < links.starts[face + 1]; ++i) {
            const Link& link = links.links[i];
            const bool isTurned = parts.isTurned[face] != link.isOpposite;
            if (parts.partOf[link.face] == NoPart) {
                parts.partOf[link.face] = parts.count;
                parts.isTurned[link.face] = isTurned;
                open.push_back(link.face);
            } else if (parts.isTurned[link.face] != isTurned) {
                return false;
            }
        }
    }
    return true;
}

std::optional<Parts> FindParts(std::size_t faces, const std::vector<Pair>& pairs) {
    const Links links = SortByFace(faces, pairs);
    Parts parts{std::vector<Index>(faces, NoPart), std::vector<bool>(faces, false), 0};
    for (Index face = 0; face < faces; ++face) {
        if (parts.partOf[face] != NoPart) continue;
        if (!Flood(links, face, parts)) return std::nullopt;
        ++parts.count;
    }
    return parts;
}

std::vector<Pair> PairNeighbours(const std::vector<EdgeUse>& uses) {
    std::vector<Pair> pairs;
    ForEachEdge(uses, [&](std::span<const EdgeUse> edge) {
        if (edge.size() == 2) pairs.push_back({edge[0].face, edge[1].face, edge[0].isForward == edge[1].isForward});
    });
    return pairs;
}

/// How often an edge is run forward less backward, by part.
using Balances = std::vector<std::pair<Index, int>>;

Balances BalancesOf(std::span<const EdgeUse> edge, const Parts& parts) {
    Balances balances;
    for (const EdgeUse& use : edge)
        balances.emplace_back(parts.partOf[use.face], use.isForward != parts.isTurned[use.face] ? 1 : -1);
    std::sort(balances.begin(), balances.end());
    for (std::size_t i = 1; i < balances.size(); ++i)
        if (balances[i].first == balances[i - 1].first) balances[i].second += std::exchange(balances[i - 1].second, 0);
    return balances;
}

/// The parts in which some edge is run more often one way than the other.
std::vector<bool> FindOpenParts(const Parts& parts, const std::vector<EdgeUse>& uses) {
    std::vector<bool> isOpen(parts.count, false);
    ForEachEdge(uses, [&](std::span<const EdgeUse> edge) {
        if (edge.size() == 2) return;
        for (const auto& [part, balance] : BalancesOf(edge, parts))
            if (balance != 0) isOpen[part] = true;
    });
    return isOpen;
}

/// The direction in which FACE goes away from the edge: its normal turned about the edge. Half a turn is always below
/// 0, so that rounding does not part faces that lie on each other.
double AngleAbout(const EdgeUse& use, const Transform& frame, const Vector3& doubledArea) {
    const Vector3 along = use.isForward ? frame.z : -frame.z;
    const Vector3 away = Cross(doubledArea, along);
    const double angle = std::atan2(Dot(away, frame.y), Dot(away, frame.x));
    return angle > std::numbers::pi - 1e-6 ? angle - 2.0 * std::numbers::pi : angle;
}

/// Faces that lie on each other are taken to be apart: each is moved along its normal, by its number, so little that
/// others keep their order. About an edge that it runs backward this turns it the other way.
double MovedAngle(double angle, const EdgeUse& use, std::size_t faces) {
    constexpr double MostMovedRad = 1e-5;
    const double by = MostMovedRad * static_cast<double>(use.face + 1) / static_cast<double>(faces + 1);
    return angle + (use.isForward ? by : -by);
}

/// Round the edge every second space is solid, so neighbours in that order run the edge in opposite ways.
void PairByAngle(const std::vector<Vector3>& points, const std::vector<Face>& faces, std::span<const EdgeUse> edge,
                 std::vector<Pair>& pairs) {
    const Transform frame = Frame({}, points[edge[0].high] - points[edge[0].low], {1.0, 0.0, 0.0});
    std::vector<std::pair<double, std::size_t>> order;
    for (std::size_t i = 0; i < edge.size(); ++i) {
        const double angle = AngleAbout(edge[i], frame, GetDoubledArea(points, faces[edge[i].face]));
        order.emplace_back(MovedAngle(angle, edge[i], faces.size()), i);
    }
    std::sort(order.begin(), order.end());
    for (std::size_t i = 1; i < order.size(); ++i) {
        const EdgeUse& a = edge[order[i - 1].second];
        const EdgeUse& b = edge[order[i].second];
        pairs.push_back({a.face, b.face, a.isForward == b.isForward});
    }
}

void PairOpenParts(const std::vector<Vector3>& points, const std::vector<Face>& faces, const std::vector<EdgeUse>& uses,
                   const Parts& parts, const std::vector<bool>& isOpen, std::vector<Pair>& pairs) {
    ForEachEdge(uses, [&](std::span<const EdgeUse> edge) {
        if (edge.size() < 4) return;
        const bool concerns =
            std::any_of(edge.begin(), edge.end(), [&](const EdgeUse& use) { return isOpen[parts.partOf[use.face]]; });
        if (concerns) PairByAngle(points, faces, edge, pairs);
    });
}

bool HasAny(const std::vector<bool>& flags) {
    return std::find(flags.begin(), flags.end(), true) != flags.end();
}

} // namespace

std::optional<std::vector<Index>> OrientFaces(const std::vector<Vector3>& points, std::vector<Face>& faces,
                                              const std::vector<EdgeUse>& uses) {
    std::vector<Pair> pairs = PairNeighbours(uses);
    std::optional<Parts> parts = FindParts(faces.size(), pairs);
    if (!parts) return std::nullopt;
    if (const std::vector<bool> isOpen = FindOpenParts(*parts, uses); HasAny(isOpen)) {
        PairOpenParts(points, faces, uses, *parts, isOpen, pairs);
        parts = FindParts(faces.size(), pairs);
        if (!parts || HasAny(FindOpenParts(*parts, uses))) return std::nullopt;
    }
    for (Index face = 0; face < faces.size(); ++face)
        if (parts->isTurned[face]) TurnFace(faces[face]);
    return std::move(parts->partOf);
}

} // namespace workbench::geometry
