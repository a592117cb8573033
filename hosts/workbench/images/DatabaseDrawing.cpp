#include "workbench/images/DatabaseDrawing.h"

#include "lca/ChartGeometry.h"
#include "lca/Numbers.h"
#include "lca/ReportBar.h"
#include "lca/ResultTable.h"
#include "workbench/images/ObjectParameters.h"
#include "workbench/images/PaintedContext.h"
#include "workbench/model/ReportLibrary.h"

#include <algorithm>
#include <cmath>

namespace workbench {

namespace {

constexpr double RowHeight = 20, Margin = 20, CellMargin = 4;
constexpr double PictureScale = 2;           ///< less for objects that lie far apart
constexpr double LongestPictureSide = 16000; ///< pixels
constexpr double LongestDrawingSide = 1e6;   ///< what lies further away is cut off
constexpr double MaterialWidths[] = {170, 230, 120};
constexpr double ResultWidths[] = {24, 190, 80, 90, 110, 120, 150};
constexpr double BarWidth = 180;
constexpr int PieExtent = 230, BarChartWidth = 520;
constexpr host::Colour Black{0, 0, 0}, Line{200, 200, 200}, Grey{160, 160, 160}, Blue{0, 0, 255};

/// Width and height of an object as drawn, before it is stretched.
struct Extent {
    double width = 0.0;
    double height = 0.0;
};

void DrawCellText(PaintedContext& context, const std::string& text, double left, double top, double width) {
    context.DrawSlantedText({text, left + CellMargin, top + CellMargin, 0.0, width - CellMargin}, Black);
}

/// Rows of texts in columns, with a line below each; answers the height.
double DrawTable(PaintedContext& context, const std::vector<std::string>& texts, std::span<const double> widths,
                 double top) {
    double width = 0.0;
    for (const double column : widths)
        width += column;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::size_t row = i / widths.size();
        const double rowTop = top + static_cast<double>(row) * RowHeight;
        double left = 0.0;
        for (std::size_t column = 0; column < i % widths.size(); ++column)
            left += widths[column];
        DrawCellText(context, texts[i], left, rowTop, widths[i % widths.size()]);
        if (i % widths.size() == 0) context.FillRectangle(0, rowTop + RowHeight - 1, width, rowTop + RowHeight, Line);
    }
    return std::ceil(static_cast<double>(texts.size()) / static_cast<double>(widths.size())) * RowHeight;
}

class MaterialReportDrawing {
public:
    explicit MaterialReportDrawing(const PlacedObject& object) : parameters(object.parameters) {}

    Extent GetExtent() const {
        double width = BarWidth;
        for (const double column : MaterialWidths)
            width += column;
        const std::size_t rows = parameters.GetTexts("arr_texts").size() / std::size(MaterialWidths);
        return {width, (static_cast<double>(rows) + 2) * RowHeight};
    }

    void Draw(PaintedContext& context) const {
        const double headerHeight = DrawTable(context, parameters.GetTexts("column_names"), MaterialWidths, 0);
        const double height = DrawTable(context, parameters.GetTexts("arr_texts"), MaterialWidths, headerHeight);
        std::vector<double> numbers = parameters.GetNumbers("barchart_data");
        if (!numbers.empty()) numbers.pop_back(); // the total has no bar
        const lca::BarScale scale = lca::FindBarScale(numbers);
        const double left = GetExtent().width - BarWidth;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const lca::ReportBar bar = lca::ComputeReportBar(numbers[i], scale, BarWidth);
            const double top = headerHeight + static_cast<double>(i) * RowHeight;
            context.FillRectangle(left + bar.left, top + 3, left + bar.right, top + RowHeight - 3, Grey);
        }
        DrawCellText(context, parameters.GetText("date"), 0, headerHeight + height, BarWidth);
    }

private:
    ObjectParameters parameters;
};

class ResultReportDrawing {
public:
    explicit ResultReportDrawing(const PlacedObject& object) : parameters(object.parameters) {}

    Extent GetExtent() const {
        double width = 0.0;
        for (const double column : ResultWidths)
            width += column;
        return {width, GetChartTop() + PieExtent + 2 * RowHeight};
    }

    void Draw(PaintedContext& context) const {
        const std::vector<std::string> names = parameters.GetTexts("arr_palette_names");
        const auto name = [&](std::size_t i) { return i < names.size() ? names[i] : std::string(); };
        DrawCellText(context, name(0), 0, 0, BarWidth);
        DrawTable(context, parameters.GetTexts("arr_table_text"), ResultWidths, RowHeight);
        DrawColours(context);
        const double top = GetChartTop();
        DrawCellText(context, name(1), 0, top - RowHeight, BarWidth);
        DrawCellText(context, name(2), PieExtent, top - RowHeight, BarWidth);
        DrawPie(context, static_cast<int>(top));
        DrawBars(context, static_cast<int>(top));
        DrawCellText(context, parameters.GetText("date"), 0, top + PieExtent, BarWidth);
    }

private:
    double GetChartTop() const {
        const std::size_t rows = parameters.GetTexts("arr_table_text").size() / std::size(ResultWidths);
        return (static_cast<double>(rows) + 2) * RowHeight;
    }

    /// Colour of a category by the numbers of its channels among the type colours.
    host::Colour GetColour(std::size_t category) const {
        const std::vector<double> colours = parameters.GetNumbers("arr_type_color");
        const std::vector<double> places = parameters.GetNumbers("arr_pie_colors");
        const auto channel = [&](std::size_t i) {
            const std::size_t at = category * 3 + i;
            if (at >= places.size()) return std::uint8_t{0};
            const auto place = static_cast<std::size_t>(std::max(places[at], 1.0)) - 1;
            return static_cast<std::uint8_t>(place < colours.size() ? std::clamp(colours[place], 0.0, 255.0) : 0.0);
        };
        return {channel(0), channel(1), channel(2)};
    }

