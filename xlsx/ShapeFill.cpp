#include "xlsx/ShapeFill.h"

namespace Xlsx {

namespace {

// clang-format off
constexpr const char* PatternNames[] = {
    "pct5", "pct10", "pct20", "pct25", "pct30", "pct40", "pct50", "pct60", "pct70", "pct75",
    "pct80", "pct90", "horz", "vert", "ltHorz", "ltVert", "dkHorz", "dkVert",
    "narHorz", "narVert", "dashHorz", "dashVert", "cross", "dnDiag", "upDiag",
    "ltDnDiag", "ltUpDiag", "dkDnDiag", "dkUpDiag", "wdDnDiag", "wdUpDiag",
    "dashDnDiag", "dashUpDiag", "diagCross", "smCheck", "lgCheck", "smGrid", "lgGrid", "dotGrid",
    "smConfetti", "lgConfetti", "horzBrick", "diagBrick", "solidDmnd", "openDmnd", "dotDmnd", "plaid",
    "sphere", "weave", "divot", "shingle", "wave", "trellis", "zigZag"};
// clang-format on
static_assert(sizeof PatternNames / sizeof *PatternNames == static_cast<unsigned>(PatternPreset::ZigZag) + 1);
constexpr const char* PathNames[] = {"circle", "rect", "shape"};
constexpr const char* DashNames[] = {"solid", "dash", "sysDash", "sysDot"};

void WriteColour(XmlWriter& xml, const std::string& colour) {
    xml.Leaf("a:srgbClr", {{"val", colour, TextKind::Prose}});
}

void WriteRectangle(XmlWriter& xml, const char* name, const RelativeRectangle& rectangle) {
    xml.Leaf(name, {{"l", rectangle.left}, {"t", rectangle.top}, {"r", rectangle.right}, {"b", rectangle.bottom}});
}

void Write(XmlWriter&, const AutomaticFill&) {}

void Write(XmlWriter& xml, const NoFill&) {
    xml.Leaf("a:noFill");
}

void Write(XmlWriter& xml, const SolidFill& fill) {
    xml.Start("a:solidFill");
    WriteColour(xml, fill.colour);
    xml.End();
}

void Write(XmlWriter& xml, const PatternFill& fill) {
    xml.Start("a:pattFill", {{"prst", PatternNames[static_cast<unsigned>(fill.preset)]}});
    xml.Start("a:fgClr");
    WriteColour(xml, fill.foreground);
    xml.End();
    xml.Start("a:bgClr");
    WriteColour(xml, fill.background);
    xml.End();
    xml.End();
}

void Write(XmlWriter& xml, const GradientFill& fill) {
    xml.Start("a:gradFill", {{"rotWithShape", 1}});
    xml.Start("a:gsLst");
    for (const GradientStop& stop : fill.stops) {
        xml.Start("a:gs", {{"pos", stop.position}});
        WriteColour(xml, stop.colour);
        xml.End();
    }
    xml.End();
    xml.Start("a:path", {{"path", PathNames[static_cast<unsigned>(fill.path)]}});
    WriteRectangle(xml, "a:fillToRect", fill.fillTo);
    xml.End();
    WriteRectangle(xml, "a:tileRect", fill.tile);
    xml.End();
}

bool IsAutomatic(const ShapeFill& fill) {
    return std::holds_alternative<AutomaticFill>(fill);
}

} // namespace

void WriteFill(XmlWriter& xml, const ShapeFill& fill) {
    std::visit([&](const auto& kind) { Write(xml, kind); }, fill);
}

void WriteShapeProperties(XmlWriter& xml, const ShapeFill& fill, const ShapeLine& line) {
    const bool hasLine = !IsAutomatic(line.fill) || line.dash != LineDash::Solid;
    if (IsAutomatic(fill) && !hasLine) return;
    xml.Start("c:spPr");
    WriteFill(xml, fill);
    if (hasLine) {
        xml.Start("a:ln");
        WriteFill(xml, line.fill);
        xml.ValueLeaf("a:prstDash", DashNames[static_cast<unsigned>(line.dash)]);
        xml.End();
    }
    xml.End();
}

} // namespace Xlsx
