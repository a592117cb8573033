#include "workbench/ifc/bodies/Curves.h"

#include <numbers>

#include "workbench/ifc/bodies/Placements.h"
#include "workbench/ifc/geometry/Spline.h"

namespace workbench::bodies {
namespace {

using entities::Entity;
using geometry::Curve;
using geometry::Transform;
using geometry::Vector3;

constexpr double FullTurn = 2.0 * std::numbers::pi;
/// A trim's parameter that is further than this from its point, in radians, is wrong.
constexpr double MostOffRad = 0.01;
constexpr std::size_t MostSegments = 100'000;

Curve ReadCurve(const Context& context, const Entity& curve, int depth);

Curve Polyline(std::vector<Vector3> points) {
    return {std::move(points), {}, 0.0};
}

Curve ReadPolyline(const Context& context, const Entity& curve) {
    std::vector<Vector3> points;
    for (const Entity& point : curve.GetEntities("Points"))
        points.push_back(ReadPoint(context, point));
    return Polyline(std::move(points));
}

// Curves over a list of points

std::vector<Vector3> PickPoints(const step::Value& indices, const std::vector<Vector3>& points) {
    std::vector<Vector3> picked;
    for (const step::Value& item : indices) {
        const std::int64_t index = item.GetInteger().value_or(0);
        if (index >= 1 && index <= static_cast<std::int64_t>(points.size()))
            picked.push_back(points[static_cast<std::size_t>(index - 1)]);
    }
    return picked;
}

bool IsNamed(std::string_view written, std::string_view upper) {
    return std::equal(written.begin(), written.end(), upper.begin(), upper.end(),
                      [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

Curve ReadIndexedCurve(const Context& context, const Entity& curve) {
    const std::vector<Vector3> points = ReadPointList(context, curve.GetEntity("Points"));
    const step::Value segments = curve.Get("Segments");
    if (segments.IsMissing()) return Polyline(points);
    std::vector<Curve> parts;
    for (const step::Value& segment : segments) {
        const std::vector<Vector3> own = PickPoints(segment.GetContent(), points);
        const bool isArc = IsNamed(segment.GetTypeName(), "IFCARCINDEX") && own.size() == 3;
        parts.push_back(isArc ? geometry::ArcThrough(own[0], own[1], own[2]) : Polyline(own));
    }
    return Join(parts);
}

// Circles, ellipses and what is cut out of them

/// centre + cos(t) a + sin(t) b
struct Conic {
    Vector3 centre, a, b;

    [[nodiscard]] double GetParameter(const Vector3& point) const {
        const Vector3 arm = point - centre;
        return std::atan2(Dot(arm, b) / Dot(b, b), Dot(arm, a) / Dot(a, a));
    }
};

Conic ReadConic(const Context& context, const Entity& curve) {
    const Transform place = ReadPlacement(context, curve.GetEntity("Position"));
    const double length = context.units.lengthM;
    const bool isCircle = curve.IsA("IfcCircle");
    const double first = curve.GetReal(isCircle ? "Radius" : "SemiAxis1").value_or(0.0) * length;
    const double second = isCircle ? first : curve.GetReal("SemiAxis2").value_or(0.0) * length;
    return {place.origin, place.x * first, place.y * second};
}

/// One end of a trimmed curve, as far as the file says it.
struct Trim {
    std::optional<double> parameter;
    std::optional<Vector3> point;
};

Trim ReadTrim(const Context& context, const step::Value& trims) {
    Trim trim;
    for (const step::Value& value : trims) {
        const Entity point = context.model.Resolve(value);
        if (point.IsA("IfcCartesianPoint")) trim.point = ReadPoint(context, point);
        if (const auto parameter = value.GetNumber()) trim.parameter = parameter;
    }
    return trim;
}

/// Between two directions, at most half a turn.
double AngleBetween(double a, double b) {
    return std::abs(std::remainder(a - b, FullTurn));
}

double AngleOf(const Context& context, const Conic& conic, const Trim& trim) {
    const double byPoint = trim.point ? conic.GetParameter(*trim.point) : 0.0;
    if (!trim.parameter) return byPoint;
    const double byParameter = context.units.ToRadians(*trim.parameter);
    return trim.point && AngleBetween(byPoint, byParameter) > MostOffRad ? byPoint : byParameter;
}

/// Forward from START to END; ends that are one are those of a full turn.
double SweepBetween(double start, double end) {
    const double sweep = std::fmod(end - start, FullTurn);
    return sweep <= 1e-9 ? sweep + FullTurn : sweep;
}

Curve TrimConic(const Context& context, const Conic& conic, const Trim& from, const Trim& to, bool isForward) {
    const double start = AngleOf(context, conic, from);
    const double end = AngleOf(context, conic, to);
    const double sweep = isForward ? SweepBetween(start, end) : -SweepBetween(end, start);
    return geometry::ConicArc(conic.centre, conic.a, conic.b, start, sweep);
}

// Splines

geometry::Spline ReadSpline(const Context& context, const Entity& curve) {
    geometry::Spline spline;
    spline.degree = static_cast<int>(std::clamp(curve.GetReal("Degree").value_or(0.0), 0.0, 1000.0));
    for (const Entity& point : curve.GetEntities("ControlPointsList"))
        spline.controlPoints.push_back(ReadPoint(context, point));
    for (const step::Value& weight : curve.Get("WeightsData"))
        spline.weights.push_back(weight.GetNumber().value_or(0.0));
    const step::Value multiplicities = curve.Get("KnotMultiplicities");
    auto knot = curve.Get("Knots").begin();
    const std::size_t most = spline.controlPoints.size() + static_cast<std::size_t>(spline.degree) + 1;
    for (const step::Value& times : multiplicities) {
        if (knot == step::Value::end()) break;
        for (std::int64_t i = 0; i < times.GetInteger().value_or(0) && spline.knots.size() <= most; ++i)
            spline.knots.push_back((*knot).GetNumber().value_or(0.0));
        ++knot;
    }
    if (multiplicities.IsMissing()) spline.knots = geometry::EvenKnots(spline.controlPoints.size(), spline.degree);
    return spline;
}

// Trimmed curves

Vector3 PointOnLine(const Context& context, const Entity& line, const Trim& trim) {
    if (trim.point) return *trim.point;
    const Entity vector = line.GetEntity("Dir");
    const double magnitude = vector.GetReal("Magnitude").value_or(1.0) * context.units.lengthM;
    const Vector3 direction = geometry::Unit(ReadDirection(vector.GetEntity("Orientation")));
    return ReadPoint(context, line.GetEntity("Pnt")) + direction * (magnitude * trim.parameter.value_or(0.0));
}

Curve ReadTrimmedCurve(const Context& context, const Entity& curve, int depth) {
    const Entity basis = curve.GetEntity("BasisCurve");
    const Trim from = ReadTrim(context, curve.Get("Trim1"));
    const Trim to = ReadTrim(context, curve.Get("Trim2"));
    if (basis.IsA("IfcLine")) return Polyline({PointOnLine(context, basis, from), PointOnLine(context, basis, to)});
    if (basis.IsA("IfcConic"))
        return TrimConic(context, ReadConic(context, basis), from, to,
                         curve.Get("SenseAgreement").GetLogical().value_or(true));
    Curve whole = ReadCurve(context, basis, depth + 1);
    if (!from.parameter || !to.parameter) {
        context.remarks.insert("A trimmed " + std::string(basis.GetTypeName()) + " is taken whole.");
        return whole;
    }
    if (basis.IsA("IfcBSplineCurve"))
        return geometry::ToCurve(ReadSpline(context, basis), *from.parameter, *to.parameter);
    return geometry::TrimPolyline(whole.points, *from.parameter, *to.parameter);
}

// Curves of curves

double Gap(const Vector3& a, const Vector3& b) {
    return Length(a - b);
}

/// Turns segments whose flag says the wrong direction, so that each begins where the one before it ends.
void Straighten(std::vector<Curve>& segments) {
    for (std::size_t i = 0; i < segments.size(); ++i) {
        const std::size_t other = i > 0 ? i - 1 : 1;
        if (other >= segments.size()) return;
        const Vector3 first = segments[i].points.front();
        const Vector3 last = segments[i].points.back();
        const Curve& neighbour = segments[other];
        const Vector3 end = neighbour.points.back();
        const Vector3 start = neighbour.points.front();
        const bool isTurned =
            i > 0 ? Gap(end, last) < Gap(end, first)
                  : std::min(Gap(first, start), Gap(first, end)) < std::min(Gap(last, start), Gap(last, end));
        if (isTurned) segments[i] = Reversed(std::move(segments[i]));
    }
}

Curve ReadCompositeCurve(const Context& context, const Entity& curve, int depth) {
    std::vector<Curve> segments;
    for (const Entity& segment : curve.GetEntities("Segments")) {
        if (segments.size() > MostSegments) return {};
        Curve part = ReadCurve(context, segment.GetEntity("ParentCurve"), depth + 1);
        if (part.points.size() < 2) continue;
        const bool isForward = segment.Get("SameSense").GetLogical().value_or(true);
        segments.push_back(isForward ? std::move(part) : Reversed(std::move(part)));
    }
    Straighten(segments);
    return Join(segments);
}

Curve ReadCurve(const Context& context, const Entity& curve, int depth) {
    if (!context.MayEnter(depth)) return {};
    if (curve.IsA("IfcPolyline")) return ReadPolyline(context, curve);
    if (curve.IsA("IfcIndexedPolyCurve")) return ReadIndexedCurve(context, curve);
    if (curve.IsA("IfcTrimmedCurve")) return ReadTrimmedCurve(context, curve, depth);
    if (curve.IsA("IfcCompositeCurve")) return ReadCompositeCurve(context, curve, depth);
    if (curve.IsA("IfcConic")) {
        const Conic conic = ReadConic(context, curve);
        return geometry::ConicArc(conic.centre, conic.a, conic.b, 0.0, FullTurn);
    }
    if (curve.IsA("IfcBSplineCurve")) return geometry::ToCurve(ReadSpline(context, curve));
    if (curve.IsA("IfcSurfaceCurve")) return ReadCurve(context, curve.GetEntity("Curve3D"), depth + 1);
    RemarkNotComputed(context, curve);
    return {};
}

} // namespace

Curve ReadCurve(const Context& context, const Entity& curve) {
    return ReadCurve(context, curve, 0);
}

} // namespace workbench::bodies
