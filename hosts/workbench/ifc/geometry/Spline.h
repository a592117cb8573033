// B-spline curves, rational ones too, as polylines by de Boor's algorithm.
#pragma once

#include <vector>

#include "workbench/ifc/geometry/Curve.h"

namespace workbench::geometry {

struct Spline {
    int degree = 0;
    std::vector<Vector3> controlPoints;
    std::vector<double> weights; ///< of the control points; empty where all are equal
    std::vector<double> knots;   ///< each as often as it counts, ascending; control points + degree + 1
};

/// True where the counts fit, the degree is 1 to 32, knots ascend and weights are above 0.
[[nodiscard]] bool IsValid(const Spline& spline);

/// From the parameter FROM to TO, cut at the knots where the spline begins and ends. Empty where SPLINE is not valid.
[[nodiscard]] Curve ToCurve(const Spline& spline, double from, double to);
/// All of it.
[[nodiscard]] Curve ToCurve(const Spline& spline);

/// Knots 0 and 1 of full multiplicity at the ends, evenly spaced between; what a file without knots means.
[[nodiscard]] std::vector<double> EvenKnots(std::size_t controlPoints, int degree);

} // namespace workbench::geometry
