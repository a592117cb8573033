#include "xlsx/AxisWriter.h"

namespace Xlsx {

namespace {

constexpr const char* PositionNames[] = {"l", "r", "t", "b"};
constexpr const char* CrossingNames[] = {"autoZero", "min", "max"};
constexpr int UnitsPerDegree = 60000;

enum class AxisKind { Category, Value };

void WriteScaling(XmlWriter& xml, const Axis& axis) {
    xml.Start("c:scaling");
    xml.ValueLeaf("c:orientation", "minMax");
    if (axis.maximum) xml.ValueLeaf("c:max", *axis.maximum);
    if (axis.minimum) xml.ValueLeaf("c:min", *axis.minimum);
    xml.End();
}

void WriteLabelTurn(XmlWriter& xml, int degrees) {
    xml.Start("c:txPr");
    xml.Leaf("a:bodyPr", {{"rot", degrees * UnitsPerDegree}});
    xml.Leaf("a:lstStyle");
    xml.Start("a:p");
    xml.Start("a:pPr");
    xml.Leaf("a:defRPr");
    xml.End();
    xml.Leaf("a:endParaRPr", {{"lang", "en-US"}});
    xml.End();
    xml.End();
}

void WriteCategoryEnd(XmlWriter& xml, const Axis& axis) {
    xml.ValueLeaf("c:auto", 1);
    xml.ValueLeaf("c:lblAlgn", "ctr");
    xml.ValueLeaf("c:lblOffset", axis.labelOffset);
    xml.ValueLeaf("c:tickLblSkip", axis.labelSkip);
    xml.ValueLeaf("c:tickMarkSkip", axis.markSkip);
    xml.ValueLeaf("c:noMultiLvlLbl", 0);
}

void WriteAxis(XmlWriter& xml, const Axis& axis, AxisKind kind, unsigned id, unsigned crossedId) {
    xml.Start(kind == AxisKind::Category ? "c:catAx" : "c:valAx");
    xml.ValueLeaf("c:axId", id);
    WriteScaling(xml, axis);
    xml.ValueLeaf("c:delete", axis.isDeleted ? 1 : 0);
    xml.ValueLeaf("c:axPos", PositionNames[static_cast<unsigned>(axis.position)]);
    if (axis.hasMajorGridlines) xml.Leaf("c:majorGridlines");
    if (axis.hasMinorGridlines) xml.Leaf("c:minorGridlines");
    if (kind == AxisKind::Value)
        xml.Leaf("c:numFmt", {{"formatCode", axis.numberFormat, TextKind::Prose},
                              {"sourceLinked", axis.isNumberFormatLinked ? 1 : 0}});
    xml.ValueLeaf("c:majorTickMark", "none");
    xml.ValueLeaf("c:minorTickMark", "none");
    xml.ValueLeaf("c:tickLblPos", "nextTo");
    if (axis.labelDegrees) WriteLabelTurn(xml, *axis.labelDegrees);
    xml.ValueLeaf("c:crossAx", crossedId);
    xml.ValueLeaf("c:crosses", CrossingNames[static_cast<unsigned>(axis.crossing)]);
    if (kind == AxisKind::Category)
        WriteCategoryEnd(xml, axis);
    else
        xml.ValueLeaf("c:crossBetween", "between");
    xml.End();
}

void WritePair(XmlWriter& xml, DiagramKind kind, const Axis& x, const Axis& y, const AxisPair& ids) {
    WriteAxis(xml, x, kind == DiagramKind::Scatter ? AxisKind::Value : AxisKind::Category, ids.x, ids.y);
    WriteAxis(xml, y, AxisKind::Value, ids.y, ids.x);
}

} // namespace

bool HasAxes(DiagramKind kind) {
    return kind == DiagramKind::Line || kind == DiagramKind::Bar || kind == DiagramKind::Scatter;
}

void WriteAxes(XmlWriter& xml, const CChart& chart) {
    const DiagramKind kind = chart.main.kind;
    if (kind == DiagramKind::Pie || kind == DiagramKind::Doughnut) return;
    if (kind != DiagramKind::None) WritePair(xml, kind, chart.xAxis, chart.yAxis, MainAxes);
    if (chart.IsAdditionalDrawn()) WritePair(xml, chart.additional.kind, chart.x2Axis, chart.y2Axis, AdditionalAxes);
}

} // namespace Xlsx
