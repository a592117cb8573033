// Geometry of the two result charts: the shares of the categories as a pie, and the actual impact as a bar beside the
// standards' thresholds. Pure: values, rectangle and a text measure in, shapes out. Coordinates are pixels in the
// rectangle's own system, y downwards; angles are radians from the positive x axis towards the positive y axis.
#pragma once

#include "lca/Categories.h"

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace lca {

/// Whole pixels.
struct ChartArea {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// How the chart's font measures, in pixels.
struct ChartFont {
    std::function<double(const std::string&)> measureWidth;
    double capitalHeight = 0.0;
};

struct ChartBox {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

/// A text centred in its box, which may be smaller than the text.
struct ChartLabel {
    std::string text;
    ChartBox box;
};

struct PieSlice {
    double startAngle = 0.0;
    double sweep = 0.0; ///< reaches a little back into the slice before
    ChartLabel label;   ///< its share in whole percent
};

/// Without slices there is nothing to draw but the background.
struct PieChart {
    double centreX = 0.0;
    double centreY = 0.0;
    double radius = 0.0;
    std::vector<PieSlice> slices; ///< by category
};

/// Percent by category; empty where the sum of the values is not positive or not finite.
std::vector<double> ComputePieShares(const std::array<double, CategoryCount>& gwps);

/// A slice for each share; none where there are no shares.
PieChart LayOutPieChart(const std::array<double, CategoryCount>& gwps, const ChartArea& area, const ChartFont& font);

/// Name and value: a standard's threshold, or the actual impact.
using BarEntry = std::pair<std::string, double>;

/// Largest first; of equal values the one that was behind comes first.
void SortBarEntries(std::vector<BarEntry>& entries);

/// A name that runs down to the right from its place and is cut at a width.
struct SlantedLabel {
    std::string text;
    double x = 0.0;
    double y = 0.0;
    double angle = 0.0;
    double maximumWidth = 0.0;
};

struct ChartBar {
    ChartBox box; ///< top above bottom for a positive value
    ChartLabel value;
    SlantedLabel name;
};

/// Bars of sorted entries, in their order; none for fewer than two. Heights are relative to the first value, whatever
/// that is: where it is 0 they are no numbers.
std::vector<ChartBar> LayOutBarChart(const std::vector<BarEntry>& sorted, const ChartArea& area, const ChartFont& font,
                                     const std::function<std::string(double)>& formatNumber);

} // namespace lca
