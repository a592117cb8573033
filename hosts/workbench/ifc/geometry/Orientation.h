// Gives the faces of a closed shell one direction and finds its connected parts.
#pragma once

#include <optional>
#include <vector>

#include "workbench/ifc/geometry/Edges.h"

namespace workbench::geometry {

/// For each face the number of its part, from 0. Turns faces so that neighbours run their common edge in opposite ways;
/// parts may still look inward as a whole. Faces are neighbours where exactly two run along an edge. Along an edge of
/// four or more only where the parts would not be closed in themselves otherwise; then by their order about the edge.
/// Nothing where a face would need both directions, as on a Moebius strip, or where a part stays open.
[[nodiscard]] std::optional<std::vector<Index>> OrientFaces(const std::vector<Vector3>& points,
                                                            std::vector<Face>& faces, const std::vector<EdgeUse>& uses);

} // namespace workbench::geometry
