#include "workbench/ifc/geometry/HalfSpace.h"

#include "workbench/ifc/geometry/Extrusion.h"
#include "workbench/ifc/geometry/ParametricProfile.h"

namespace workbench::geometry {
namespace {

/// Beyond what it has to cover, as a share of that.
constexpr double Beyond = 0.5;
constexpr double LeastM = 1.0;

Box BoxIn(const Box& box, const Transform& frame) {
    const Transform inverse = Inverse(frame);
    Box local;
    for (int i = 0; i < 8; ++i)
        local.Include(inverse.Apply({(i & 1) != 0 ? box.high.x : box.low.x, (i & 2) != 0 ? box.high.y : box.low.y,
                                     (i & 4) != 0 ? box.high.z : box.low.z}));
    return local;
}

} // namespace

Body HalfSpace(const Plane& surface, const Box& around) {
    if (around.IsEmpty() || surface.normal == Vector3{}) return {};
    const Vector3 centre = around.GetCentre();
    const double distance = surface.GetDistance(centre);
    const double size = around.GetDiagonal() * (1.0 + Beyond) + LeastM;
    const Transform frame = Frame(centre - surface.normal * distance, surface.normal, AnyNormalTo(surface.normal));
    const Body block = Extrude(Rectangle(2.0 * size, 2.0 * size), {0.0, 0.0, -1.0}, std::abs(distance) + size);
    return Transformed(block, frame);
}

Body BoundedHalfSpace(const Plane& surface, const Transform& position, const Loop& boundary, const Box& around,
                      const BooleanLimits& limits) {
    if (around.IsEmpty()) return {};
    const Box local = BoxIn(around, position);
    const double margin = around.GetDiagonal() * Beyond + LeastM;
    Transform start;
    start.origin.z = local.low.z - margin;
    const Body prism = Extrude({boundary, {}}, {0.0, 0.0, 1.0}, local.high.z - local.low.z + 2.0 * margin);
    const Body placed = Transformed(prism, Combine(position, start));
    return Combine(Operation::Intersect, placed, HalfSpace(surface, GetBox(placed)), limits);
}

} // namespace workbench::geometry
