#include "WrittenWorkbook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>

namespace {

using namespace Xlsx;
using xlsx_test::CountOf;
using xlsx_test::Element;
using xlsx_test::InOrder;
using xlsx_test::Written;

const std::string officeType = "application/vnd.openxmlformats-officedocument.";

Series AnySeries() {
    Series series;
    series.name = "s";
    series.values = "A!$A$1:$A$2";
    return series;
}

Comment AnyComment(unsigned row) {
    Comment comment;
    comment.place = {row, 1};
    comment.text = {{"note", {}}};
    return comment;
}

// Two worksheets with a chartsheet between; the second worksheet has everything.
Written WriteFull() {
    return xlsx_test::Write(
        [](CWorkbook& workbook) {
            workbook.AddSheet("First").BeginRow();
            workbook.AddChartsheet("Chart").Chart().main = {DiagramKind::Pie, {AnySeries()}};
            CWorksheet& sheet = workbook.AddSheet("A & B");
            sheet.BeginRow();
            sheet.AddCell("text");
            sheet.AddCell("=A1");
            sheet.AddComment(AnyComment(0));
            workbook.AddChart(sheet, OneCellAnchor{}).main = {DiagramKind::Line, {AnySeries()}};
            workbook.AddPicture(sheet, L"in/picture.jpg", ImageKind::Jpeg, AbsoluteAnchor{});
            workbook.AddPicture(sheet, L"in/picture.gif", ImageKind::Gif, AbsoluteAnchor{});
            workbook.SetActiveSheet(2);
            workbook.DefineName({"Name", "'A & B'!$A$1", "why", 2});
        },
        {{"in/picture.jpg", "jpg bytes"}, {"in/picture.gif", "gif bytes"}});
}

TEST(WorkbookPartsTest, ListsThePartsInTheirOrder) {
    const std::vector<std::string> expected = {"/xl/worksheets/sheet1.xml",
                                               "/xl/worksheets/sheet3.xml",
                                               "/xl/media/picture.jpg",
                                               "/xl/media/picture.gif",
                                               "/docProps/core.xml",
                                               "/_rels/.rels",
                                               "/docProps/app.xml",
                                               "/[Content_Types].xml",
                                               "/xl/calcChain.xml",
                                               "/xl/theme/theme1.xml",
                                               "/xl/comments3.xml",
                                               "/xl/drawings/vmlDrawing3.vml",
                                               "/xl/sharedStrings.xml",
                                               "/xl/styles.xml",
                                               "/xl/workbook.xml",
                                               "/xl/_rels/workbook.xml.rels",
                                               "/xl/worksheets/_rels/sheet1.xml.rels",
                                               "/xl/worksheets/_rels/sheet3.xml.rels",
                                               "/xl/chartsheets/sheet2.xml",
                                               "/xl/chartsheets/_rels/sheet2.xml.rels",
                                               "/xl/charts/chart1.xml",
                                               "/xl/charts/chart2.xml",
                                               "/xl/drawings/drawing2.xml",
                                               "/xl/drawings/_rels/drawing2.xml.rels",
                                               "/xl/drawings/drawing3.xml",
                                               "/xl/drawings/_rels/drawing3.xml.rels"};
    const Written written = WriteFull();
    EXPECT_EQ(written.order, expected);
    EXPECT_EQ(written.Part("/xl/media/picture.jpg"), "jpg bytes");
}

TEST(WorkbookPartsTest, NumbersSheetsOfBothKindsInOneRow) {
    const Written written = WriteFull();
    const std::string workbook = written.Part("/xl/workbook.xml");
    EXPECT_EQ(Element(workbook, "sheets"),
              "<sheets><sheet name=\"First\" sheetId=\"1\" r:id=\"rId1\"/><sheet name=\"Chart\" sheetId=\"2\" "
              "r:id=\"rId2\"/><sheet name=\"A &amp; B\" sheetId=\"3\" r:id=\"rId3\"/></sheets>");
    EXPECT_EQ(Element(workbook, "definedNames"),
              "<definedNames><definedName name=\"Name\" comment=\"why\" localSheetId=\"2\">'A &amp; B'!$A$1"
              "</definedName></definedNames>");
    EXPECT_TRUE(
        InOrder(workbook, {"<fileVersion appName=\"xl\" lastEdited=\"5\" lowestEdited=\"5\" rupBuild=\"9303\"/>",
                           "<workbookPr codeName=\"ThisWorkbook\" defaultThemeVersion=\"124226\"/>",
                           "xWindow=\"270\" yWindow=\"630\" windowWidth=\"24615\" windowHeight=\"11445\" "
                           "activeTab=\"2\"",
                           "<calcPr calcId=\"124519\"/></workbook>"}))
        << workbook;
    EXPECT_TRUE(
        InOrder(written.Part("/xl/_rels/workbook.xml.rels"),
                {"\"rId1\"", "/worksheet\"", "worksheets/sheet1.xml", "\"rId3\"", "worksheets/sheet3.xml", "\"rId2\"",
                 "/chartsheet\"", "chartsheets/sheet2.xml", "\"rId4\"", "\"calcChain.xml\"", "\"rId5\"",
                 "\"sharedStrings.xml\"", "\"rId6\"", "\"styles.xml\"", "\"rId7\"", "\"theme/theme1.xml\""}));
    EXPECT_EQ(Element(written.Part("/xl/calcChain.xml"), "c"), "<c r=\"B1\" i=\"3\"/>");
}

TEST(WorkbookPartsTest, NamesTheTypeOfEachPart) {
    const std::string types = WriteFull().Part("/[Content_Types].xml");
    EXPECT_TRUE(InOrder(
        types, {"Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"",
                "Extension=\"xml\" ContentType=\"application/xml\"",
                "Extension=\"gif\" ContentType=\"image/gif\"",
                "Extension=\"jpg\" ContentType=\"image/jpeg\"",
                "/xl/workbook.xml\" ContentType=\"" + officeType + "spreadsheetml.sheet.main+xml\"",
                "/xl/worksheets/sheet1.xml\" ContentType=\"" + officeType + "spreadsheetml.worksheet+xml\"",
                "/xl/worksheets/sheet3.xml\"",
                "/xl/calcChain.xml\" ContentType=\"" + officeType + "spreadsheetml.calcChain+xml\"",
                "/xl/chartsheets/sheet2.xml\" ContentType=\"" + officeType + "spreadsheetml.chartsheet+xml\"",
                "/xl/theme/theme1.xml\" ContentType=\"" + officeType + "theme+xml\"",
                "/xl/styles.xml\" ContentType=\"" + officeType + "spreadsheetml.styles+xml\"",
                "/xl/sharedStrings.xml\" ContentType=\"" + officeType + "spreadsheetml.sharedStrings+xml\"",
                "/xl/drawings/drawing2.xml\" ContentType=\"" + officeType + "drawing+xml\"",
                "/xl/drawings/drawing3.xml\"",
                "/xl/charts/chart1.xml\" ContentType=\"" + officeType + "drawingml.chart+xml\"",
                "/xl/charts/chart2.xml\"",
                "Extension=\"vml\" ContentType=\"" + officeType + "vmlDrawing\"",
                "/xl/comments3.xml\" ContentType=\"" + officeType + "spreadsheetml.comments+xml\"",
                "/docProps/core.xml\" ContentType=\"application/vnd.openxmlformats-package.core-properties+xml\"",
                "/docProps/app.xml\" ContentType=\"" + officeType + "extended-properties+xml\""}))
        << types;
    EXPECT_EQ(CountOf(types, "<Override "), 15U);
    EXPECT_EQ(CountOf(types, "<Default "), 5U);
}

TEST(WorkbookPartsTest, RefersFromASheetToWhatItShows) {
    const Written written = WriteFull();
    EXPECT_TRUE(InOrder(written.Part("/xl/worksheets/sheet3.xml"),
                        {"<pageSetup", "<drawing r:id=\"rId1\"/><legacyDrawing r:id=\"rId2\"/></worksheet>"}));
    EXPECT_TRUE(
        InOrder(written.Part("/xl/worksheets/_rels/sheet3.xml.rels"),
                {"\"rId1\"", "/drawing\" Target=\"../drawings/drawing3.xml\"", "\"rId2\"",
                 "/vmlDrawing\" Target=\"../drawings/vmlDrawing3.vml\"", "/comments\" Target=\"../comments3.xml\""}));
    EXPECT_EQ(CountOf(written.Part("/xl/worksheets/_rels/sheet1.xml.rels"), "<Relationship "), 0U);
    EXPECT_TRUE(InOrder(written.Part("/xl/drawings/_rels/drawing3.xml.rels"),
                        {"\"rId1\"", "/chart\" Target=\"../charts/chart2.xml\"", "\"rId2\"",
                         "/image\" Target=\"../media/picture.jpg\"", "\"rId3\"", "\"../media/picture.gif\""}));
    EXPECT_TRUE(InOrder(written.Part("/xl/chartsheets/sheet2.xml"),
                        {"<chartsheet ", "<sheetPr/>", "zoomScale=\"85\" workbookViewId=\"0\" zoomToFit=\"1\"",
                         "<pageMargins left=\"0.7\"", "<drawing r:id=\"rId1\"/></chartsheet>"}));
    EXPECT_TRUE(InOrder(written.Part("/_rels/.rels"), {"\"rId3\"", "docProps/app.xml", "\"rId2\"", "docProps/core.xml",
                                                       "\"rId1\"", "\"xl/workbook.xml\""}));
}

TEST(WorkbookPartsTest, CountsSheetsInTheProperties) {
    const Written written = WriteFull();
    const std::string properties = written.Part("/docProps/app.xml");
    EXPECT_EQ(Element(properties, "HeadingPairs"),
              "<HeadingPairs><vt:vector size=\"4\" baseType=\"variant\"><vt:variant><vt:lpstr>Worksheets</vt:lpstr>"
              "</vt:variant><vt:variant><vt:i4>2</vt:i4></vt:variant><vt:variant><vt:lpstr>Diagramms</vt:lpstr>"
              "</vt:variant><vt:variant><vt:i4>1</vt:i4></vt:variant></vt:vector></HeadingPairs>");
    EXPECT_EQ(Element(properties, "TitlesOfParts"),
              "<TitlesOfParts><vt:vector size=\"3\" baseType=\"lpstr\"><vt:lpstr>First</vt:lpstr>"
              "<vt:lpstr>A &amp; B</vt:lpstr><vt:lpstr>Chart</vt:lpstr></vt:vector></TitlesOfParts>");
    EXPECT_TRUE(InOrder(properties, {"<Application>Microsoft Excel</Application><DocSecurity>0</DocSecurity>"
                                     "<ScaleCrop>false</ScaleCrop><HeadingPairs>",
                                     "<Company/><LinksUpToDate>false</LinksUpToDate><SharedDoc>false</SharedDoc>"
                                     "<HyperlinksChanged>false</HyperlinksChanged><AppVersion>14.03</AppVersion>"}));
    const Written plain = xlsx_test::Write([](CWorkbook& workbook) { workbook.AddSheet(""); });
    EXPECT_EQ(CountOf(plain.Part("/docProps/app.xml"), "<vt:variant>"), 2U);
    EXPECT_NE(plain.Part("/docProps/app.xml").find("<vt:lpstr>Sheet 1</vt:lpstr>"), std::string::npos);
    EXPECT_EQ(plain.Part("/xl/_rels/workbook.xml.rels").find("sharedStrings"), std::string::npos);
    EXPECT_EQ(plain.Part("/[Content_Types].xml").find("sharedStrings"), std::string::npos);
}

TEST(WorkbookPartsTest, StampsAuthorAndLocalTime) {
    const std::time_t before = std::time(nullptr);
    const std::string core = WriteFull().Part("/docProps/core.xml");
    const std::time_t after = std::time(nullptr);
    EXPECT_TRUE(InOrder(core, {"xmlns:cp=", "xmlns:dc=", "xmlns:dcterms=", "xmlns:dcmitype=", "xmlns:xsi=",
                               "<dc:creator>Author</dc:creator><cp:lastModifiedBy>Author</cp:lastModifiedBy>",
                               "<dcterms:created xsi:type=\"dcterms:W3CDTF\">", "<dcterms:modified"}));
    const std::string stamp = Element(core, "dcterms:modified");
    bool isInRange = false;
    for (std::time_t time = before; time <= after; ++time) {
        char text[32];
        std::strftime(text, sizeof text, ">%Y-%m-%dT%H:%M:%SZ<", std::localtime(&time));
        isInRange = isInRange || stamp.find(text) != std::string::npos;
    }
    EXPECT_TRUE(isInRange) << stamp;
}

TEST(WorkbookPartsTest, TakesTheAuthorFromTheSystem) {
    const auto author = [](const char* userName) {
#ifdef _WIN32
        _putenv_s("USERNAME", userName);
#else
        setenv("USERNAME", userName, 1);
#endif
        xlsx_test::KeepingFiles files;
        CWorkbook workbook("", files);
        workbook.AddSheet("A");
        if (!workbook.Save(L"no-such-folder/a.xlsx")) return std::string("(not saved)");
        for (const auto& [path, bytes] : files.kept) {
            if (path.find("core.xml") != std::string::npos) return Element(bytes, "dc:creator");
        }
        return std::string("(no part)");
    };
    EXPECT_EQ(author("Ada"), "<dc:creator>Ada</dc:creator>");
    EXPECT_EQ(author(""), "<dc:creator>Unknown</dc:creator>");
}

TEST(WorkbookPartsTest, FallsBackToTheFirstSheet) {
    const auto activeTab = [](unsigned position) {
        const Written written = xlsx_test::Write([&](CWorkbook& workbook) {
            workbook.AddSheet("A");
            workbook.AddChartsheet("B");
            workbook.SetActiveSheet(position);
        });
        const std::string workbook = written.Part("/xl/workbook.xml");
        return workbook.substr(workbook.find("activeTab"), 13);
    };
    EXPECT_EQ(activeTab(1), "activeTab=\"1\"");
    EXPECT_EQ(activeTab(2), "activeTab=\"0\"");
}

TEST(WorkbookPartsTest, NamesPicturesSoThatPartsMayBeNamedSo) {
    struct Case {
        std::wstring path;
        ImageKind kind;
        const char* target;
    };
    const Case cases[] = {
        {L"a/b.png", ImageKind::Png, "../media/b.png"},
        {L"a/b.png", ImageKind::Png, "../media/b.png"}, // the same file again
        {L"c/B.PNG", ImageKind::Png, "../media/B-2.png"},
        {L"c/d", ImageKind::Tiff, "../media/d.tiff"},
        {L"c/e.tif", ImageKind::Tiff, "../media/e.tif"},
        {L"c\\f g%.gif", ImageKind::Gif, "../media/f_g_.gif"},
        {L"c/_x0041_.jpeg", ImageKind::Jpeg, "../media/_x0041_.jpeg"},
        {L"c/h.dat", ImageKind::Jpeg, "../media/h.dat.jpeg"},
    };
    std::map<std::string, std::string> sources;
    for (const Case& row : cases) {
        sources[std::string(row.path.begin(), row.path.end())] = "bytes";
    }
    const Written written = xlsx_test::Write(
        [&](CWorkbook& workbook) {
            CWorksheet& sheet = workbook.AddSheet("A");
            for (const Case& row : cases) {
                workbook.AddPicture(sheet, row.path, row.kind, AbsoluteAnchor{});
            }
        },
        sources);
    std::vector<std::string> targets;
    for (const Case& row : cases) {
        targets.push_back(std::string("Target=\"") + row.target + "\"");
        EXPECT_TRUE(written.Has(std::string("/xl") + (row.target + 2))) << row.target;
    }
    const std::string relationships = written.Part("/xl/drawings/_rels/drawing1.xml.rels");
    EXPECT_TRUE(InOrder(relationships, targets)) << relationships;
    EXPECT_TRUE(
        InOrder(written.Part("/[Content_Types].xml"), {"\"gif\"", "\"jpeg\" ContentType=\"image/jpeg\"", "\"png\"",
                                                       "\"tiff\"", "\"tif\" ContentType=\"image/tiff\""}));
    EXPECT_EQ(written.Part("/[Content_Types].xml").find("\"jpg\""), std::string::npos);
}

TEST(WorkbookPartsTest, WritesCommentsAndTheirNotes) {
    const Written written = xlsx_test::Write([](CWorkbook& workbook) {
        CWorksheet& sheet = workbook.AddSheet("A");
        Comment first = AnyComment(2);
        first.author = "Other";
        first.text = {{" a", {}}, {"b", {"Arial", 9, FontColour::Given, "FF0000", Bold}}};
        first.box = {1.5, 2, 100, 50};
        sheet.AddComment(first);
        sheet.AddComment(AnyComment(4));
        Comment shown = AnyComment(4);
        shown.view = NoteView::Shown;
        sheet.AddComment(shown); // in the place of the one before
    });
    const std::string comments = written.Part("/xl/comments1.xml");
    EXPECT_EQ(Element(comments, "authors"), "<authors><author>Other</author><author>Author</author></authors>");
    EXPECT_TRUE(
        InOrder(comments,
                {"<comment ref=\"B3\" authorId=\"0\"><text><r><rPr><sz val=\"11\"/><rFont "
                 "val=\"Calibri\"/><charset val=\"204\"/><color theme=\"1\"/></rPr>"
                 "<t xml:space=\"preserve\"> a</t></r><r><rPr><b/><sz val=\"9\"/><rFont val=\"Arial\"/>",
                 "<color rgb=\"FF0000\"/></rPr><t>b</t></r></text></comment>", "<comment ref=\"B5\" authorId=\"1\">"}))
        << comments;
    EXPECT_EQ(CountOf(comments, "<comment "), 2U);
    const std::string notes = written.Part("/xl/drawings/vmlDrawing1.vml");
    EXPECT_TRUE(InOrder(
        notes,
        {"<xml xmlns:v=", "xmlns:o=", "xmlns:x=", "<o:shapelayout", "<o:idmap", "data=\"1\"",
         "<v:shapetype id=\"_x0000_t202\" coordsize=\"21600,21600\" o:spt=\"202\" path=\"m,l,21600r21600,l21600,xe\">",
         "<v:shape id=\"_x0000_s1025\" type=\"#_x0000_t202\" style=\"position:absolute; margin-left:1.5pt;"
         "margin-top:2pt;width:100pt;height:50pt; z-index:2;visibility:hidden;mso-wrap-style:tight\"",
         "<v:fill", "obscured=\"t\"", "<v:textbox style=\"mso-direction-alt:auto\">", "text-align:left",
         "<x:ClientData ObjectType=\"Note\"><x:MoveWithCells/><x:SizeWithCells/><x:AutoFill>False</x:AutoFill>"
         "<x:Row>2</x:Row><x:Column>1</x:Column></x:ClientData>",
         "\"_x0000_s1026\"", "z-index:2;mso-wrap-style:tight", "<x:Row>4</x:Row><x:Column>1</x:Column><x:Visible/>"}))
        << notes;
}

TEST(WorkbookPartsTest, NumbersThousandsOfNotesWithoutRepeating) {
    const Written written = xlsx_test::Write([](CWorkbook& workbook) {
        for (const char* name : {"A", "B"}) {
            CWorksheet& sheet = workbook.AddSheet(name);
            for (unsigned row = 0; row < 1024; ++row) {
                sheet.AddComment(AnyComment(row));
            }
        }
    });
    const std::string first = written.Part("/xl/drawings/vmlDrawing1.vml");
    const std::string second = written.Part("/xl/drawings/vmlDrawing2.vml");
    EXPECT_NE(first.find("data=\"1,2\""), std::string::npos);
    EXPECT_NE(second.find("data=\"3,4\""), std::string::npos);
    EXPECT_TRUE(InOrder(first, {"_s1025\"", "_s2047\"", "_s2049\""}));
    EXPECT_TRUE(InOrder(second, {"_s3073\"", "_s4095\"", "_s4097\""}));
}

TEST(WorkbookPartsTest, ThemeRepeatsItsFonts) {
    const std::string theme = WriteFull().Part("/xl/theme/theme1.xml");
    const std::string major = Element(theme, "a:majorFont");
    const std::string minor = Element(theme, "a:minorFont");
    EXPECT_EQ(major.substr(std::string("<a:majorFont>").size(), major.size() - 27),
              minor.substr(std::string("<a:minorFont>").size(), minor.size() - 27));
    EXPECT_TRUE(InOrder(major, {"<a:latin typeface=\"Cambria\"/><a:ea typeface=\"\"/><a:cs typeface=\"\"/>",
                                "script=\"Arab\" typeface=\"Times New Roman\"", "script=\"Thai\" typeface=\"Tahoma\"",
                                "script=\"Ethi\" typeface=\"Nyala\"", "script=\"Beng\" typeface=\"Vrinda\"",
                                "script=\"Deva\" typeface=\"Mangal\"", "script=\"Geor\" typeface=\"Sylfaen\""}));
    EXPECT_TRUE(InOrder(theme, {"name=\"Office Theme\"", "<a:clrScheme name=\"Office\">",
                                "windowText\" lastClr=\"000000", "window\" lastClr=\"FFFFFF", "1F497D", "EEECE1",
                                "4F81BD", "C0504D", "9BBB59", "8064A2", "4BACC6", "F79646", "0000FF", "800080"}));
    for (const auto& [list, count] : {std::pair("a:fillStyleLst", 3U), std::pair("a:bgFillStyleLst", 3U)}) {
        const std::string fills = Element(theme, list);
        EXPECT_EQ(CountOf(fills, "<a:solidFill>") + CountOf(fills, "<a:gradFill "), count) << list;
    }
    EXPECT_EQ(CountOf(theme, "<a:effectStyle>"), 3U);
    EXPECT_EQ(CountOf(Element(theme, "a:lnStyleLst"), "<a:ln "), 3U);
}

} // namespace
