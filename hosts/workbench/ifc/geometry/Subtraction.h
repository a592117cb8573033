// Takes openings out of a body, one after the other, and says of each what became of it.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/Boolean.h"

namespace workbench::geometry {

enum class CutterUse : std::uint8_t {
    Cut,      ///< taken out
    Apart,    ///< its box does not touch the body's; nothing to take out
    NotSolid, ///< not closed, or without volume; not used
    /// Cutting gave a volume that cannot be, by more than 1 %; what cutter and body have in common was deducted
    /// instead.
    Deducted,
    GivenUp, ///< the limits were exceeded; neither this one nor those after it are taken out
};

struct Subtraction {
    Body body; ///< GivenUp where a cutter was
    std::vector<CutterUse> uses;
};

/// CUTTERS are in the body's coordinates. A body that is no solid stays as it is, its cutters Apart.
[[nodiscard]] Subtraction SubtractOpenings(const Body& body, const std::vector<Body>& cutters,
                                           const BooleanLimits& limits = {});

} // namespace workbench::geometry
