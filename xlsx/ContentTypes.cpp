#include "xlsx/ChartWriter.h"
#include "xlsx/Names.h"
#include "xlsx/PackageParts.h"

namespace Xlsx {

namespace {

// What the types begin with.
const char packageTypes[] = "application/vnd.openxmlformats-package.";
const char office[] = "application/vnd.openxmlformats-officedocument.";
const char spreadsheet[] = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

void WriteDefault(XmlWriter& xml, const char* extension, const std::string& type) {
    xml.Leaf("Default", {{"Extension", extension}, {"ContentType", type}});
}

void WriteOverride(XmlWriter& xml, const std::string& path, const std::string& family, const char* type) {
    xml.Leaf("Override", {{"PartName", path}, {"ContentType", family + type + "+xml"}});
}

void WriteDefaults(XmlWriter& xml, const WorkbookContent& content) {
    WriteDefault(xml, "rels", std::string(packageTypes) + "relationships+xml");
    WriteDefault(xml, "xml", "application/xml");
    for (const ImageDefault& image : content.media.Defaults()) {
        WriteDefault(xml, image.extension, image.contentType);
    }
}

void WriteSheetTypes(XmlWriter& xml, const WorkbookContent& content) {
    for (const auto& sheet : content.worksheets) {
        WriteOverride(xml, "/xl/worksheets/" + sheet->FileName(), spreadsheet, "worksheet");
    }
    if (content.HasFormulas()) WriteOverride(xml, "/xl/calcChain.xml", spreadsheet, "calcChain");
    for (const auto& sheet : content.chartsheets) {
        WriteOverride(xml, "/xl/chartsheets/" + sheet->FileName(), spreadsheet, "chartsheet");
    }
}

void WriteDrawingTypes(XmlWriter& xml, const WorkbookContent& content) {
    for (const auto& drawing : content.drawings) {
        if (!drawing->IsEmpty()) WriteOverride(xml, drawing->Path(), office, "drawing");
    }
    for (const auto& chart : content.charts) {
        WriteOverride(xml, ChartPath(*chart), office, "drawingml.chart");
    }
    if (content.comments.Sheets().empty()) return;
    WriteDefault(xml, "vml", std::string(office) + "vmlDrawing");
    for (const auto& sheet : content.comments.Sheets()) {
        WriteOverride(xml, "/xl/comments" + std::to_string(sheet.first) + ".xml", spreadsheet, "comments");
    }
}

bool WriteCalculationChain(WorkbookContent& content) {
    return content.package.WritePart("/xl/calcChain.xml", [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("calcChain", {{"xmlns", Names::main}});
        for (const auto& sheet : content.worksheets) {
            for (const CellPlace& place : sheet->FormulaCells()) {
                xml.Leaf("c", {{"r", CellReference(place)}, {"i", sheet->Id()}});
            }
        }
        xml.End();
    });
}

} // namespace

bool WriteContentTypes(WorkbookContent& content) {
    const bool isWritten = content.package.WritePart("/[Content_Types].xml", [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("Types", {{"xmlns", Names::packageTypes}});
        WriteDefaults(xml, content);
        WriteOverride(xml, "/xl/workbook.xml", spreadsheet, "sheet.main");
        WriteSheetTypes(xml, content);
        WriteOverride(xml, "/xl/theme/theme1.xml", office, "theme");
        WriteOverride(xml, "/xl/styles.xml", spreadsheet, "styles");
        if (!content.strings.IsEmpty()) WriteOverride(xml, "/xl/sharedStrings.xml", spreadsheet, "sharedStrings");
        WriteDrawingTypes(xml, content);
        WriteOverride(xml, "/docProps/core.xml", packageTypes, "core-properties");
        WriteOverride(xml, "/docProps/app.xml", office, "extended-properties");
        xml.End();
    });
    return isWritten && (!content.HasFormulas() || WriteCalculationChain(content));
}

} // namespace Xlsx
