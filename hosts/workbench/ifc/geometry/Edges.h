// The edges of a shell and the faces that run along them.
#pragma once

#include <span>
#include <vector>

#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

/// One face running along one edge. LOW and HIGH are its points by number.
struct EdgeUse {
    Index low = 0, high = 0;
    Index face = 0;
    bool isForward = false; ///< from LOW to HIGH
};

/// All uses, those of the same edge together.
[[nodiscard]] std::vector<EdgeUse> CollectEdgeUses(const std::vector<Face>& faces);

/// Calls ACT with the uses of each edge as a std::span.
template <class Do>
void ForEachEdge(const std::vector<EdgeUse>& uses, const Do& act) {
    for (std::size_t begin = 0, end = 0; begin < uses.size(); begin = end) {
        while (end < uses.size() && uses[end].low == uses[begin].low && uses[end].high == uses[begin].high)
            ++end;
        act(std::span<const EdgeUse>(uses).subspan(begin, end - begin));
    }
}

/// The edges that an odd number of faces runs along, each once, as its first use.
[[nodiscard]] std::vector<EdgeUse> FindOddEdges(const std::vector<EdgeUse>& uses);

} // namespace workbench::geometry
