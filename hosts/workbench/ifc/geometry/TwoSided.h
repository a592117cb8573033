// Recognises a plate of which only the two large sides are there.
#pragma once

#include <optional>

#include "workbench/ifc/geometry/Shell.h"

namespace workbench::geometry {

struct Plate {
    double areaM2 = 0.0; ///< the mean of both sides
    double volumeM3 = 0.0;
};

/// SHELL is open. The two planes with most of its area have to be parallel within 1 degree, more than 1 mm apart, of
/// nearly the same area (0.8 to 1.25), and hold 70 % of all.
[[nodiscard]] std::optional<Plate> FindPlate(const Shell& shell);

} // namespace workbench::geometry
