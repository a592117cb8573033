// A box along the axes: the quick answer to whether two bodies can touch.
#pragma once

#include <limits>

#include "workbench/ifc/geometry/Vector.h"

namespace workbench::geometry {

/// Empty until the first point is put in.
struct Box {
    static constexpr double Far = std::numeric_limits<double>::max();
    Vector3 low{Far, Far, Far};
    Vector3 high{-Far, -Far, -Far};

    void Include(const Vector3& point) {
        low = {std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y), std::max(high.z, point.z)};
    }
    void Include(const Box& box) {
        if (box.IsEmpty()) return;
        Include(box.low);
        Include(box.high);
    }
    [[nodiscard]] bool IsEmpty() const { return low.x > high.x; }
    [[nodiscard]] Vector3 GetCentre() const { return IsEmpty() ? Vector3{} : low * 0.5 + high * 0.5; }
    [[nodiscard]] double GetDiagonal() const { return IsEmpty() ? 0.0 : Length(high - low); }
};

/// BOX with MARGIN on every side.
inline Box Grown(Box box, double margin) {
    if (box.IsEmpty()) return box;
    const Vector3 by{margin, margin, margin};
    return {box.low - by, box.high + by};
}

/// False where an empty box is among them.
inline bool DoTouch(const Box& a, const Box& b) {
    return a.low.x <= b.high.x && b.low.x <= a.high.x && a.low.y <= b.high.y && b.low.y <= a.high.y &&
           a.low.z <= b.high.z && b.low.z <= a.high.z;
}

inline bool IsWithin(const Box& inner, const Box& outer) {
    return inner.low.x >= outer.low.x && inner.low.y >= outer.low.y && inner.low.z >= outer.low.z &&
           inner.high.x <= outer.high.x && inner.high.y <= outer.high.y && inner.high.z <= outer.high.z;
}

} // namespace workbench::geometry
