// Charts of every kind, two to a row of the sheet.
#include "gallery/Gallery.h"

#include <algorithm>

namespace gallery {

namespace {

using namespace Xlsx;

constexpr const char* SeriesColours[] = {"4F81BD", "C0504D", "9BBB59"};

void WriteData(CWorksheet& sheet) {
    static constexpr const char* Names[] = {"Walls", "Slabs", "Roof", "Doors", "Windows", "Stairs"};
    static constexpr double Values[][3] = {{12.5, 8, 1}, {9.25, 11, 4}, {6, 3.5, 9},
                                           {2, 4, 16},   {4.75, 1, 25}, {-1.5, 2, 36}};
    sheet.BeginRow();
    for (const char* header : {"Part", "Product", "Use", "End of life"}) {
        sheet.AddCell(header);
    }
    for (unsigned i = 0; i < 6; ++i) {
        sheet.BeginRow();
        sheet.AddCell(Names[i]);
        for (const double value : Values[i]) {
            sheet.AddCell(value);
        }
    }
}

Series DataSeries(unsigned column) {
    const std::string letter(1, static_cast<char>('B' + column));
    Series series;
    series.name = std::vector<std::string>{"Product", "Use", "End of life"}[column];
    series.nameReference = "Data!$" + letter + "$1";
    series.categories = "Data!$A$2:$A$7";
    series.values = "Data!$" + letter + "$2:$" + letter + "$7";
    series.fill = SolidFill{SeriesColours[column]};
    series.line.fill = SolidFill{SeriesColours[column]};
    return series;
}

class ChartPage {
public:
    ChartPage(CWorkbook& workbook, CWorksheet& sheet) : workbook(workbook), sheet(sheet) {}

