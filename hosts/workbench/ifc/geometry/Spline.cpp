#include "workbench/ifc/geometry/Spline.h"

#include <cmath>

namespace workbench::geometry {
namespace {

constexpr int HighestDegree = 32;
constexpr int ChordsPerSpan = 16;

/// A point times its weight, beside the weight.
struct Weighted {
    Vector3 point;
    double weight = 1.0;
};

Weighted Mix(const Weighted& a, const Weighted& b, double share) {
    return {a.point * (1.0 - share) + b.point * share, a.weight * (1.0 - share) + b.weight * share};
}

Weighted ControlPoint(const Spline& spline, std::size_t i) {
    const double weight = spline.weights.empty() ? 1.0 : spline.weights[i];
    return {spline.controlPoints[i] * weight, weight};
}

/// SPAN: knots[span] <= parameter <= knots[span + 1], and they differ.
Vector3 Evaluate(const Spline& spline, std::size_t span, double parameter) {
    const auto degree = static_cast<std::size_t>(spline.degree);
    std::vector<Weighted> row;
    for (std::size_t i = 0; i <= degree; ++i)
        row.push_back(ControlPoint(spline, span - degree + i));
    for (std::size_t level = 1; level <= degree; ++level) {
        for (std::size_t i = degree; i >= level; --i) {
            const double low = spline.knots[span - degree + i];
            const double high = spline.knots[span + 1 + i - level];
            row[i] = Mix(row[i - 1], row[i], (parameter - low) / (high - low));
        }
    }
    return row[degree].point * (1.0 / row[degree].weight);
}

bool AreAscending(const std::vector<double>& knots) {
    for (std::size_t i = 0; i < knots.size(); ++i)
        if (!std::isfinite(knots[i]) || (i > 0 && knots[i] < knots[i - 1])) return false;
    return true;
}

/// Goes on to END over MIDDLE, half way by parameter. What the chord cuts off is that of a parabola through all three.
void AddChord(Curve& curve, const Vector3& middle, const Vector3& end) {
    const Vector3 start = curve.points.back();
    curve.bulge = curve.bulge + Cross(middle - start, end - start) * (2.0 / 3.0);
    curve.extraLengthM += 4.0 / 3.0 * (Length(middle - start) + Length(end - middle) - Length(end - start));
    curve.points.push_back(end);
}

} // namespace

bool IsValid(const Spline& spline) {
    const std::size_t count = spline.controlPoints.size();
    const bool doCountsFit = spline.degree >= 1 && spline.degree <= HighestDegree &&
                             count > static_cast<std::size_t>(spline.degree) &&
                             spline.knots.size() == count + static_cast<std::size_t>(spline.degree) + 1 &&
                             (spline.weights.empty() || spline.weights.size() == count);
    return doCountsFit && AreAscending(spline.knots) &&
           std::all_of(spline.weights.begin(), spline.weights.end(),
                       [](double weight) { return weight > 0.0 && std::isfinite(weight); });
}

Curve ToCurve(const Spline& spline, double from, double to) {
    if (!IsValid(spline)) return {};
    const auto degree = static_cast<std::size_t>(spline.degree);
    Curve curve;
    for (std::size_t span = degree; span < spline.controlPoints.size(); ++span) {
        const double low = std::max(spline.knots[span], std::min(from, to));
        const double high = std::min(spline.knots[span + 1], std::max(from, to));
        if (!(low < high)) continue;
        const auto at = [&](double chords) {
            return Evaluate(spline, span, low + (high - low) * chords / ChordsPerSpan);
        };
        if (curve.points.empty()) curve.points.push_back(at(0.0));
        for (int i = 1; i <= ChordsPerSpan; ++i)
            AddChord(curve, at(i - 0.5), at(i));
    }
    return from <= to ? curve : Reversed(std::move(curve));
}

Curve ToCurve(const Spline& spline) {
    return IsValid(spline) ? ToCurve(spline, spline.knots.front(), spline.knots.back()) : Curve{};
}

std::vector<double> EvenKnots(std::size_t controlPoints, int degree) {
    if (degree < 1 || controlPoints <= static_cast<std::size_t>(degree)) return {};
    const std::size_t ends = static_cast<std::size_t>(degree) + 1;
    const std::size_t spans = controlPoints - static_cast<std::size_t>(degree);
    std::vector<double> knots(ends, 0.0);
    for (std::size_t i = 1; i < spans; ++i)
        knots.push_back(static_cast<double>(i) / static_cast<double>(spans));
    knots.insert(knots.end(), ends, 1.0);
    return knots;
}

} // namespace workbench::geometry
