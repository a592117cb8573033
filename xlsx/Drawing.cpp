#include "xlsx/Drawing.h"

#include "xlsx/Names.h"
#include "xlsx/Relationships.h"

namespace Xlsx {

namespace {

void WriteNumber(XmlWriter& xml, const char* name, std::int64_t value) {
    xml.TextElement(name, std::to_string(value));
}

void WritePoint(XmlWriter& xml, const char* name, const AnchorPoint& point) {
    xml.Start(name);
    WriteNumber(xml, "xdr:col", point.column);
    WriteNumber(xml, "xdr:colOff", point.columnOffset);
    WriteNumber(xml, "xdr:row", point.row);
    WriteNumber(xml, "xdr:rowOff", point.rowOffset);
    xml.End();
}

void WriteSize(XmlWriter& xml, const AnchorSize& size) {
    xml.Leaf("xdr:ext", {{"cx", size.width}, {"cy", size.height}});
}

void StartAnchor(XmlWriter& xml, const TwoCellAnchor& anchor) {
    xml.Start("xdr:twoCellAnchor");
    WritePoint(xml, "xdr:from", anchor.from);
    WritePoint(xml, "xdr:to", anchor.to);
}

void StartAnchor(XmlWriter& xml, const OneCellAnchor& anchor) {
    xml.Start("xdr:oneCellAnchor", {{"editAs", "oneCell"}});
    WritePoint(xml, "xdr:from", anchor.from);
    WriteSize(xml, anchor.size);
}

void StartAnchor(XmlWriter& xml, const AbsoluteAnchor& anchor) {
    xml.Start("xdr:absoluteAnchor");
    xml.Leaf("xdr:pos", {{"x", anchor.x}, {"y", anchor.y}});
    WriteSize(xml, anchor.size);
}

void WriteChartFrame(XmlWriter& xml, std::size_t position) {
    xml.Start("xdr:graphicFrame", {{"macro", ""}});
    xml.Start("xdr:nvGraphicFramePr");
    xml.Leaf("xdr:cNvPr", {{"id", position + 1}, {"name", "Chart " + std::to_string(position)}});
    xml.Start("xdr:cNvGraphicFramePr");
    xml.Leaf("a:graphicFrameLocks", {{"noGrp", 1}});
    xml.End();
    xml.End();
    xml.Start("xdr:xfrm");
    xml.Leaf("a:off", {{"x", 0}, {"y", 0}});
    xml.Leaf("a:ext", {{"cx", 0}, {"cy", 0}});
    xml.End();
    xml.Start("a:graphic");
    xml.Start("a:graphicData", {{"uri", Names::Chart}});
    xml.Leaf("c:chart",
             {{"xmlns:c", Names::Chart}, {"xmlns:r", Names::Relationships}, {"r:id", RelationshipId(position)}});
    xml.End();
    xml.End();
    xml.End();
}

void WritePicture(XmlWriter& xml, std::size_t position) {
    xml.Start("xdr:pic");
    xml.Start("xdr:nvPicPr");
    xml.Leaf("xdr:cNvPr", {{"id", position + 1}, {"name", "Picture " + std::to_string(position)}});
    xml.Start("xdr:cNvPicPr");
    xml.Leaf("a:picLocks", {{"noChangeAspect", 1}});
    xml.End();
    xml.End();
    xml.Start("xdr:blipFill");
    xml.Leaf("a:blip", {{"xmlns:r", Names::Relationships}, {"r:embed", RelationshipId(position)}});
    xml.Start("a:stretch");
    xml.Leaf("a:fillRect");
    xml.End();
    xml.End();
    xml.Start("xdr:spPr");
    xml.Start("a:prstGeom", {{"prst", "rect"}});
    xml.Leaf("a:avLst");
    xml.End();
    xml.End();
    xml.End();
}

} // namespace

std::string CDrawing::GetFileName() const {
    return "drawing" + std::to_string(number) + ".xml";
}

std::string CDrawing::GetPath() const {
    return "/xl/drawings/" + GetFileName();
}

std::string CDrawing::GetTarget() const {
    return "../drawings/" + GetFileName();
}

bool CDrawing::Write(Package& package) const {
    if (IsEmpty()) return true;
    std::vector<Relationship> relationships;
    for (const Placed& object : objects) {
        std::string id = RelationshipId(relationships.size() + 1);
        if (object.chart != nullptr)
            relationships.push_back({std::move(id), Names::Relation::Chart,
                                     "../charts/chart" + std::to_string(object.chart->GetNumber()) + ".xml"});
        else
            relationships.push_back({std::move(id), Names::Relation::Image, "../media/" + object.mediaName});
    }
    return package.WritePart(GetPath(), [&](XmlWriter& xml) { WriteObjects(xml); }) &&
           WriteRelationships(package, "/xl/drawings/_rels/" + GetFileName() + ".rels", relationships);
}

void CDrawing::WriteObjects(XmlWriter& xml) const {
    xml.Declaration();
    xml.Start("xdr:wsDr", {{"xmlns:xdr", Names::SheetDrawing}, {"xmlns:a", Names::Drawing}});
    std::size_t position = 0;
    for (const Placed& object : objects) {
        ++position;
        std::visit([&](const auto& anchor) { StartAnchor(xml, anchor); }, object.anchor);
        if (object.chart != nullptr)
            WriteChartFrame(xml, position);
        else
            WritePicture(xml, position);
        xml.Leaf("xdr:clientData");
        xml.End();
    }
    xml.End();
}

} // namespace Xlsx
