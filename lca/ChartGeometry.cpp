#include "lca/ChartGeometry.h"

#include "lca/Numbers.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace lca {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double PieShare = 0.8;            ///< of the half width or height that the radius takes
constexpr double LabelDistance = 14.0;      ///< from the pie's edge
constexpr double SliceOverlap = Pi / 100.0; ///< so that no gap shows between two slices
constexpr double LabelMargin = 1.0;         ///< on each side of a label
constexpr double NameAngle = Pi / 6.0;      ///< by which the names below the bars are turned
constexpr double NameLimitAngle = Pi / 3.0; ///< of which sine and cosine bound and place the names
constexpr double NameGap = 5.0;             ///< between base line and names
constexpr double NameBottomMargin = 10.0;
constexpr double ValueTop = 20.0, ValueBottom = 5.0; ///< of a value's box above its bar

ChartLabel CentreOn(double x, double y, const std::string& text, const ChartFont& font) {
    const double halfWidth = font.measureWidth(text) / 2.0 + LabelMargin;
    const double halfHeight = font.capitalHeight / 2.0 + LabelMargin;
    return {text, {x - halfWidth, y - halfHeight, x + halfWidth, y + halfHeight}};
}

double FindNameLimit(const std::vector<BarEntry>& entries, double available, const ChartFont& font) {
    double longest = 0.0;
    for (const BarEntry& entry : entries)
        longest = std::max(longest, font.measureWidth(entry.first));
    return std::min(longest, available / std::sin(NameLimitAngle));
}

} // namespace

std::vector<double> ComputePieShares(const std::array<double, CategoryCount>& gwps) {
    const double sum = std::accumulate(gwps.begin(), gwps.end(), 0.0);
    std::vector<double> shares;
    if (!(sum > 0.0) || !std::isfinite(sum)) return shares;
    for (const double gwp : gwps)
        shares.push_back(gwp / sum * 100.0);
    return shares;
}

PieChart LayOutPieChart(const std::array<double, CategoryCount>& gwps, const ChartArea& area, const ChartFont& font) {
    PieChart chart;
    chart.centreX = area.left + area.width / 2.0;
    chart.centreY = area.top + area.height / 2.0;
    chart.radius = std::trunc(PieShare * std::min(area.width / 2.0, area.height / 2.0));
    double before = 0.0; // share of the slices before this one
    for (const double percent : ComputePieShares(gwps)) {
        const double share = percent / 100.0;
        PieSlice slice;
        slice.startAngle = before * 2.0 * Pi - Pi / 2.0 - SliceOverlap;
        slice.sweep = share * 2.0 * Pi + SliceOverlap;
        const double labelAngle = slice.startAngle + share * Pi + SliceOverlap;
        const double labelRadius = chart.radius + LabelDistance;
        slice.label = CentreOn(chart.centreX + labelRadius * std::cos(labelAngle),
                               chart.centreY + labelRadius * std::sin(labelAngle), WriteFixed(percent, 0) + "%", font);
        chart.slices.push_back(std::move(slice));
        before += share;
    }
    return chart;
}

void SortBarEntries(std::vector<BarEntry>& entries) {
    // By insertion, which comes to an end in a told order also where a value is no number.
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const auto isNotAbove = [&](const BarEntry& earlier) { return earlier.second <= entry->second; };
        std::rotate(std::find_if(entries.begin(), entry, isNotAbove), entry, entry + 1);
    }
}

std::vector<ChartBar> LayOutBarChart(const std::vector<BarEntry>& sorted, const ChartArea& area, const ChartFont& font,
                                     const std::function<std::string(double)>& formatNumber) {
    std::vector<ChartBar> bars;
    if (sorted.size() < FewestBars) return bars;
    const int bottom = area.top + area.height;
    const int margin = area.width / 15;
    const double usedWidth = area.width - 2 * margin;
    const double slot = usedWidth / static_cast<double>(sorted.size());
    const int halfWidth = area.width / 2;
    const int halfHeight = area.height / 2;
    const double first = area.left + halfWidth - usedWidth / 2.0 + slot / 4.0 + margin / 4.0;
    const double base = bottom - halfHeight;
    const int fullHeight = area.height / 3;
    const double nameLimit = FindNameLimit(sorted, bottom - base - NameBottomMargin, font);
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        const double left = first + static_cast<double>(i) * slot;
        const double right = left + slot / 2.0;
        const double top = base - sorted[i].second / sorted.front().second * fullHeight;
        const double nameX = (left + right) / 2.0 - 3.0 * font.capitalHeight * std::cos(NameLimitAngle);
        bars.push_back({{left, top, right, base},
                        {formatNumber(sorted[i].second), {left, top - ValueTop, right, top - ValueBottom}},
                        {sorted[i].first, nameX, base + NameGap, NameAngle, nameLimit}});
    }
    return bars;
}

} // namespace lca
