// Booleans and triangles of chance against counting: cells of a grid for boxes, points for other polyhedra.
#include <gtest/gtest.h>

#include <random>

#include "workbench/ifc/geometry/HalfSpace.h"
#include "workbench/ifc/geometry/Primitives.h"
#include "workbench/ifc/geometry/Triangulation.h"

namespace {

using namespace workbench::geometry;

constexpr int GridSize = 6;

/// Corners on whole numbers, so that faces of several boxes often lie in one plane.
struct GridBox {
    int low[3], high[3];

    [[nodiscard]] bool Holds(int x, int y, int z) const {
        return x >= low[0] && x < high[0] && y >= low[1] && y < high[1] && z >= low[2] && z < high[2];
    }
    [[nodiscard]] Body GetBody(const Transform& turn) const {
        const Transform move = MoveBy({double(low[0]), double(low[1]), double(low[2])});
        return Transformed(Block(high[0] - low[0], high[1] - low[1], high[2] - low[2]), Combine(turn, move));
    }
};

GridBox RandomBox(std::mt19937& random) {
    GridBox box{};
    for (int axis = 0; axis < 3; ++axis) {
        box.low[axis] = static_cast<int>(random() % GridSize);
        box.high[axis] =
            box.low[axis] + 1 + static_cast<int>(random() % static_cast<unsigned>(GridSize - box.low[axis]));
    }
    return box;
}

/// How many unit cells the operations leave, one after the other on the first box.
int CountCells(const std::vector<GridBox>& boxes, const std::vector<Operation>& operations) {
    int count = 0;
    for (int cell = 0; cell < GridSize * GridSize * GridSize; ++cell) {
        const int x = cell % GridSize, y = cell / GridSize % GridSize, z = cell / GridSize / GridSize;
        bool isIn = boxes[0].Holds(x, y, z);
        for (std::size_t i = 0; i < operations.size(); ++i) {
            const bool other = boxes[i + 1].Holds(x, y, z);
            if (operations[i] == Operation::Subtract) isIn = isIn && !other;
            if (operations[i] == Operation::Intersect) isIn = isIn && other;
            if (operations[i] == Operation::Unite) isIn = isIn || other;
        }
        count += isIn ? 1 : 0;
    }
    return count;
}

TEST(RandomBodies, BoxesLeaveAsManyCellsAsCountingSays) {
    std::mt19937 random(4);
    for (int round = 0; round < 400; ++round) {
        const Transform turn =
            round % 2 == 0 ? Transform{} : Frame({100.0, 0.0, 7.0}, {1.0, 2.0, 3.0}, {0.3, 1.0, 0.2});
        std::vector<GridBox> boxes{RandomBox(random)};
        std::vector<Operation> operations;
        Body body = boxes[0].GetBody(turn);
        for (int i = 0; i < 5; ++i) {
            boxes.push_back(RandomBox(random));
            // Common parts come seldom, for they leave little to work on.
            operations.push_back(static_cast<Operation>(random() % 8 == 0 ? 1 : 2 * (random() % 2)));
            body = Combine(operations.back(), body, boxes.back().GetBody(turn));
        }
        ASSERT_NEAR(GetVolumeM3(body), CountCells(boxes, operations), 1e-6) << "round " << round;
    }
}

/// A convex body of planes about a centre.
struct Polyhedron {
    std::vector<Plane> planes;
    Body body;

