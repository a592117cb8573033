#include "xlsx/Names.h"
#include "xlsx/PackageParts.h"
#include "xlsx/Relationships.h"

namespace Xlsx {

namespace {

void WriteSheetList(XmlWriter& xml, const WorkbookContent& content) {
    xml.Start("sheets");
    for (const CSheet* sheet : content.GetSheets()) {
        xml.Leaf("sheet", {{"name", sheet->GetTitle(), TextKind::Prose},
                           {"sheetId", sheet->GetId()},
                           {"r:id", RelationshipId(sheet->GetId())}});
    }
    xml.End();
}

void WriteDefinedNames(XmlWriter& xml, const std::vector<DefinedName>& names) {
    if (names.empty()) return;
    xml.Start("definedNames");
    for (const DefinedName& each : names) {
        xml.Start("definedName", {{"name", each.name, TextKind::Prose}});
        if (!each.comment.empty()) xml.Attribute({"comment", each.comment, TextKind::Prose});
        if (each.sheetPosition) xml.Attribute({"localSheetId", *each.sheetPosition});
        xml.Text(each.formula);
        xml.End();
    }
    xml.End();
}

void WriteBook(XmlWriter& xml, const WorkbookContent& content) {
    const std::size_t sheetCount = content.worksheets.size() + content.chartsheets.size();
    xml.Declaration();
    xml.Start("workbook", {{"xmlns", Names::Main}, {"xmlns:r", Names::Relationships}});
    xml.Leaf("fileVersion", {{"appName", "xl"}, {"lastEdited", 5}, {"lowestEdited", 5}, {"rupBuild", 9303}});
    xml.Leaf("workbookPr", {{"codeName", "ThisWorkbook"}, {"defaultThemeVersion", 124226}});
    xml.Start("bookViews");
    xml.Leaf("workbookView", {{"xWindow", 270},
                              {"yWindow", 630},
                              {"windowWidth", 24615},
                              {"windowHeight", 11445},
                              {"activeTab", content.activeSheet < sheetCount ? content.activeSheet : 0}});
    xml.End();
    WriteSheetList(xml, content);
    WriteDefinedNames(xml, content.definedNames);
    xml.Leaf("calcPr", {{"calcId", 124519}});
    xml.End();
}

std::vector<Relationship> RelationshipsOf(const WorkbookContent& content) {
    std::vector<Relationship> all;
    for (const auto& sheet : content.worksheets) {
        all.push_back(
            {RelationshipId(sheet->GetId()), Names::Relation::Worksheet, "worksheets/" + sheet->GetFileName()});
    }
    for (const auto& sheet : content.chartsheets) {
        all.push_back(
            {RelationshipId(sheet->GetId()), Names::Relation::Chartsheet, "chartsheets/" + sheet->GetFileName()});
    }
    unsigned number = content.nextSheetId;
    const auto add = [&](const char* type, const char* target) {
        all.push_back({RelationshipId(number++), type, target});
    };
    if (content.HasFormulas()) add(Names::Relation::CalculationChain, "calcChain.xml");
    if (!content.strings.IsEmpty()) add(Names::Relation::SharedStrings, "sharedStrings.xml");
    add(Names::Relation::Styles, "styles.xml");
    add(Names::Relation::Theme, "theme/theme1.xml");
    return all;
}

} // namespace

bool WriteSharedStrings(WorkbookContent& content) {
    if (content.strings.IsEmpty()) return true;
    return content.package.WritePart("/xl/sharedStrings.xml", [&](XmlWriter& xml) {
        const std::vector<const std::string*>& texts = content.strings.GetTexts();
        xml.Declaration();
        xml.Start("sst", {{"xmlns", Names::Main}, {"count", texts.size()}, {"uniqueCount", texts.size()}});
        for (const std::string* text : texts) {
            xml.Start("si");
            xml.Start("t");
            if (HasBlankEnd(*text)) xml.PlainAttribute("xml:space", "preserve");
            xml.Text(*text);
            xml.End();
            xml.End();
        }
        xml.End();
    });
}

bool WriteWorkbook(WorkbookContent& content) {
    return content.package.WritePart("/xl/workbook.xml", [&](XmlWriter& xml) { WriteBook(xml, content); }) &&
           WriteRelationships(content.package, "/xl/_rels/workbook.xml.rels", RelationshipsOf(content));
}

} // namespace Xlsx
