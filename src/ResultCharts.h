// The palette's two charts: how the categories share the GWP, and the actual impact beside the standards' thresholds.
// Drawing a chart also renews the list behind it, which the result report object takes over.
#pragma once

#include "host/Drawing.h"
#include "host/Host.h"
#include "lca/ChartGeometry.h"
#include "lca/LCAProjectData.h"
#include "lca/ResultTable.h"

#include <vector>

class ResultCharts {
public:
    explicit ResultCharts(host::Host& host) : host(host) {}

    // Each draws into the area of a user item, which it first fills white.
    void DrawPieChart(host::NativeContext& context, const host::Rectangle& area, const lca::Results& results,
                      const lca::LCAProjectData& record);
    void DrawBarChart(host::NativeContext& context, const host::Rectangle& area, const lca::Results& results,
                      const lca::LCAProjectData& record);

    /// The standards' thresholds in the record's order, then the actual impact in their unit.
    void RebuildBarEntries(const lca::Results& results, const lca::LCAProjectData& record);

    /// Percent by category; empty where the pie had nothing to draw, and before the first drawing.
    const std::vector<double>& GetPieValues() const { return pieValues; }
    /// Sorted by the drawing of the bars.
    const std::vector<lca::BarEntry>& GetBarEntries() const { return barEntries; }

private:
    lca::ChartFont MeasureFont() const;

    host::Host& host;
    std::vector<double> pieValues;
    std::vector<lca::BarEntry> barEntries;
};
