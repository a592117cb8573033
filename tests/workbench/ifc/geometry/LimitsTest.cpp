// Large and hostile bodies: honest status, and volumes that still hold. What runs away takes hours, and is ended by the
// time that every test has.
#include <gtest/gtest.h>

#include "Script.h"

namespace {

using namespace workbench::geometry;

TEST(Limits, AThousandOpeningsInOneWall) {
    const Body wall = Block(100.0, 0.2, 40.0);
    std::vector<Body> openings;
    for (int row = 0; row < 20; ++row)
        for (int column = 0; column < 50; ++column)
            openings.push_back(Transformed(Block(1.0, 0.4, 1.0), MoveBy({2.0 * column, -0.1, 2.0 * row})));
    const Subtraction result = SubtractOpenings(wall, openings);
    EXPECT_NEAR(GetVolumeM3(result.body), 800.0 - 200.0, 1e-6);
    EXPECT_EQ(result.body.status, BodyStatus::Solid);
}

/// COUNT x COUNT squares in two triangles each, with a wave in them or flat.
Shell Sheet(Index count, double height) {
    Shell sheet;
    for (Index i = 0; i <= count; ++i)
        for (Index j = 0; j <= count; ++j)
            sheet.points.push_back({double(i), double(j), height * std::sin(i * 0.1) * std::cos(j * 0.1)});
    for (Index i = 0; i < count; ++i) {
        for (Index j = 0; j < count; ++j) {
            const Index a = i * (count + 1) + j, b = a + count + 1;
            sheet.faces.push_back({{{a, b, b + 1}}});
            sheet.faces.push_back({{{a, b + 1, a + 1}}});
        }
    }
    return sheet;
}

/// The same with its underside 2 m below and walls around.
Shell Slab(Index count) {
    Shell slab = Sheet(count, 0.5);
    Shell below = slab;
    for (Vector3& point : below.points)
        point.z -= 2.0;
    const auto shift = static_cast<Index>(slab.points.size());
    Append(slab, below);
    for (Index i = 0; i < count; ++i)
        for (const auto& [start, step] :
             {std::pair{i, 1U}, std::pair{i + count * (count + 1), 1U}, std::pair{i * (count + 1), count + 1},
              std::pair{i * (count + 1) + count, count + 1}})
            slab.faces.push_back({{{start, start + step, start + step + shift, start + shift}}});
    return slab;
}

TEST(Limits, TwoHundredThousandFaces) {
    const Body slab = MakeBody(Slab(224));
    EXPECT_EQ(slab.status, BodyStatus::Solid);
    EXPECT_NEAR(GetVolumeM3(slab), 2.0 * 224 * 224, 1e-3);
    const Body terrain = MakeBody(Sheet(316, 9.0));
    EXPECT_EQ(terrain.status, BodyStatus::OpenSurface);
    // Each triangle with points of its own, 0.1 mm away from the next: nothing but odd edges.
    Shell soup;
    for (Index i = 0; i < 200'000; ++i) {
        for (const double at : {0.0, 0.5, 1.0})
            soup.points.push_back({at, i * 0.0001, at * at});
        soup.faces.push_back({{{3 * i, 3 * i + 1, 3 * i + 2}}});
    }
    EXPECT_EQ(MakeBody(soup).status, BodyStatus::OpenSurface);
}

TEST(Limits, AFanOfFacesOnOneEdge) {
    Shell fan{{{0, 0, 0}, {0, 0, 1}}, {}};
    for (Index i = 0; i < 100'000; ++i) {
        fan.points.push_back({std::cos(i * 0.001), std::sin(i * 0.001), 0.5});
        fan.faces.push_back({{{0, 1, i + 2}}});
    }
    EXPECT_EQ(MakeBody(fan).status, BodyStatus::OpenSurface);
}

TEST(Limits, WhatIsTooMuchIsGivenUpAndSaid) {
    const Body ball = Sphere(1.0);
    const Body other = Transformed(ball, MoveBy({0.5, 0.3, 0.2}));
    for (const BooleanLimits& limits : {BooleanLimits{100, 1'000'000'000}, BooleanLimits{50'000, 1000}}) {
        const Body result = Combine(Operation::Subtract, ball, other, limits);
        EXPECT_EQ(result.status, BodyStatus::GivenUp);
        const Subtraction opened = SubtractOpenings(ball, {other, other}, limits);
        EXPECT_EQ(opened.body.status, BodyStatus::GivenUp);
        EXPECT_EQ(opened.uses, (std::vector<CutterUse>{CutterUse::GivenUp, CutterUse::GivenUp}));
        EXPECT_NEAR(GetVolumeM3(opened.body), GetVolumeM3(ball), 1e-9);
    }
}

TEST(Limits, TwoBallsOverlapByTheirLens) {
    const Body ball = Sphere(1.0);
    const Body other = Transformed(ball, MoveBy({1.0, 0, 0}));
    // Two caps of height 1/2: pi h2 (3 - h) / 3 each. The chords are off by 0.1 %.
    const double lens = 2.0 * 3.14159265358979 * 0.25 * 2.5 / 3.0;
    EXPECT_NEAR(GetVolumeM3(Combine(Operation::Intersect, ball, other)), lens, 0.005 * lens);
}

/// A figure of eight: its larger side counts, its smaller takes off, so that it cuts more than its volume.
TEST(Limits, ACutterThatCutsMoreThanItHasIsDeductedInstead) {
    const Body wall = Block(5.0, 1.0, 3.0);
    const Profile eight{{{{1.0, 0.0}, {3.0, 2.0}, {3.0, 0.0}, {1.0, 1.5}}, 0.0}, {}};
    const Body cutter = Transformed(Extrude(eight, {0, 0, 1}, 2.0), {{1, 0, 0}, {0, 0, 1}, {0, 1, 0}, {0, -0.5, 0.5}});
    const Subtraction result = SubtractOpenings(wall, {cutter});
    EXPECT_EQ(result.uses, (std::vector<CutterUse>{CutterUse::Deducted}));
    EXPECT_LE(GetVolumeM3(result.body), 15.0);
    EXPECT_GE(GetVolumeM3(result.body), 15.0 - GetVolumeM3(cutter));
}

} // namespace
