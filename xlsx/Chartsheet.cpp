#include "xlsx/Chartsheet.h"

#include "xlsx/Names.h"
#include "xlsx/Relationships.h"
#include "xlsx/SheetSettings.h"

namespace Xlsx {

namespace {

// A landscape page less its margins; the view fits it to the window.
constexpr AbsoluteAnchor WholePage = {0, 0, {9308969, 6078325}};

} // namespace

CChartsheet::CChartsheet(unsigned id, const std::string& title, CDrawing& drawing, CChart& chart)
    : CSheet(id, title.empty() ? "Chart " + std::to_string(id) : title, drawing), chart(chart) {
    drawing.PlaceChart(chart, WholePage);
}

bool CChartsheet::Write(Package& package) const {
    const PageSetup page;
    const bool isWritten = package.WritePart("/xl/chartsheets/" + GetFileName(), [&](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("chartsheet", {{"xmlns", Names::Main}, {"xmlns:r", Names::Relationships}});
        xml.Leaf("sheetPr");
        xml.Start("sheetViews");
        xml.Leaf("sheetView", {{"zoomScale", 85}, {"workbookViewId", 0}, {"zoomToFit", 1}});
        xml.End();
        xml.Leaf("pageMargins", {{"left", page.left},
                                 {"right", page.right},
                                 {"top", page.top},
                                 {"bottom", page.bottom},
                                 {"header", page.header},
                                 {"footer", page.footer}});
        xml.Leaf("drawing", {{"r:id", RelationshipId(1)}});
        xml.End();
    });
    return isWritten && WriteRelationships(package, "/xl/chartsheets/_rels/" + GetFileName() + ".rels",
                                           {{RelationshipId(1), Names::Relation::Drawing, GetDrawing().GetTarget()}});
}

} // namespace Xlsx
