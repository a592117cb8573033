#include "xlsx/StylesWriter.h"

#include "xlsx/Names.h"

#include <utility>

namespace Xlsx {

namespace {

constexpr const char* PatternNames[] = {"none",           "solid",           "mediumGray",    "darkGray",  "lightGray",
                                        "darkHorizontal", "darkVertical",    "darkDown",      "darkUp",    "darkGrid",
                                        "darkTrellis",    "lightHorizontal", "lightVertical", "lightDown", "lightUp",
                                        "lightGrid",      "lightTrellis",    "gray125",       "gray0625"};
constexpr const char* LineNames[] = {"",
                                     "thin",
                                     "medium",
                                     "dashed",
                                     "dotted",
                                     "thick",
                                     "double",
                                     "hair",
                                     "mediumDashed",
                                     "dashDot",
                                     "mediumDashDot",
                                     "dashDotDot",
                                     "mediumDashDotDot",
                                     "slantDashDot"};
constexpr const char* HorizontalNames[] = {"", "left", "center", "right"};
constexpr const char* VerticalNames[] = {"", "top", "center", "bottom"};
constexpr std::pair<unsigned, const char*> FontAttributes[] = {
    {Bold, "b"},          {Italic, "i"},      {Underline, "u"},       {Strike, "strike"},
    {Outline, "outline"}, {Shadow, "shadow"}, {Condense, "condense"}, {Extend, "extend"}};

XmlAttribute Colour(const char* name, const std::string& colour) {
    return {name, colour, TextKind::Prose};
}

void WriteNumberFormats(XmlWriter& xml, const std::vector<CustomNumberFormat>& formats) {
    if (formats.empty()) return;
    xml.Start("numFmts", {{"count", formats.size()}});
    for (const CustomNumberFormat& each : formats) {
        xml.Leaf("numFmt", {{"numFmtId", each.id}, {"formatCode", NumberFormatCode(each.format), TextKind::Prose}});
    }
    xml.End();
}

void WriteFonts(XmlWriter& xml, const std::vector<Font>& fonts) {
    xml.Start("fonts", {{"count", fonts.size()}});
    for (const Font& font : fonts) {
        xml.Start("font");
        WriteFontContent(xml, font, "name");
        xml.End();
    }
    xml.End();
}

void WriteFills(XmlWriter& xml, const std::vector<CellFill>& fills) {
    xml.Start("fills", {{"count", fills.size()}});
    for (const CellFill& fill : fills) {
        xml.Start("fill");
        xml.Start("patternFill", {{"patternType", PatternNames[static_cast<unsigned>(fill.pattern)]}});
        if (!fill.foreground.empty()) xml.Leaf("fgColor", {Colour("rgb", fill.foreground)});
        if (!fill.background.empty()) xml.Leaf("bgColor", {Colour("rgb", fill.background)});
        xml.End();
        xml.End();
    }
    xml.End();
}

void WriteSide(XmlWriter& xml, const char* name, const BorderSide& side) {
    xml.Start(name);
    if (side.line != BorderLine::None) xml.Attribute({"style", LineNames[static_cast<unsigned>(side.line)]});
    if (side.colour.empty())
        xml.Leaf("color", {{"indexed", 64}});
    else
        xml.Leaf("color", {Colour("rgb", side.colour)});
    xml.End();
}

void WriteBorders(XmlWriter& xml, const std::vector<Border>& borders) {
    xml.Start("borders", {{"count", borders.size()}});
    for (const Border& border : borders) {
        xml.Start("border");
        if (border.hasDiagonalUp) xml.Attribute({"diagonalUp", 1});
        if (border.hasDiagonalDown) xml.Attribute({"diagonalDown", 1});
        WriteSide(xml, "left", border.left);
        WriteSide(xml, "right", border.right);
        WriteSide(xml, "top", border.top);
        WriteSide(xml, "bottom", border.bottom);
        WriteSide(xml, "diagonal", border.diagonal);
        xml.End();
    }
    xml.End();
}

// The format counts angles below the horizontal on from 90.
int StoredRotation(int degrees) {
    return degrees < 0 ? 90 - degrees : degrees;
}

void WriteAlignment(XmlWriter& xml, const Alignment& alignment) {
    xml.Attribute({"applyAlignment", 1});
    xml.Start("alignment");
    if (alignment.horizontal != HorizontalAlignment::None)
        xml.Attribute({"horizontal", HorizontalNames[static_cast<unsigned>(alignment.horizontal)]});
    if (alignment.vertical != VerticalAlignment::None)
        xml.Attribute({"vertical", VerticalNames[static_cast<unsigned>(alignment.vertical)]});
    if (alignment.wrapsText) xml.Attribute({"wrapText", 1});
    if (alignment.rotationDegrees != 0) xml.Attribute({"textRotation", StoredRotation(alignment.rotationDegrees)});
    xml.End();
}

bool IsSet(const Alignment& alignment) {
    return alignment.horizontal != HorizontalAlignment::None || alignment.vertical != VerticalAlignment::None ||
           alignment.wrapsText || alignment.rotationDegrees != 0;
}

void WriteCellFormat(XmlWriter& xml, const CellFormat& format) {
    xml.Start("xf", {{"numFmtId", format.numberFormat},
                     {"fontId", format.font},
                     {"fillId", format.fill},
                     {"borderId", format.border}});
    if (format.font != 0) xml.Attribute({"applyFont", 1});
    if (format.fill != 0) xml.Attribute({"applyFill", 1});
    if (format.border != 0) xml.Attribute({"applyBorder", 1});
    if (format.numberFormat != 0) xml.Attribute({"applyNumberFormat", 1});
    if (IsSet(format.alignment)) WriteAlignment(xml, format.alignment);
    xml.End();
}

void WriteCellFormats(XmlWriter& xml, const std::vector<CellFormat>& formats) {
    xml.Start("cellStyleXfs", {{"count", 1}});
    xml.Leaf("xf", {{"numFmtId", 0}, {"fontId", 0}, {"fillId", 0}, {"borderId", 0}});
    xml.End();
    xml.Start("cellXfs", {{"count", formats.size()}});
    for (const CellFormat& format : formats) {
        WriteCellFormat(xml, format);
    }
    xml.End();
    xml.Start("cellStyles", {{"count", 1}});
    xml.Leaf("cellStyle", {{"name", "Normal"}, {"xfId", 0}, {"builtinId", 0}});
    xml.End();
}

void WriteFixedEnd(XmlWriter& xml) {
    xml.Leaf("dxfs", {{"count", 0}});
    xml.Leaf("tableStyles",
             {{"count", 0}, {"defaultTableStyle", "TableStyleMedium2"}, {"defaultPivotStyle", "PivotStyleLight16"}});
    xml.Start("extLst");
    xml.Start("ext", {{"uri", "{EB79DEF2-80B8-43e5-95BD-54CBDDF9020C}"}, {"xmlns:x14", Names::MainExtension}});
    xml.Leaf("x14:slicerStyles", {{"defaultSlicerStyle", "SlicerStyleLight1"}});
    xml.End();
    xml.End();
}

} // namespace

void WriteFontContent(XmlWriter& xml, const Font& font, const char* nameElement) {
    for (const auto& [bit, name] : FontAttributes) {
        if ((font.attributes & bit) != 0) xml.Leaf(name);
    }
    xml.ValueLeaf("sz", font.sizePoints);
    xml.Leaf(nameElement, {{"val", font.name, TextKind::Prose}});
    xml.ValueLeaf("charset", 204);
    if (font.colourSource == FontColour::Given && !font.colour.empty())
        xml.Leaf("color", {Colour("rgb", font.colour)});
    else
        xml.Leaf("color", {{"theme", 1}});
}

bool WriteStyles(Package& package, const CStyleRegistry& styles) {
    return package.WritePart("/xl/styles.xml", [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("styleSheet", {{"xmlns", Names::Main},
                                 {"xmlns:mc", Names::Compatibility},
                                 {"mc:Ignorable", "x14ac"},
                                 {"xmlns:x14ac", Names::SheetExtension}});
        WriteNumberFormats(xml, styles.GetNumberFormats());
        WriteFonts(xml, styles.GetFonts());
        WriteFills(xml, styles.GetFills());
        WriteBorders(xml, styles.GetBorders());
        WriteCellFormats(xml, styles.GetCellFormats());
        WriteFixedEnd(xml);
        xml.End();
    });
}

} // namespace Xlsx
