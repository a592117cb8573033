// Geometry of the bar that a row of the material report shows: pure pixels, no drawing.
#pragma once

#include <vector>

namespace lca {

/// Smallest and largest value of the rows that share a scale.
struct BarScale {
    double minimum = 0.0;
    double maximum = 0.0;
};

BarScale FindBarScale(const std::vector<double>& values);

/// Pixels from the cell's left edge; left <= right.
struct ReportBar {
    double zeroLine = 0.0;
    double left = 0.0;
    double right = 0.0;
};

/// The bar of a value in a cell of this width: to the right of the zero line, or to its left for a negative value.
/// Where all values are 0 it has no length.
ReportBar ComputeReportBar(double value, const BarScale& scale, double cellWidth);

} // namespace lca
