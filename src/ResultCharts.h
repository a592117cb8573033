// The palette's two charts: how the categories share the GWP, and the actual impact beside the standards' thresholds.
// The lists behind them, which the result report object takes over, are made with the results, painted or not.
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

    /// Takes what the charts show: the shares of the results, the standards' thresholds and the actual impact in their
    /// unit. An impact that is not finite is left out.
    void Rebuild(const lca::Results& results, const lca::LCAProjectData& record);

    // Each draws what was taken last into the area of a user item, which it first fills white.
    void DrawPieChart(host::NativeContext& context, const host::Rectangle& area) const;
    void DrawBarChart(host::NativeContext& context, const host::Rectangle& area) const;

    /// Percent by category; empty where the pie has nothing to draw, and before the first rebuild.
    const std::vector<double>& GetPieValues() const { return pieValues; }
    /// Largest first.
    const std::vector<lca::BarEntry>& GetBarEntries() const { return barEntries; }

private:
    lca::ChartFont MeasureFont() const;

    host::Host& host;
    std::array<double, lca::CategoryCount> gwps{}; ///< kg CO2eq by category
    std::array<host::Colour, lca::CategoryCount> colours{};
    std::vector<double> pieValues;
    std::vector<lca::BarEntry> barEntries;
};