    Polyhedron() {
        const Vector3 corner{-2.0, -2.0, -2.0};
        body = Transformed(Block(4.0, 4.0, 4.0), MoveBy(corner));
    }
    void CutBy(const Plane& plane) {
        planes.push_back(plane);
        body = Combine(Operation::Intersect, body, HalfSpace(plane, GetBox(body)));
    }
    [[nodiscard]] bool Holds(const Vector3& point) const {
        return std::none_of(planes.begin(), planes.end(),
                            [&](const Plane& plane) { return plane.GetDistance(point) > 0; });
    }
};

TEST(RandomBodies, PolyhedraAreAsLargeAsPointsInThemSay) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> in(-1.0, 1.0);
    constexpr int Points = 100'000;
    for (int round = 0; round < 20; ++round) {
        Polyhedron a, b;
        const Vector3 shift{in(random)*0.5, in(random)*0.5, in(random)*0.5};
        for (int i = 0; i < 12; ++i) {
            const Vector3 normal{in(random), in(random), in(random)}, other{in(random), in(random), in(random)};
            a.CutBy(PlaneAt(Unit(normal), normal));
            b.CutBy(PlaneAt(shift + Unit(other) * 0.8, other));
        }
        int onlyA = 0, both = 0, onlyB = 0;
        for (int i = 0; i < Points; ++i) {
            const Vector3 point{2.0 * in(random), 2.0 * in(random), 2.0 * in(random)};
            const bool isInA = a.Holds(point), isInB = b.Holds(point);
            onlyA += isInA && !isInB ? 1 : 0;
            both += isInA && isInB ? 1 : 0;
            onlyB += isInB && !isInA ? 1 : 0;
        }
        // One point stands for 0.00064 m3; five standard deviations of the count.
        const auto expect = [&](Operation operation, int count) {
            const double cell = 64.0 / Points;
            EXPECT_NEAR(GetVolumeM3(Combine(operation, a.body, b.body)), count * cell,
                        5.0 * std::sqrt(count + 1.0) * cell)
                << round;
        };
        expect(Operation::Subtract, onlyA);
        expect(Operation::Intersect, both);
        expect(Operation::Unite, onlyA + both + onlyB);
        const double parts = GetVolumeM3(Combine(Operation::Subtract, a.body, b.body)) +
                             GetVolumeM3(Combine(Operation::Intersect, a.body, b.body));
        EXPECT_NEAR(parts, GetVolumeM3(a.body), 1e-9 * parts) << round;
    }
}

/// A star about (0, 0): radii of chance at even angles.
std::vector<Vector2> Star(std::mt19937& random, int corners, double least, double most) {
    std::uniform_real_distribution<double> radius(least, most);
    std::vector<Vector2> star;
    for (int i = 0; i < corners; ++i) {
        const double angle = 6.283185307179586 * i / corners, r = radius(random);
        star.push_back({r * std::cos(angle), r * std::sin(angle)});
    }
    return star;
}

double Turning(const Vector2& a, const Vector2& b, const Vector2& c) {
    return Cross(b - a, c - a);
}

TEST(RandomBodies, TrianglesOfStarsWithHolesCoverThemOnce) {
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::vector<Vector2>> loops{Star(random, 5 + round % 60, 4.0, 9.0)};
        for (int hole = 0; hole < round % 4; ++hole) {
            loops.push_back(Star(random, 3 + round % 9, 0.2, 0.6));
            for (Vector2& point : loops.back())
                point = point + Vector2{1.2 * (hole == 1) - 1.2 * (hole == 2), 1.2 * (hole == 0)};
        }
        if (round % 2 == 1) std::reverse(loops[0].begin(), loops[0].end());
        std::vector<Vector2> points;
        double area = 0.0;
        for (std::size_t i = 0; i < loops.size(); ++i) {
            const double loop = std::abs(GetPolygonAreaM2(Loop{loops[i], 0.0}));
            area += i == 0 ? loop : -loop;
            points.insert(points.end(), loops[i].begin(), loops[i].end());
        }
        double sum = 0.0;
        for (const Triangle& t : Triangulate(loops)) {
            const double doubled = Turning(points[t[0]], points[t[1]], points[t[2]]);
            EXPECT_GT(round % 2 == 1 ? -doubled : doubled, 0.0) << round;
            sum += std::abs(doubled) / 2.0;
        }
        EXPECT_NEAR(sum, area, 1e-9) << round;
    }
}

} // namespace
