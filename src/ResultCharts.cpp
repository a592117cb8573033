#include "src/ResultCharts.h"

#include "src/Texts.h"

#include <cmath>

namespace {

constexpr host::Colour White{255, 255, 255}, Black{0, 0, 0};
constexpr host::Colour Blue{0, 0, 255}, LightGray{192, 192, 192};

lca::ChartArea ToArea(const host::Rectangle& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.width, rectangle.height};
}

void FillBackground(host::NativeContext& context, const host::Rectangle& area) {
    context.FillRectangle(area.left, area.top, area.left + area.width, area.top + area.height, White);
}

host::Colour GetColour(const lca::LCAProjectData& record, lca::ElementCategory category) {
    const lca::Colour colour = lca::ValueOr(record.elementColours, category, lca::Colour());
    return {colour.red, colour.green, colour.blue};
}

void DrawLabel(host::NativeContext& context, const lca::ChartLabel& label) {
    context.DrawBoxedText({label.text, label.box.left, label.box.top, label.box.right, label.box.bottom}, Black);
}

} // namespace

void ResultCharts::Rebuild(const lca::Results& results, const lca::LCAProjectData& record) {
    for (std::size_t i = 0; i < lca::CategoryCount; ++i) {
        gwps[i] = results.categories[i].gwp;
        colours[i] = GetColour(record, lca::CategoryRows[i].category);
    }
    pieValues = lca::ComputePieShares(gwps);
    barEntries.clear();
    for (const lca::Standard& standard : record.standards)
        barEntries.emplace_back(standard.name, standard.limit);
    const double impact = lca::GetTotalInUnit(results, record.standardsUnit);
    if (std::isfinite(impact)) barEntries.emplace_back(ReadText(host, ResourceIds::Report::ActualImpact), impact);
    lca::SortBarEntries(barEntries);
}

void ResultCharts::DrawPieChart(host::NativeContext& context, const host::Rectangle& area) const {
    FillBackground(context, area);
    const lca::PieChart pie = lca::LayOutPieChart(gwps, ToArea(area), MeasureFont());
    for (std::size_t i = 0; i < pie.slices.size(); ++i) {
        const lca::PieSlice& slice = pie.slices[i];
        context.FillSector(pie.centreX, pie.centreY, pie.radius, slice.startAngle, slice.sweep, colours[i]);
        DrawLabel(context, slice.label);
    }
}

void ResultCharts::DrawBarChart(host::NativeContext& context, const host::Rectangle& area) const {
    FillBackground(context, area);
    const std::string actualImpact = ReadText(host, ResourceIds::Report::ActualImpact);
    const auto format = [&](double value) { return FormatNumber(host, value); };
    for (const lca::ChartBar& bar : lca::LayOutBarChart(barEntries, ToArea(area), MeasureFont(), format)) {
        // Without a positive reference value heights need not be numbers; then only the texts can be placed.
        if (std::isfinite(bar.box.top)) {
            context.FillRectangle(bar.box.left, bar.box.top, bar.box.right, bar.box.bottom,
                                  bar.name.text == actualImpact ? Blue : LightGray);
            DrawLabel(context, bar.value);
        }
        context.DrawSlantedText({bar.name.text, bar.name.x, bar.name.y, bar.name.angle, bar.name.maximumWidth}, Black);
    }
}

lca::ChartFont ResultCharts::MeasureFont() const {
    host::TextMeasuring& measuring = host.GetTextMeasuring();
    return {[&measuring](const std::string& text) { return measuring.MeasureWidth(text); },
            measuring.ReadCapitalHeight()};
}
