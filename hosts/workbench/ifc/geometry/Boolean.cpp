#include "workbench/ifc/geometry/Boolean.h"

#include <iterator>

namespace workbench::geometry {
namespace {

/// Of its diagonal, by how much the region in which a body is looked at goes beyond the other body.
constexpr double RegionMargin = 0.01;
constexpr double LeastMarginM = 1e-3;

/// What becomes of the pieces of one operand.
struct Rule {
    bool keepsOutside = false;
    bool keepsInside = false;
    bool keepsSame = false;
    bool keepsOpposite = false;

    [[nodiscard]] bool Keeps(Place place) const {
        switch (place) {
        case Place::Outside:
            return keepsOutside;
        case Place::Inside:
            return keepsInside;
        case Place::OnSame:
            return keepsSame;
        case Place::OnOpposite:
            return keepsOpposite;
        }
        return false;
    }
};

/// Where surfaces lie on each other, A gives the result's.
struct Rules {
    Rule a, b;
    bool turnsB = false;
};

constexpr Rules RulesOf(Operation operation) {
    switch (operation) {
    case Operation::Subtract:
        return {{true, false, false, true}, {false, true, false, false}, true};
    case Operation::Intersect:
        return {{false, true, true, false}, {false, true, false, false}, false};
    case Operation::Unite:
        return {{true, false, true, false}, {true, false, false, false}, false};
    }
    return {};
}

/// A closed body as seen by another that lies within BOX: a tree of what of its surface is near.
class Surroundings {
public:
    Surroundings(const Polygons& polygons, const Box& box, Budget& budget)
        : reach(Grown(GetBox(polygons), OnPlaneM)),
          near(Clip(polygons, Grown(box, std::max(LeastMarginM, RegionMargin * box.GetDiagonal())))),
          isAllInside(near.empty() && IsInside(box.GetCentre(), polygons)), tree(near, budget) {}

