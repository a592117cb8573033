// A chart: up to two diagrams over one plot area, four axes, title, legend and data table. Plain values; ChartWriter
// makes the part of them.
#pragma once

#include "xlsx/ShapeFill.h"

#include <optional>
#include <string>
#include <vector>

namespace Xlsx {

enum class DiagramKind { None = -1, Line, Bar, Scatter, Pie, Doughnut };
enum class BarDirection { Bars, Columns };
enum class BarGrouping { Clustered, Stacked, PercentStacked };
enum class ScatterStyle { SmoothMarker, LineMarker };
enum class MarkerSymbol { None, Triangle, Square, Circle, Diamond };
enum class Smoothing { Off, On };

struct Marker {
    MarkerSymbol symbol = MarkerSymbol::None;
    unsigned size = 5; ///< points, 2 to 72
    ShapeFill fill;
    ShapeLine line;
};

/// References are formulas without "=", such as "Sheet1!$B$2:$B$9".
struct Series {
    std::string name;
    std::string nameReference; ///< where the name stands; empty: the name is kept in the chart alone
    std::string categories;    ///< for scatter: the x values; empty: counted from 1
    std::string values;        ///< for scatter: the y values
    ShapeFill fill;            ///< bars and slices
    ShapeLine line;            ///< the line itself, or the outline of bars and slices
    Marker marker;             ///< line and scatter
    Smoothing smoothing = Smoothing::Off;
};

struct Diagram {
    DiagramKind kind = DiagramKind::None;
    std::vector<Series> series;
    BarDirection direction = BarDirection::Columns;
    BarGrouping grouping = BarGrouping::Clustered;
    ScatterStyle scatterStyle = ScatterStyle::LineMarker;
    unsigned firstSliceDegrees = 0; ///< 0 to 360, clockwise from the top
    unsigned holePercent = 50;      ///< 10 to 90
};

enum class AxisPosition { Left, Right, Top, Bottom };
enum class AxisCrossing { AutoZero, Minimum, Maximum };

struct Axis {
    bool isDeleted = false;
    AxisPosition position = AxisPosition::Bottom;
    AxisCrossing crossing = AxisCrossing::AutoZero; ///< where it crosses the other axis of its pair
    std::optional<double> minimum;
    std::optional<double> maximum;
    bool hasMajorGridlines = false;
    bool hasMinorGridlines = false;
    std::string numberFormat = "General"; ///< value axes
    bool isNumberFormatLinked = true;     ///< follows the cells' format
    std::optional<int> labelDegrees;      ///< labels turned clockwise, -90 to 90
    unsigned labelOffset = 100;           ///< category axes: percent of the usual distance
    unsigned labelSkip = 1;               ///< category axes: every n-th label
    unsigned markSkip = 1;
};

enum class LegendPosition {
    None,
    LeftOverlaid,
    RightOverlaid,
    TopOverlaid,
    BottomOverlaid,
    Left,
    Right,
    Top,
    Bottom,
};

struct DataTable {
    bool hasHorizontalBorder = true;
    bool hasVerticalBorder = true;
    bool hasOutline = true;
    bool hasKeys = true;
};

enum class BlankCells { Gap, Zero, Span };
enum class AutomaticTitle { Unsaid, Allowed };

/// One chart, owned by its workbook. The second pair of axes serves the additional diagram, which is drawn when it has
/// a kind and series.
class CChart {
public:
    /// number  in creation order, from 1
    explicit CChart(unsigned number);

    [[nodiscard]] unsigned GetNumber() const { return number; }
    [[nodiscard]] bool IsAdditionalDrawn() const {
        return additional.kind != DiagramKind::None && !additional.series.empty();
    }

    Diagram main;
    Diagram additional;
    Axis xAxis;
    Axis yAxis;
    Axis x2Axis;
    Axis y2Axis;
    std::string title; ///< empty: none
    AutomaticTitle automaticTitle = AutomaticTitle::Unsaid;
    LegendPosition legend = LegendPosition::Right;
    std::optional<DataTable> dataTable;
    BlankCells blankCells = BlankCells::Gap;

private:
    unsigned number;
};

} // namespace Xlsx
