// What two closed bodies have in common, have together, or what of one is left without the other.
#pragma once

#include <optional>

#include "workbench/ifc/geometry/Body.h"
#include "workbench/ifc/geometry/BspTree.h"

namespace workbench::geometry {

enum class Operation : std::uint8_t { Subtract, Intersect, Unite };

/// A and B each bound closed bodies, outward. Points within a micrometre of a plane lie on it. The result may have
/// points within its edges (T-junctions), which its measures do not mind. Nothing once BUDGET is exceeded.
[[nodiscard]] std::optional<Polygons> Combine(Operation operation, Polygons a, const Polygons& b, Budget& budget);

/// A solid made ready for booleans.
struct Operand {
    Polygons polygons;
    double volumeRatio = 1.0; ///< as Solid has it
};

[[nodiscard]] double GetVolumeM3(const Operand& operand);

/// The solids of BODY, moved by minus ORIGIN: near the origin no digits are lost. Nothing where a face cannot be used.
[[nodiscard]] std::optional<std::vector<Operand>> ToOperands(const Body& body, const Vector3& origin);
/// The way back; operands without volume are left out.
[[nodiscard]] Body ToBody(const std::vector<Operand>& operands, const Vector3& origin);

/// The ratio of true volumes to those of the faces is handed on.
[[nodiscard]] std::optional<Operand> Combine(Operation operation, Operand a, const Operand& b, Budget& budget);

/// Each solid of A with each of B. Bodies that are no solids count as empty. GivenUp, with A's solids, where the limits
/// are exceeded or a face cannot be used.
[[nodiscard]] Body Combine(Operation operation, const Body& a, const Body& b, const BooleanLimits& limits = {});

} // namespace workbench::geometry
