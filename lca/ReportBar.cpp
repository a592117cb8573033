#include "lca/ReportBar.h"

#include <algorithm>
#include <cmath>

namespace lca {

namespace {

constexpr double ZeroLineLeft = 6.0;   ///< without negative values
constexpr double ZeroLineMargin = 4.0; ///< of the width over which the zero line moves
constexpr double ZeroLineWidth = 1.0;
constexpr double BarMargin = 10.0;      ///< of the width that the range takes
constexpr double LongestCut = 5.0;      ///< so that the longest bar never touches the border
constexpr double LongestCutBoth = 10.0; ///< the same where bars go both ways

} // namespace

BarScale FindBarScale(const std::vector<double>& values) {
    if (values.empty()) return {};
    const auto [minimum, maximum] = std::minmax_element(values.begin(), values.end());
    return {*minimum, *maximum};
}

ReportBar ComputeReportBar(double value, const BarScale& scale, double cellWidth) {
    const bool hasNegative = scale.minimum < 0.0;
    // Without a positive value the range ends at 0, which is where the bars begin.
    const double range = std::max(scale.maximum, 0.0) - std::min(scale.minimum, 0.0);
    if (!(range > 0.0)) return {ZeroLineLeft, ZeroLineLeft, ZeroLineLeft};
    const double lastLine = std::max(cellWidth - ZeroLineWidth, 0.0);
    double zero = ZeroLineLeft;
    if (hasNegative) zero += std::fabs(scale.minimum) * (cellWidth - ZeroLineMargin) / range;
    zero = std::min(zero, lastLine);
    double length = (cellWidth - BarMargin) * std::fabs(value) / range;
    if (std::fabs(value) == scale.maximum) length -= hasNegative ? LongestCutBoth : LongestCut;
    length = std::max(length, 0.0);
    if (value < 0.0) return {zero, zero - length, zero};
    return {zero, zero, std::min(zero + length, lastLine)};
}

} // namespace lca