    /// Adds the pieces of POLYGON that RULE keeps; all of it uncut where it keeps each piece.
    void Select(ConvexPolygon&& polygon, const Rule& rule, Budget& budget, Polygons& kept) const {
        if (near.empty() || !DoTouch(polygon.box, reach)) {
            if (rule.Keeps(isAllInside ? Place::Inside : Place::Outside)) kept.push_back(std::move(polygon));
            return;
        }
        std::vector<PlacedPiece> pieces = tree.Cut(polygon, budget);
        const auto isKept = [&](const PlacedPiece& piece) { return rule.Keeps(piece.place); };
        if (std::all_of(pieces.begin(), pieces.end(), isKept)) {
            kept.push_back(std::move(polygon));
            return;
        }
        for (PlacedPiece& piece : pieces)
            if (isKept(piece)) kept.push_back(std::move(piece.polygon));
    }

private:
    Box reach;
    Polygons near;
    bool isAllInside; ///< only where nothing of the surface is near
    BspTree tree;
};

/// By how much the true volume of the result differs from that of its faces; arguments are volumes by faces.
double RatioOf(Operation operation, const Operand& a, const Operand& b, double volumeOfA, double result) {
    const double ratios = a.volumeRatio * b.volumeRatio;
    if (operation == Operation::Intersect || !(result > 0.0)) return ratios;
    if (operation == Operation::Subtract) return (volumeOfA * a.volumeRatio - (volumeOfA - result) * ratios) / result;
    const double volumeOfB = GetSignedVolumeM3(b.polygons);
    const double common = volumeOfA + volumeOfB - result;
    return (volumeOfA * a.volumeRatio + volumeOfB * b.volumeRatio - common * ratios) / result;
}

using Operands = std::vector<Operand>;

std::optional<Operands> SubtractAll(Operands a, const Operands& b, Budget& budget) {
    for (Operand& whole : a) {
        for (const Operand& cutter : b) {
            std::optional<Operand> rest = Combine(Operation::Subtract, std::move(whole), cutter, budget);
            if (!rest) return std::nullopt;
            whole = std::move(*rest);
        }
    }
    return a;
}

std::optional<Operands> IntersectAll(const Operands& a, const Operands& b, Budget& budget) {
    Operands common;
    for (const Operand& first : a) {
        for (const Operand& second : b) {
            std::optional<Operand> both = Combine(Operation::Intersect, first, second, budget);
            if (!both) return std::nullopt;
            if (!both->polygons.empty()) common.push_back(std::move(*both));
        }
    }
    return common;
}

/// Solids that touch become one.
std::optional<Operands> UniteAll(Operands a, const Operands& b, Budget& budget) {
    for (Operand grown : b) {
        Operands apart;
        for (Operand& known : a) {
            if (!DoTouch(GetBox(known.polygons), GetBox(grown.polygons))) {
                apart.push_back(std::move(known));
                continue;
            }
            std::optional<Operand> both = Combine(Operation::Unite, std::move(known), grown, budget);
            if (!both) return std::nullopt;
            grown = std::move(*both);
        }
        apart.push_back(std::move(grown));
        a = std::move(apart);
    }
    return a;
}

std::optional<Operands> CombineAll(Operation operation, Operands a, const Operands& b, Budget& budget) {
    if (operation == Operation::Subtract) return SubtractAll(std::move(a), b, budget);
    if (operation == Operation::Intersect) return IntersectAll(a, b, budget);
    return UniteAll(std::move(a), b, budget);
}

Body GivenUp(Body body) {
    body.status = BodyStatus::GivenUp;
    return body;
}

} // namespace

std::optional<Polygons> Combine(Operation operation, Polygons a, const Polygons& b, Budget& budget) {
    const Rules rules = RulesOf(operation);
    const Surroundings aroundA(b, GetBox(a), budget);
    const Surroundings aroundB(a, GetBox(b), budget);
    Polygons result;
    for (ConvexPolygon& polygon : a)
        aroundA.Select(std::move(polygon), rules.a, budget, result);
    for (const ConvexPolygon& polygon : b)
        aroundB.Select(rules.turnsB ? Turned(polygon) : ConvexPolygon(polygon), rules.b, budget, result);
    budget.CountOperand(result.size());
    if (budget.IsExceeded()) return std::nullopt;
    return result;
}

double GetVolumeM3(const Operand& operand) {
    return GetSignedVolumeM3(operand.polygons) * operand.volumeRatio;
}

std::optional<std::vector<Operand>> ToOperands(const Body& body, const Vector3& origin) {
    std::vector<Operand> operands;
    for (const Solid& solid : body.solids) {
        std::optional<Polygons> polygons = ToPolygons(Transformed(solid.shell, MoveBy(-origin)));
        if (!polygons) return std::nullopt;
        operands.push_back({std::move(*polygons), solid.volumeRatio});
    }
    return operands;
}

Body ToBody(const std::vector<Operand>& operands, const Vector3& origin) {
    Body body;
    for (const Operand& operand : operands)
        if (GetVolumeM3(operand) > 0.0)
            body.solids.push_back({Transformed(ToShell(operand.polygons), MoveBy(origin)), operand.volumeRatio});
    if (!body.solids.empty()) body.status = BodyStatus::Solid;
    return body;
}

std::optional<Operand> Combine(Operation operation, Operand a, const Operand& b, Budget& budget) {
    const double volumeOfA = GetSignedVolumeM3(a.polygons);
    std::optional<Polygons> result = Combine(operation, std::move(a.polygons), b.polygons, budget);
    if (!result) return std::nullopt;
    const double ratio = RatioOf(operation, a, b, volumeOfA, GetSignedVolumeM3(*result));
    return Operand{std::move(*result), ratio};
}

Body Combine(Operation operation, const Body& a, const Body& b, const BooleanLimits& limits) {
    const Vector3 origin = GetBox(a).GetCentre();
    std::optional<Operands> first = ToOperands(a, origin);
    const std::optional<Operands> second = ToOperands(b, origin);
    if (!first || !second) return GivenUp(a);
    Budget budget(limits);
    const std::optional<Operands> result = CombineAll(operation, std::move(*first), *second, budget);
    if (!result) return GivenUp(a);
    Body body = ToBody(*result, origin);
    body.capAreaM2 = a.capAreaM2;
    if (!body.solids.empty()) body.status = std::max({body.status, a.status, b.status});
    return body;
}

} // namespace workbench::geometry
