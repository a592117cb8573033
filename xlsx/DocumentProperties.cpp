#include "xlsx/Names.h"
#include "xlsx/PackageParts.h"
#include "xlsx/Relationships.h"

namespace Xlsx {

namespace {

void WriteTime(XmlWriter& xml, const char* name, const std::tm& time) {
    char text[32];
    // The local time goes by the name of universal time on purpose.
    const std::size_t size = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &time);
    xml.Start(name, {{"xsi:type", "dcterms:W3CDTF"}});
    xml.PlainText({text, size});
    xml.End();
}

void WriteHeading(XmlWriter& xml, const char* label, std::size_t count) {
    xml.Start("vt:variant");
    xml.TextElement("vt:lpstr", label);
    xml.End();
    xml.Start("vt:variant");
    xml.TextElement("vt:i4", std::to_string(count));
    xml.End();
}

void WriteHeadings(XmlWriter& xml, const WorkbookContent& content) {
    const bool hasChartsheets = !content.chartsheets.empty();
    xml.Start("HeadingPairs");
    xml.Start("vt:vector", {{"size", hasChartsheets ? 4 : 2}, {"baseType", "variant"}});
    WriteHeading(xml, "Worksheets", content.worksheets.size());
    if (hasChartsheets) WriteHeading(xml, "Diagramms", content.chartsheets.size());
    xml.End();
    xml.End();
}

void WriteTitles(XmlWriter& xml, const WorkbookContent& content) {
    xml.Start("TitlesOfParts");
    xml.Start("vt:vector", {{"size", content.worksheets.size() + content.chartsheets.size()}, {"baseType", "lpstr"}});
    for (const auto& sheet : content.worksheets) {
        xml.TextElement("vt:lpstr", sheet->GetTitle());
    }
    for (const auto& sheet : content.chartsheets) {
        xml.TextElement("vt:lpstr", sheet->GetTitle());
    }
    xml.End();
    xml.End();
}

} // namespace

bool WriteCoreProperties(WorkbookContent& content, const std::tm& time) {
    const bool isWritten = content.package.WritePart("/docProps/core.xml", [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("cp:coreProperties",
                  {{"xmlns:cp", "http://schemas.openxmlformats.org/package/2006/metadata/core-properties"},
                   {"xmlns:dc", "http://purl.org/dc/elements/1.1/"},
                   {"xmlns:dcterms", "http://purl.org/dc/terms/"},
                   {"xmlns:dcmitype", "http://purl.org/dc/dcmitype/"},
                   {"xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance"}});
        xml.TextElement("dc:creator", content.author);
        xml.TextElement("cp:lastModifiedBy", content.author);
        WriteTime(xml, "dcterms:created", time);
        WriteTime(xml, "dcterms:modified", time);
        xml.End();
    });
    return isWritten && WriteRelationships(content.package, "/_rels/.rels",
                                           {{"rId3", Names::Relation::ExtendedProperties, "docProps/app.xml"},
                                            {"rId2", Names::Relation::CoreProperties, "docProps/core.xml"},
                                            {"rId1", Names::Relation::Document, "xl/workbook.xml"}});
}

bool WriteApplicationProperties(WorkbookContent& content) {
    return content.package.WritePart("/docProps/app.xml", [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("Properties", {{"xmlns", "http://schemas.openxmlformats.org/officeDocument/2006/extended-properties"},
                                 {"xmlns:vt", "http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes"}});
        xml.TextElement("Application", "Microsoft Excel");
        xml.TextElement("DocSecurity", "0");
        xml.TextElement("ScaleCrop", "false");
        WriteHeadings(xml, content);
        WriteTitles(xml, content);
        xml.Leaf("Company");
        xml.TextElement("LinksUpToDate", "false");
        xml.TextElement("SharedDoc", "false");
        xml.TextElement("HyperlinksChanged", "false");
        xml.TextElement("AppVersion", "14.03");
        xml.End();
    });
}

} // namespace Xlsx
