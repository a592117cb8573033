#include "xlsx/ChartWriter.h"

#include "xlsx/AxisWriter.h"
#include "xlsx/DiagramWriter.h"
#include "xlsx/Names.h"

namespace Xlsx {

namespace {

struct LegendPlace {
    const char* position;
    int overlay;
};
constexpr LegendPlace LegendPlaces[] = {{"", 0},  {"l", 1}, {"r", 1}, {"t", 1}, {"b", 1},
                                        {"l", 0}, {"r", 0}, {"t", 0}, {"b", 0}};
constexpr const char* BlankCellNames[] = {"gap", "zero", "span"};

void WriteChartStyle(XmlWriter& xml) {
    xml.Start("mc:AlternateContent", {{"xmlns:mc", Names::Compatibility}});
    xml.Start("mc:Choice", {{"Requires", "c14"}, {"xmlns:c14", Names::ChartExtension}});
    xml.ValueLeaf("c14:style", 102);
    xml.End();
    xml.Start("mc:Fallback");
    xml.ValueLeaf("c:style", 2);
    xml.End();
    xml.End();
}

void WriteTitle(XmlWriter& xml, const std::string& title) {
    xml.Start("c:title");
    xml.Start("c:tx");
    xml.Start("c:rich");
    xml.Leaf("a:bodyPr");
    xml.Leaf("a:lstStyle");
    xml.Start("a:p");
    xml.Start("a:pPr");
    xml.Leaf("a:defRPr");
    xml.End();
    xml.Start("a:r");
    xml.Leaf("a:rPr", {{"lang", "en-US"}});
    xml.TextElement("a:t", title);
    xml.End();
    xml.Leaf("a:endParaRPr", {{"lang", "en-US"}});
    xml.End();
    xml.End();
    xml.End();
    xml.Leaf("c:layout");
    xml.ValueLeaf("c:overlay", 0);
    xml.End();
}

void WriteDataTable(XmlWriter& xml, const DataTable& table) {
    xml.Start("c:dTable");
    xml.ValueLeaf("c:showHorzBorder", table.hasHorizontalBorder ? 1 : 0);
    xml.ValueLeaf("c:showVertBorder", table.hasVerticalBorder ? 1 : 0);
    xml.ValueLeaf("c:showOutline", table.hasOutline ? 1 : 0);
    xml.ValueLeaf("c:showKeys", table.hasKeys ? 1 : 0);
    xml.End();
}

void WritePlotArea(XmlWriter& xml, const CChart& chart) {
    xml.Start("c:plotArea");
    xml.Leaf("c:layout");
    if (chart.main.kind != DiagramKind::None) WriteDiagram(xml, chart.main, MainAxes, 0);
    if (chart.IsAdditionalDrawn()) WriteDiagram(xml, chart.additional, AdditionalAxes, chart.main.series.size());
    WriteAxes(xml, chart);
    if (chart.dataTable) WriteDataTable(xml, *chart.dataTable);
    xml.End();
}

void WriteLegend(XmlWriter& xml, LegendPosition legend) {
    if (legend == LegendPosition::None) return;
    const LegendPlace& place = LegendPlaces[static_cast<unsigned>(legend)];
    xml.Start("c:legend");
    xml.ValueLeaf("c:legendPos", place.position);
    xml.ValueLeaf("c:overlay", place.overlay);
    xml.End();
}

void WriteChartElement(XmlWriter& xml, const CChart& chart) {
    xml.Start("c:chart");
    if (!chart.title.empty()) WriteTitle(xml, chart.title);
    if (chart.automaticTitle == AutomaticTitle::Allowed) xml.ValueLeaf("c:autoTitleDeleted", 0);
    WritePlotArea(xml, chart);
    WriteLegend(xml, chart.legend);
    xml.ValueLeaf("c:plotVisOnly", 1);
    xml.ValueLeaf("c:dispBlanksAs", BlankCellNames[static_cast<unsigned>(chart.blankCells)]);
    xml.ValueLeaf("c:showDLblsOverMax", 0);
    xml.End();
}

} // namespace

std::string ChartPath(const CChart& chart) {
    return "/xl/charts/chart" + std::to_string(chart.GetNumber()) + ".xml";
}

bool WriteChart(Package& package, const CChart& chart) {
    return package.WritePart(ChartPath(chart), [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("c:chartSpace",
                  {{"xmlns:c", Names::Chart}, {"xmlns:a", Names::Drawing}, {"xmlns:r", Names::Relationships}});
        xml.ValueLeaf("c:date1904", 0);
        xml.ValueLeaf("c:lang", "en-US");
        xml.ValueLeaf("c:roundedCorners", 0);
        WriteChartStyle(xml);
        WriteChartElement(xml, chart);
        xml.End();
    });
}

} // namespace Xlsx