    CChart& Add(const std::string& title, DiagramKind kind, unsigned seriesCount) {
        const unsigned column = 5 + count % 2 * 8;
        const unsigned row = count / 2 * 16;
        ++count;
        CChart& chart = workbook.AddChart(sheet, TwoCellAnchor{{column, row}, {column + 7, row + 15}});
        chart.title = title;
        chart.main.kind = kind;
        for (unsigned i = 0; i < seriesCount; ++i) {
            chart.main.series.push_back(DataSeries(i));
        }
        return chart;
    }

private:
    CWorkbook& workbook;
    CWorksheet& sheet;
    unsigned count = 0;
};

void AddLines(ChartPage& page) {
    CChart& chart = page.Add("Lines, dashes and markers", DiagramKind::Line, 3);
    const LineDash dashes[] = {LineDash::Dash, LineDash::ShortDash, LineDash::ShortDot};
    const MarkerSymbol symbols[] = {MarkerSymbol::Triangle, MarkerSymbol::Square, MarkerSymbol::Diamond};
    for (unsigned i = 0; i < 3; ++i) {
        Series& series = chart.main.series[i];
        series.line.dash = dashes[i];
        series.marker = {symbols[i], 6 + 2 * i, SolidFill{SeriesColours[i]}, {SolidFill{"000000"}, LineDash::Solid}};
    }
    chart.main.series[1].smoothing = Smoothing::On;
    chart.legend = LegendPosition::Bottom;
    chart.blankCells = BlankCells::Span;
    chart.xAxis.labelDegrees = -45;
    chart.yAxis.hasMinorGridlines = true;
}

void AddBars(ChartPage& page) {
    CChart& clustered = page.Add("Columns with a data table", DiagramKind::Bar, 3);
    clustered.dataTable = DataTable{true, false, true, false};
    clustered.legend = LegendPosition::None;
    CChart& stacked = page.Add("Stacked bars", DiagramKind::Bar, 2);
    stacked.main.direction = BarDirection::Bars;
    stacked.main.grouping = BarGrouping::Stacked;
    stacked.xAxis.position = AxisPosition::Left;
    stacked.yAxis.position = AxisPosition::Bottom;
    stacked.yAxis.minimum = -5;
    stacked.yAxis.maximum = 25;
    stacked.legend = LegendPosition::Top;
    CChart& percent = page.Add("Shares, patterns and a gradient", DiagramKind::Bar, 3);
    percent.main.grouping = BarGrouping::PercentStacked;
    percent.main.series[0].fill = PatternFill{PatternPreset::Percent25, "1F497D", "DCE6F1"};
    percent.main.series[1].fill = PatternFill{PatternPreset::SolidDiamond, "C0504D", "F2DCDB"};
    percent.main.series[2].fill = GradientFill{{{0, "FFFFFF"}, {50000, "9BBB59"}, {100000, "4F6228"}},
                                               GradientPath::Rectangle,
                                               {50000, 50000, 50000, 50000},
                                               {}};
    percent.dataTable = DataTable{true, true, false, false};
    percent.legend = LegendPosition::Left;
}

void AddScatters(ChartPage& page) {
    CChart& smooth = page.Add("Smooth scatter", DiagramKind::Scatter, 1);
    smooth.main.scatterStyle = ScatterStyle::SmoothMarker;
    Series& curve = smooth.main.series[0];
    curve.categories = "Data!$D$2:$D$7";
    curve.values = "Data!$B$2:$B$7";
    curve.smoothing = Smoothing::On;
    curve.marker = {MarkerSymbol::Circle, 7, SolidFill{"FFFFFF"}, {SolidFill{"4F81BD"}, LineDash::Solid}};
    smooth.legend = LegendPosition::RightOverlaid;
    CChart& points = page.Add("Points only", DiagramKind::Scatter, 1);
    points.main.series = {DataSeries(1)};
    Series& cloud = points.main.series[0];
    cloud.categories = "Data!$D$2:$D$7";
    cloud.values = "Data!$C$2:$C$7";
    cloud.line.fill = NoFill();
    cloud.marker = {MarkerSymbol::Diamond, 9, SolidFill{"C0504D"}, {NoFill(), LineDash::Solid}};
    points.yAxis.numberFormat = "0.0";
    points.yAxis.isNumberFormatLinked = false;
    points.legend = LegendPosition::TopOverlaid;
}

void AddRounds(ChartPage& page) {
    CChart& pie = page.Add("Pie", DiagramKind::Pie, 1);
    pie.main.series[0].fill = AutomaticFill();
    pie.main.series[0].line = ShapeLine();
    pie.main.firstSliceDegrees = 90;
    pie.legend = LegendPosition::Right;
    CChart& doughnut = page.Add("Doughnut", DiagramKind::Doughnut, 2);
    for (Series& series : doughnut.main.series) {
        series.fill = AutomaticFill();
        series.line.fill = SolidFill{"FFFFFF"};
    }
    doughnut.main.holePercent = 40;
    doughnut.legend = LegendPosition::BottomOverlaid;
}

void AddCombination(ChartPage& page) {
    CChart& chart = page.Add("Columns, and a line on axes of its own", DiagramKind::Bar, 2);
    chart.additional.kind = DiagramKind::Line;
    chart.additional.series.push_back(DataSeries(2));
    chart.additional.series[0].line.fill = SolidFill{"7F7F7F"};
    chart.legend = LegendPosition::LeftOverlaid;
    chart.blankCells = BlankCells::Zero;
    CChart& untitled = page.Add("", DiagramKind::Line, 1);
    untitled.automaticTitle = AutomaticTitle::Allowed;
    untitled.main.series[0].name = "Kept in the chart";
    untitled.main.series[0].nameReference.clear();
    untitled.xAxis.labelSkip = 2;
    untitled.xAxis.markSkip = 2;
    untitled.xAxis.isDeleted = false;
    untitled.yAxis.crossing = AxisCrossing::Minimum;
    untitled.additional.kind = DiagramKind::Line; // without series: not drawn
}

Series FilledSeries(const ShapeFill& fill) {
    Series series;
    series.name = "Fill";
    series.values = "Data!$D$7";
    series.fill = fill;
    return series;
}

void AddFills(ChartPage& page) {
    CChart& chart = page.Add("Every pattern, gradients along other paths, no fill", DiagramKind::Bar, 0);
    for (int preset = 0; preset <= static_cast<int>(PatternPreset::ZigZag); ++preset) {
        chart.main.series.push_back(FilledSeries(PatternFill{static_cast<PatternPreset>(preset), "1F497D", "DCE6F1"}));
    }
    const std::vector<GradientStop> stops = {{0, "FFFFFF"}, {100000, "4F6228"}};
    const RelativeRectangle corner = {10000, 20000, 70000, 80000}, larger = {-5000, 0, 0, -6000};
    chart.main.series.push_back(FilledSeries(GradientFill{stops, GradientPath::Circle, {}, {}}));
    chart.main.series.push_back(FilledSeries(GradientFill{stops, GradientPath::Shape, corner, larger}));
    chart.main.series.push_back(FilledSeries(NoFill()));
    chart.main.series.back().line.fill = SolidFill{"000000"};
    chart.additional.series.push_back(DataSeries(0)); // without a kind: not drawn
    chart.xAxis.isDeleted = true;
    chart.xAxis.labelOffset = 50;
    chart.yAxis.position = AxisPosition::Right;
    chart.yAxis.crossing = AxisCrossing::Maximum;
    chart.legend = LegendPosition::None;
}

// Points above points, the second ones on axes at the other sides.
void AddScatterOverScatter(ChartPage& page) {
    CChart& chart = page.Add("Two clouds", DiagramKind::Scatter, 1);
    chart.additional.kind = DiagramKind::Scatter;
    chart.additional.series = {DataSeries(1), DataSeries(2)};
    chart.x2Axis.position = AxisPosition::Top;
    chart.x2Axis.isDeleted = false;
    chart.x2Axis.minimum = -0.5;
    chart.y2Axis.maximum = 1e7;
}

} // namespace

void FillCharts(CWorkbook& workbook) {
    CWorksheet& sheet = workbook.AddSheet("Data", {{1, 1, 12}, {2, 4, 10}}, {std::nullopt, PageScale::FitWidth});
    WriteData(sheet);
    ChartPage page(workbook, sheet);
    AddLines(page);
    AddBars(page);
    AddScatters(page);
    AddRounds(page);
    AddCombination(page);
    AddFills(page);
    AddScatterOverScatter(page);
    CChart& chart = workbook.AddChartsheet("Chart sheet").GetChart();
    chart.title = "On a sheet of its own <&>";
    chart.main.kind = DiagramKind::Bar;
    chart.main.series = {DataSeries(0), DataSeries(1)};
    workbook.AddSheet("Behind").BeginRow();
}

} // namespace gallery
