// A closed body as a binary partition of space: tells which parts of a polygon lie within it.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/ConvexPolygon.h"

namespace workbench::geometry {

/// How much a boolean may cost before it is given up; the same on every machine.
struct BooleanLimits {
    std::size_t mostPolygons = 50'000;   ///< of one operand, with the pieces into which its own planes cut it
    std::size_t mostSteps = 100'000'000; ///< polygons held against a plane; some ten million a second
};

/// What is left of the limits of one operation.
class Budget {
public:
    explicit Budget(const BooleanLimits& limits) : limits(limits) {}

    void Spend(std::size_t steps) { spent += steps; }
    void CountOperand(std::size_t polygons) { isTooLarge = isTooLarge || polygons > limits.mostPolygons; }
    [[nodiscard]] bool IsExceeded() const { return isTooLarge || spent > limits.mostSteps; }

private:
    BooleanLimits limits;
    std::size_t spent = 0;
    bool isTooLarge = false;
};

/// Where a piece of a polygon lies to a body: on its surface with the same or the opposite outside.
enum class Place : std::uint8_t { Outside, Inside, OnSame, OnOpposite };

struct PlacedPiece {
    ConvexPolygon polygon;
    Place place = Place::Outside;
};

class BspTree {
public:
    /// POLYGONS bound a body, outward, or what of its surface lies within a convex region; then the tree holds for that
    /// region. Without polygons all is outside. Incomplete once BUDGET is exceeded.
    BspTree(Polygons polygons, Budget& budget);

    /// The pieces into which the body's surface cuts POLYGON; some are missing once BUDGET is exceeded.
    [[nodiscard]] std::vector<PlacedPiece> Cut(const ConvexPolygon& polygon, Budget& budget) const;

private:
    /// A child is the number of a node, or one of these.
    static constexpr int OutsideLeaf = -1;
    static constexpr int InsideLeaf = -2;

    struct Node {
        Plane plane;
        int front = OutsideLeaf;
        int back = InsideLeaf;
    };
    struct Open;
    class Descent;

    void Grow(Open here, std::vector<Open>& open, Budget& budget);
    int& ChildAt(int parent, bool isFront);

    std::vector<Node> nodes;
    int root = OutsideLeaf;
    std::size_t pieces = 0; ///< polygons with the pieces that they were cut into
};

} // namespace workbench::geometry
