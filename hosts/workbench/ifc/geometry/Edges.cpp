#include "workbench/ifc/geometry/Edges.h"

#include <tuple>

namespace workbench::geometry {

std::vector<EdgeUse> CollectEdgeUses(const std::vector<Face>& faces) {
    std::vector<EdgeUse> uses;
    for (Index face = 0; face < faces.size(); ++face) {
        for (const PointLoop& loop : faces[face].loops) {
            for (std::size_t i = 0; i < loop.size(); ++i) {
                const Index from = loop[i];
                const Index to = loop[i + 1 < loop.size() ? i + 1 : 0];
                uses.push_back({std::min(from, to), std::max(from, to), face, from < to});
            }
        }
    }
    std::sort(uses.begin(), uses.end(), [](const EdgeUse& a, const EdgeUse& b) {
        return std::tie(a.low, a.high, a.face) < std::tie(b.low, b.high, b.face);
    });
    return uses;
}

std::vector<EdgeUse> FindOddEdges(const std::vector<EdgeUse>& uses) {
    std::vector<EdgeUse> odd;
    ForEachEdge(uses, [&](std::span<const EdgeUse> edge) {
        if (edge.size() % 2 == 1) odd.push_back(edge.front());
    });
    return odd;
}

} // namespace workbench::geometry