    void DrawColours(PaintedContext& context) const {
        constexpr std::size_t FirstCategoryRow = 1 + lca::FirstCategoryRow; // below the heading
        for (std::size_t i = 0; i < lca::CategoryCount; ++i) {
            const double top = static_cast<double>(FirstCategoryRow + i) * RowHeight;
            context.FillRectangle(CellMargin, top + CellMargin, ResultWidths[0] - CellMargin,
                                  top + RowHeight - CellMargin, GetColour(i));
        }
    }

    void DrawPie(PaintedContext& context, int top) const {
        const std::vector<double> shares = parameters.GetNumbers("arr_pie_values");
        std::array<double, lca::CategoryCount> values{};
        std::copy_n(shares.begin(), std::min(shares.size(), values.size()), values.begin());
        const lca::PieChart pie = lca::LayOutPieChart(values, {0, top, PieExtent, PieExtent}, MeasureFont());
        for (std::size_t i = 0; i < pie.slices.size(); ++i) {
            context.FillSector(pie.centreX, pie.centreY, pie.radius, pie.slices[i].startAngle, pie.slices[i].sweep,
                               GetColour(i));
            DrawLabel(context, pie.slices[i].label);
        }
    }

    void DrawBars(PaintedContext& context, int top) const {
        const std::vector<std::string> texts = parameters.GetTexts("arr_bar_texts");
        const std::vector<double> values = parameters.GetNumbers("arr_bar_values");
        std::vector<lca::BarEntry> entries;
        for (std::size_t i = 0; i < std::min(texts.size(), values.size()); ++i)
            entries.emplace_back(texts[i], values[i]);
        const auto format = [](double value) { return lca::WriteFixed(value, 2); };
        for (const lca::ChartBar& bar :
             lca::LayOutBarChart(entries, {PieExtent, top, BarChartWidth, PieExtent}, MeasureFont(), format)) {
            if (!std::isfinite(bar.box.top)) continue;
            context.FillRectangle(bar.box.left, bar.box.top, bar.box.right, bar.box.bottom,
                                  bar.name.text == ActualImpact ? Blue : Grey);
            DrawLabel(context, bar.value);
            context.DrawSlantedText({bar.name.text, bar.name.x, bar.name.y, bar.name.angle, bar.name.maximumWidth},
                                    Black);
        }
    }

    static void DrawLabel(PaintedContext& context, const lca::ChartLabel& label) {
        context.DrawBoxedText({label.text, label.box.left, label.box.top, label.box.right, label.box.bottom}, Black);
    }

    static lca::ChartFont MeasureFont() {
        static PaintedFont font;
        return {[](const std::string& text) { return font.MeasureWidth(text); }, font.ReadCapitalHeight()};
    }

    /// What the add-on calls the bar that is none of the standards'.
    static constexpr char ActualImpact[] = "Actual impact";

    ObjectParameters parameters;
};

/// Calls `use` with the drawing of an object; nothing for a part that is unknown here.
template <typename Use>
void WithDrawing(const PlacedObject& object, Use&& use) {
    constexpr std::size_t MainIdentifierLength = 38;
    const auto isOf = [&](const char* part) {
        return object.libraryPart.compare(0, MainIdentifierLength, part, MainIdentifierLength) == 0;
    };
    if (isOf(MaterialReportPart)) use(MaterialReportDrawing(object));
    if (isOf(ResultReportPart)) use(ResultReportDrawing(object));
}

/// The rectangle around all objects, in pixels of the drawing with y downwards.
struct Bounds {
    double left = 0.0, top = 0.0, right = 1.0, bottom = 1.0;
    bool isEmpty = true;

    void Add(const PlacedObject& object, const Extent& extent) {
        const double x = object.position.x * DrawingPixelsPerMetre, y = -object.position.y * DrawingPixelsPerMetre;
        const double sine = std::sin(-object.angle), cosine = std::cos(object.angle);
        for (const double across : {0.0, extent.width * object.xRatio})
            for (const double down : {0.0, extent.height * object.yRatio})
                AddPoint(x + across * cosine - down * sine, y + across * sine + down * cosine);
    }

private:
    void AddPoint(double x, double y) {
        left = isEmpty ? x : std::min(left, x);
        top = isEmpty ? y : std::min(top, y);
        right = isEmpty ? x : std::max(right, x);
        bottom = isEmpty ? y : std::max(bottom, y);
        isEmpty = false;
    }
};

} // namespace

Outcome DrawDatabase(const Model& model, const host::Guid& database, const std::string& path) {
    Bounds bounds;
    for (const PlacedObject& object : model.GetPlacedObjects())
        if (object.database == database)
            WithDrawing(object, [&](const auto& drawing) { bounds.Add(object, drawing.GetExtent()); });
    const double width = std::min(bounds.right - bounds.left + 2 * Margin, LongestDrawingSide);
    const double height = std::min(bounds.bottom - bounds.top + 2 * Margin, LongestDrawingSide);
    PaintedContext context(static_cast<int>(width), static_cast<int>(height),
                           std::min(PictureScale, LongestPictureSide / std::max(width, height)));
    for (const PlacedObject& object : model.GetPlacedObjects()) {
        if (object.database != database) continue;
        WithDrawing(object, [&](const auto& drawing) {
            context.SetPlacement(object.position.x * DrawingPixelsPerMetre - bounds.left + Margin,
                                 -object.position.y * DrawingPixelsPerMetre - bounds.top + Margin, object.angle,
                                 object.xRatio, object.yRatio);
            drawing.Draw(context);
        });
    }
    return context.WritePicture(path);
}

} // namespace workbench
