// Closes small or flat gaps of a shell by faces of our own.
#pragma once

#include <optional>
#include <vector>

#include "workbench/ifc/geometry/Edges.h"

namespace workbench::geometry {

struct Caps {
    std::vector<Face> faces;
    double areaM2 = 0.0;
};

/// Faces over the loops of edges that an odd number of faces runs along. Nothing where a loop is off its plane by more
/// than 1 mm, or the caps have more than a tenth of the shell's SURFACEM2.
[[nodiscard]] std::optional<Caps> FindCaps(const std::vector<Vector3>& points, const std::vector<EdgeUse>& oddEdges,
                                           double surfaceM2);

} // namespace workbench::geometry
