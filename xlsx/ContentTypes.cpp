#include "xlsx/ChartWriter.h"
#include "xlsx/Names.h"
#include "xlsx/PackageParts.h"

namespace Xlsx {

namespace {

// What the types begin with.
const char PackageTypes[] = "application/vnd.openxmlformats-package.";
const char Office[] = "application/vnd.openxmlformats-officedocument.";
const char Spreadsheet[] = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

void WriteDefault(XmlWriter& xml, const char* extension, const std::string& type) {
    xml.Leaf("Default", {{"Extension", extension}, {"ContentType", type}});
}

void WriteOverride(XmlWriter& xml, const std::string& path, const std::string& family, const char* type) {
    xml.Leaf("Override", {{"PartName", path}, {"ContentType", family + type + "+xml"}});
}

void WriteDefaults(XmlWriter& xml, const WorkbookContent& content) {
    WriteDefault(xml, "rels", std::string(PackageTypes) + "relationships+xml");
    WriteDefault(xml, "xml", "application/xml");
    for (const ImageDefault& image : content.media.GetDefaults()) {
        WriteDefault(xml, image.extension, image.contentType);
    }
}

void WriteSheetTypes(XmlWriter& xml, const WorkbookContent& content) {
    for (const auto& sheet : content.worksheets) {
        WriteOverride(xml, "/xl/worksheets/" + sheet->GetFileName(), Spreadsheet, "worksheet");
    }
    if (content.HasFormulas()) WriteOverride(xml, "/xl/calcChain.xml", Spreadsheet, "calcChain");
    for (const auto& sheet : content.chartsheets) {
        WriteOverride(xml, "/xl/chartsheets/" + sheet->GetFileName(), Spreadsheet, "chartsheet");
    }
}

void WriteDrawingTypes(XmlWriter& xml, const WorkbookContent& content) {
    for (const auto& drawing : content.drawings) {
        if (!drawing->IsEmpty()) WriteOverride(xml, drawing->GetPath(), Office, "drawing");
    }
    for (const auto& chart : content.charts) {
        WriteOverride(xml, ChartPath(*chart), Office, "drawingml.chart");
    }
    if (content.comments.GetSheets().empty()) return;
    WriteDefault(xml, "vml", std::string(Office) + "vmlDrawing");
    for (const auto& sheet : content.comments.GetSheets()) {
        WriteOverride(xml, "/xl/comments" + std::to_string(sheet.first) + ".xml", Spreadsheet, "comments");
    }
}

bool WriteCalculationChain(WorkbookContent& content) {
    return content.package.WritePart("/xl/calcChain.xml", [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("calcChain", {{"xmlns", Names::Main}});
        for (const auto& sheet : content.worksheets) {
            for (const CellPlace& place : sheet->GetFormulaCells()) {
                xml.Leaf("c", {{"r", CellReference(place)}, {"i", sheet->GetId()}});
            }
        }
        xml.End();
    });
}

} // namespace

bool WriteContentTypes(WorkbookContent& content) {
    const bool isWritten = content.package.WritePart("/[Content_Types].xml", [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("Types", {{"xmlns", Names::PackageTypes}});
        WriteDefaults(xml, content);
        WriteOverride(xml, "/xl/workbook.xml", Spreadsheet, "sheet.main");
        WriteSheetTypes(xml, content);
        WriteOverride(xml, "/xl/theme/theme1.xml", Office, "theme");
        WriteOverride(xml, "/xl/styles.xml", Spreadsheet, "styles");
        if (!content.strings.IsEmpty()) WriteOverride(xml, "/xl/sharedStrings.xml", Spreadsheet, "sharedStrings");
        WriteDrawingTypes(xml, content);
        WriteOverride(xml, "/docProps/core.xml", PackageTypes, "core-properties");
        WriteOverride(xml, "/docProps/app.xml", Office, "extended-properties");
        xml.End();
    });
    return isWritten && (!content.HasFormulas() || WriteCalculationChain(content));
}

} // namespace Xlsx
