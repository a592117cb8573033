#include "xlsx/DiagramWriter.h"

#include "xlsx/Names.h"

namespace Xlsx {

namespace {

constexpr const char* GroupingNames[] = {"clustered", "stacked", "percentStacked"};
constexpr const char* ScatterNames[] = {"smoothMarker", "lineMarker"};
constexpr const char* SymbolNames[] = {"none", "triangle", "square", "circle", "diamond"};

void WriteName(XmlWriter& xml, const Series& series) {
    xml.Start("c:tx");
    if (series.nameReference.empty()) {
        xml.TextElement("c:v", series.name);
    } else {
        xml.Start("c:strRef");
        xml.TextElement("c:f", series.nameReference);
        xml.Start("c:strCache");
        xml.ValueLeaf("c:ptCount", 1);
        xml.Start("c:pt", {{"idx", 0}});
        xml.TextElement("c:v", series.name);
        xml.End();
        xml.End();
        xml.End();
    }
    xml.End();
}

void WriteMarker(XmlWriter& xml, const Marker& marker) {
    xml.Start("c:marker");
    xml.ValueLeaf("c:symbol", SymbolNames[static_cast<unsigned>(marker.symbol)]);
    if (marker.symbol != MarkerSymbol::None) {
        xml.ValueLeaf("c:size", marker.size);
        WriteShapeProperties(xml, marker.fill, marker.line);
    }
    xml.End();
}

void WriteReference(XmlWriter& xml, const char* name, const std::string& reference) {
    if (reference.empty()) return;
    xml.Start(name);
    xml.Start("c:numRef");
    xml.TextElement("c:f", reference);
    xml.End();
    xml.End();
}

// The colour of bars below zero, which stays the series' own.
void WriteInversion(XmlWriter& xml, const Series& series) {
    if (!std::holds_alternative<SolidFill>(series.fill)) return;
    xml.Start("c:extLst");
    xml.Start("c:ext", {{"uri", "{6F2FDCE9-48DA-4B69-8628-5D25D57E5C99}"}, {"xmlns:c14", Names::ChartExtension}});
    xml.Start("c14:invertSolidFillFmt");
    xml.Start("c14:spPr");
    WriteFill(xml, series.fill);
    xml.End();
    xml.End();
    xml.End();
    xml.End();
}

bool HasMarkers(DiagramKind kind) {
    return kind == DiagramKind::Line || kind == DiagramKind::Scatter;
}

void WriteSeries(XmlWriter& xml, const Series& series, DiagramKind kind, std::size_t position) {
    const bool isScatter = kind == DiagramKind::Scatter;
    xml.Start("c:ser");
    xml.ValueLeaf("c:idx", position);
    xml.ValueLeaf("c:order", position);
    WriteName(xml, series);
    WriteShapeProperties(xml, HasMarkers(kind) ? ShapeFill() : series.fill, series.line);
    if (HasMarkers(kind)) WriteMarker(xml, series.marker);
    if (kind == DiagramKind::Bar) xml.ValueLeaf("c:invertIfNegative", 0);
    WriteReference(xml, isScatter ? "c:xVal" : "c:cat", series.categories);
    WriteReference(xml, isScatter ? "c:yVal" : "c:val", series.values);
    if (HasMarkers(kind)) xml.ValueLeaf("c:smooth", series.smoothing == Smoothing::On ? 1 : 0);
    if (kind == DiagramKind::Bar) WriteInversion(xml, series);
    xml.End();
}

const char* ElementName(DiagramKind kind) {
    static constexpr const char* Names[] = {"c:lineChart", "c:barChart", "c:scatterChart", "c:pieChart",
                                            "c:doughnutChart"};
    return Names[static_cast<int>(kind)];
}

void WriteBeginning(XmlWriter& xml, const Diagram& diagram) {
    const bool isRound = diagram.kind == DiagramKind::Pie || diagram.kind == DiagramKind::Doughnut;
    if (diagram.kind == DiagramKind::Line) xml.ValueLeaf("c:grouping", "standard");
    if (diagram.kind == DiagramKind::Bar) {
        xml.ValueLeaf("c:barDir", diagram.direction == BarDirection::Bars ? "bar" : "col");
        xml.ValueLeaf("c:grouping", GroupingNames[static_cast<unsigned>(diagram.grouping)]);
    }
    if (diagram.kind == DiagramKind::Scatter)
        xml.ValueLeaf("c:scatterStyle", ScatterNames[static_cast<unsigned>(diagram.scatterStyle)]);
    xml.ValueLeaf("c:varyColors", isRound || diagram.kind == DiagramKind::Bar ? 1 : 0);
}

void WriteEnd(XmlWriter& xml, const Diagram& diagram) {
    if (diagram.kind == DiagramKind::Line) xml.ValueLeaf("c:marker", 1);
    // Without it the stack's pieces would stand side by side.
    if (diagram.kind == DiagramKind::Bar && diagram.grouping != BarGrouping::Clustered) xml.ValueLeaf("c:overlap", 100);
    if (!HasAxes(diagram.kind)) xml.ValueLeaf("c:firstSliceAng", diagram.firstSliceDegrees);
    if (diagram.kind == DiagramKind::Doughnut) xml.ValueLeaf("c:holeSize", diagram.holePercent);
}

} // namespace

void WriteDiagram(XmlWriter& xml, const Diagram& diagram, const AxisPair& axes, std::size_t firstSeries) {
    xml.Start(ElementName(diagram.kind));
    WriteBeginning(xml, diagram);
    for (std::size_t i = 0; i < diagram.series.size(); ++i) {
        WriteSeries(xml, diagram.series[i], diagram.kind, firstSeries + i);
    }
    WriteEnd(xml, diagram);
    if (HasAxes(diagram.kind)) {
        xml.ValueLeaf("c:axId", axes.x);
        xml.ValueLeaf("c:axId", axes.y);
    }
    xml.End();
}

} // namespace Xlsx
