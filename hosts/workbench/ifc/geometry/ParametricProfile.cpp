#include "workbench/ifc/geometry/ParametricProfile.h"

#include <numbers>

namespace workbench::geometry {
namespace {

constexpr double FullTurn = 2.0 * std::numbers::pi;

using Corners = std::vector<Corner>;

Vector2 At(const Corner& corner) {
    return {corner.x, corner.y};
}

/// A corner with the directions of its edges.
struct Turn {
    Vector2 point, in, out; ///< directions of length 1
    double angle = 0.0;     ///< from IN to OUT, above 0 to the left
    double tangent = 0.0;   ///< from the corner to where the arc begins
};

Vector2 Direction(const Vector2& from, const Vector2& to) {
    return Flat(Unit(Raised(to - from)));
}

Turn TurnAt(const Corner& before, const Corner& corner, const Corner& after) {
    Turn turn{At(corner), Direction(At(before), At(corner)), Direction(At(corner), At(after))};
    turn.angle = std::atan2(Cross(turn.in, turn.out), Dot(turn.in, turn.out));
    const double half = std::tan(std::abs(turn.angle) / 2.0);
    if (corner.radius > 0.0 && half > 1e-9 && half < 1e6) turn.tangent = corner.radius * half;
    return turn;
}

/// Shortens the tangents where two of them do not fit on the edge between their corners.
void FitTangents(std::vector<Turn>& turns) {
    const std::vector<Turn> wanted = turns;
    for (std::size_t i = 0; i < turns.size(); ++i) {
        const std::size_t next = (i + 1) % turns.size();
        const double length = Length(turns[next].point - turns[i].point);
        const double both = wanted[i].tangent + wanted[next].tangent;
        if (both <= length) continue;
        for (const std::size_t corner : {i, next})
            turns[corner].tangent = std::min(turns[corner].tangent, wanted[corner].tangent * length / both);
    }
}

Curve ArcOf(const Turn& turn) {
    const double radius = turn.tangent / std::tan(std::abs(turn.angle) / 2.0);
    const double side = turn.angle > 0.0 ? 1.0 : -1.0;
    const Vector2 toCentre = Vector2{-turn.in.y, turn.in.x} * (side * radius);
    const Vector2 centre = turn.point - turn.in * turn.tangent + toCentre;
    return ConicArc(Raised(centre), Raised(toCentre * -1.0), Raised(turn.in * radius), 0.0, std::abs(turn.angle));
}

Loop CircleLoop(double radius, int chords) {
    const Curve circle = ConicArc({}, {radius, 0.0, 0.0}, {0.0, radius, 0.0}, 0.0, FullTurn, chords);
    return ToLoop(circle);
}

Corners RectangleCorners(double width, double height, double radius) {
    const double x = width / 2.0;
    const double y = height / 2.0;
    return {{-x, -y, radius}, {x, -y, radius}, {x, y, radius}, {-x, y, radius}};
}

Profile Outline(const Corners& corners) {
    return {RoundedOutline(corners), {}};
}

/// How much thicker a sloped flange is at the web, and thinner at the end, than in the middle of what stands OUT.
double Rise(double out, double slope) {
    return std::tan(slope) * out / 2.0;
}

double OutstandOf(const Flange& flange, double web) {
    return (flange.width - web) / 2.0;
}

bool IsUsable(const Flange& flange, double out) {
    return out > 0.0 && flange.thickness > 0.0 && std::abs(Rise(out, flange.slope)) < flange.thickness;
}

/// Moves a bounding box with the lower left corner at the origin to the middle.
Corners Centred(Corners corners, double width, double height) {
    for (Corner& corner : corners) {
        corner.x -= width / 2.0;
        corner.y -= height / 2.0;
    }
    return corners;
}

} // namespace

Loop RoundedOutline(const std::vector<Corner>& corners) {
    std::vector<Turn> turns;
    const std::size_t count = corners.size();
    for (std::size_t i = 0; i < count; ++i)
        turns.push_back(TurnAt(corners[(i + count - 1) % count], corners[i], corners[(i + 1) % count]));
    FitTangents(turns);
    Loop loop;
    for (const Turn& turn : turns) {
        const Curve arc = turn.tangent > 0.0 ? ArcOf(turn) : Curve{{Raised(turn.point)}, {}, 0.0};
        for (const Vector3& point : arc.points)
            loop.points.push_back(Flat(point));
        loop.bulgeM2 += arc.bulge.z;
    }
    return loop;
}

Profile Rectangle(double width, double height, double radius) {
    if (!(width > 0.0) || !(height > 0.0)) return {};
    return Outline(RectangleCorners(width, height, radius));
}

Profile HollowRectangle(double width, double height, double wall, double outerRadius, double innerRadius) {
    Profile profile = Rectangle(width, height, outerRadius);
    const Profile inner = Rectangle(width - 2.0 * wall, height - 2.0 * wall, innerRadius);
    if (!(wall > 0.0) || inner.outer.points.empty()) return {};
    profile.voids.push_back(inner.outer);
    return profile;
}

Profile Circle(double radius) {
    if (!(radius > 0.0)) return {};
    return {CircleLoop(radius, 0), {}};
}

Profile HollowCircle(double radius, double wall) {
    if (!(wall > 0.0) || !(wall < radius)) return {};
    // As many sides inside as outside, for a thin wall must not be crossed by the chords.
    return {CircleLoop(radius, 0), {CircleLoop(radius - wall, CountChords(radius, FullTurn))}};
}

Profile Ellipse(double semiAxisX, double semiAxisY) {
    if (!(semiAxisX > 0.0) || !(semiAxisY > 0.0)) return {};
    return {ToLoop(ConicArc({}, {semiAxisX, 0.0, 0.0}, {0.0, semiAxisY, 0.0}, 0.0, FullTurn)), {}};
}

Profile Trapezium(double bottom, double top, double height, double offset) {
    if (!(bottom > 0.0) || !(top >= 0.0) || !(height > 0.0)) return {};
    const double x = bottom / 2.0;
    const double y = height / 2.0;
    return Outline({{-x, -y}, {x, -y}, {offset - x + top, y}, {offset - x, y}});
}

Profile IShape(double depth, double web, const Flange& bottom, const Flange& top) {
    const double below = OutstandOf(bottom, web);
    const double above = OutstandOf(top, web);
    if (!(web > 0.0) || !IsUsable(bottom, below) || !IsUsable(top, above)) return {};
    if (!(bottom.thickness + top.thickness < depth)) return {};
    const double low = -depth / 2.0;
    const double high = depth / 2.0;
    const double lowRise = Rise(below, bottom.slope);
    const double highRise = Rise(above, top.slope);
    Corners right = {{bottom.width / 2.0, low},
                     {bottom.width / 2.0, low + bottom.thickness - lowRise, bottom.edgeRadius},
                     {web / 2.0, low + bottom.thickness + lowRise, bottom.filletRadius},
                     {web / 2.0, high - top.thickness - highRise, top.filletRadius},
                     {top.width / 2.0, high - top.thickness + highRise, top.edgeRadius},
                     {top.width / 2.0, high}};
    for (std::size_t i = right.size(); i-- > 0;)
        right.push_back({-right[i].x, right[i].y, right[i].radius});
    return Outline(right);
}

Profile TShape(double depth, double web, const Flange& flange, double webEdgeRadius, double webSlope) {
    const double out = OutstandOf(flange, web);
    const double rise = Rise(out, flange.slope);
    const double webRise = Rise(depth - flange.thickness, webSlope);
    const double end = web / 2.0 - webRise;
    if (!IsUsable(flange, out) || !(flange.thickness < depth) || !(end > 0.0)) return {};
    const double low = -depth / 2.0;
    const double high = depth / 2.0;
    const double root = web / 2.0 + webRise;
    Corners right = {{end, low, webEdgeRadius},
                     {root, high - flange.thickness - rise, flange.filletRadius},
                     {flange.width / 2.0, high - flange.thickness + rise, flange.edgeRadius},
                     {flange.width / 2.0, high}};
    for (std::size_t i = right.size(); i-- > 0;)
        right.push_back({-right[i].x, right[i].y, right[i].radius});
    return Outline(right);
}

Profile UShape(double depth, double web, const Flange& flange) {
    const double out = flange.width - web;
    const double rise = Rise(out, flange.slope);
    if (!(web > 0.0) || !IsUsable(flange, out) || !(2.0 * (flange.thickness + rise) < depth)) return {};
    const double width = flange.width;
    const double t = flange.thickness;
    return Outline(Centred({{0.0, 0.0},
                            {width, 0.0},
                            {width, t - rise, flange.edgeRadius},
                            {web, t + rise, flange.filletRadius},
                            {web, depth - t - rise, flange.filletRadius},
                            {width, depth - t + rise, flange.edgeRadius},
                            {width, depth},
                            {0.0, depth}},
                           width, depth));
}

Profile LShape(double depth, const Flange& leg) {
    const double t = leg.thickness;
    const double acrossRise = Rise(leg.width - t, leg.slope);
    const double upRise = Rise(depth - t, leg.slope);
    if (!IsUsable(leg, leg.width - t) || !IsUsable(leg, depth - t)) return {};
    // The inner sides are x = t + upRise - slope (y - t) and y = t + acrossRise - slope (x - t).
    const double slope = std::tan(leg.slope);
    const double root = t + (upRise - slope * acrossRise) / (1.0 - slope * slope);
    const double rootAcross = t + (acrossRise - slope * upRise) / (1.0 - slope * slope);
    return Outline(Centred({{0.0, 0.0},
                            {leg.width, 0.0},
                            {leg.width, t - acrossRise, leg.edgeRadius},
                            {root, rootAcross, leg.filletRadius},
                            {t - upRise, depth, leg.edgeRadius},
                            {0.0, depth}},
                           leg.width, depth));
}

Profile ZShape(double depth, double web, const Flange& flange) {
    const double t = flange.thickness;
    const double width = 2.0 * flange.width - web;
    if (!(web > 0.0) || !IsUsable(flange, flange.width - web) || !(2.0 * t < depth)) return {};
    const double left = flange.width - web;
    const double right = flange.width;
    return Outline(Centred({{left, 0.0},
                            {width, 0.0},
                            {width, t, flange.edgeRadius},
                            {right, t, flange.filletRadius},
                            {right, depth},
                            {0.0, depth},
                            {0.0, depth - t, flange.edgeRadius},
                            {left, depth - t, flange.filletRadius}},
                           width, depth));
}

Profile CShape(double depth, double width, double wall, double girth, double innerRadius) {
    if (!(wall > 0.0) || !(girth >= wall) || !(2.0 * wall < width) || !(2.0 * girth < depth)) return {};
    const double outer = innerRadius > 0.0 ? innerRadius + wall : 0.0;
    const double x = width - wall;
    const double y = depth - wall;
    return Outline(Centred({{0.0, 0.0, outer},
                            {width, 0.0, outer},
                            {width, girth},
                            {x, girth},
                            {x, wall, innerRadius},
                            {wall, wall, innerRadius},
                            {wall, y, innerRadius},
                            {x, y, innerRadius},
                            {x, depth - girth},
                            {width, depth - girth},
                            {width, depth, outer},
                            {0.0, depth, outer}},
                           width, depth));
}

} // namespace workbench::geometry
