#include "WrittenWorkbook.h"

#include <gtest/gtest.h>

namespace {

using namespace Xlsx;
using xlsx_test::CountOf;
using xlsx_test::Element;
using xlsx_test::InOrder;

constexpr DiagramKind kinds[] = {DiagramKind::Line, DiagramKind::Bar, DiagramKind::Scatter, DiagramKind::Pie,
                                 DiagramKind::Doughnut};

std::string ChartOf(const std::function<void(CChart&)>& fill) {
    return xlsx_test::Write(
               [&](CWorkbook& workbook) { fill(workbook.AddChart(workbook.AddSheet("A"), TwoCellAnchor{})); })
        .Part("/xl/charts/chart1.xml");
}

Series Referring() {
    Series series;
    series.name = "N & M";
    series.nameReference = "A!$B$1";
    series.categories = "A!$A$2:$A$3";
    series.values = "A!$B$2:$B$3";
    series.fill = SolidFill{"4F81BD"};
    series.line.fill = SolidFill{"C0504D"};
    return series;
}

std::string ChartOf(
    DiagramKind kind, const std::function<void(CChart&)>& change = [](CChart&) {}) {
    return ChartOf([&](CChart& chart) {
        chart.main.kind = kind;
        chart.main.series = {Referring(), Referring()};
        change(chart);
    });
}

TEST(ChartTest, PairsLegendPositionsWithOverlay) {
    struct Case {
        int value;
        const char* position;
        int overlay;
    };
    const Case cases[] = {{1, "l", 1}, {2, "r", 1}, {3, "t", 1}, {4, "b", 1},
                          {5, "l", 0}, {6, "r", 0}, {7, "t", 0}, {8, "b", 0}};
    const auto legend = [](int value) {
        return Element(
            ChartOf(DiagramKind::Bar, [&](CChart& chart) { chart.legend = static_cast<LegendPosition>(value); }),
            "c:legend");
    };
    EXPECT_EQ(legend(0), "(none)");
    for (const Case& row : cases) {
        EXPECT_EQ(legend(row.value), std::string("<c:legend><c:legendPos val=\"") + row.position +
                                         "\"/><c:overlay val=\"" + std::to_string(row.overlay) + "\"/></c:legend>");
    }
}

TEST(ChartTest, WritesTheElementOfEachKind) {
    const std::vector<std::string> expected[] = {
        {"<c:lineChart><c:grouping val=\"standard\"/><c:varyColors", "<c:ser>", "<c:marker val=\"1\"/><c:axId",
         "<c:axId"},
        {"<c:barChart><c:barDir val=\"col\"/><c:grouping val=\"clustered\"/><c:varyColors val=\"1\"/><c:ser>",
         "<c:invertIfNegative val=\"0\"/>", "{6F2FDCE9-48DA-4B69-8628-5D25D57E5C99}",
         "<c14:invertSolidFillFmt><c14:spPr><a:solidFill><a:srgbClr val=\"4F81BD\"/>", "<c:axId", "<c:axId"},
        {"<c:scatterChart><c:scatterStyle val=\"lineMarker\"/><c:varyColors",
         "<c:xVal><c:numRef><c:f>A!$A$2:$A$3</c:f>", "<c:yVal><c:numRef><c:f>A!$B$2:$B$3</c:f>",
         "<c:smooth val=\"0\"/>", "<c:axId", "<c:axId"},
        {"<c:pieChart><c:varyColors", "<c:ser>", "</c:ser><c:firstSliceAng val=\"90\"/></c:pieChart>"},
        {"<c:doughnutChart><c:varyColors",
         "</c:ser><c:firstSliceAng val=\"90\"/><c:holeSize val=\"40\"/></c:doughnutChart>"}};
    for (const DiagramKind kind : kinds) {
        const std::string chart = ChartOf(kind, [](CChart& each) {
            each.main.firstSliceDegrees = 90;
            each.main.holePercent = 40;
        });
        EXPECT_TRUE(InOrder(chart, expected[static_cast<int>(kind)])) << chart;
        const bool hasAxes = static_cast<int>(kind) <= static_cast<int>(DiagramKind::Scatter);
        EXPECT_EQ(CountOf(chart, "<c:valAx>") + CountOf(chart, "<c:catAx>"), hasAxes ? 2U : 0U);
        EXPECT_EQ(CountOf(chart, "<c:valAx>"), kind == DiagramKind::Scatter ? 2U : hasAxes ? 1U : 0U);
        EXPECT_EQ(CountOf(chart, "<c:symbol"), kind == DiagramKind::Line || kind == DiagramKind::Scatter ? 2U : 0U);
    }
}

TEST(ChartTest, FramesTheChart) {
    const std::string chart = ChartOf(DiagramKind::Bar, [](CChart& each) {
        each.title = "<T>";
        each.automaticTitle = AutomaticTitle::Allowed;
        each.dataTable = DataTable{true, false, true, false};
        each.blankCells = BlankCells::Span;
        each.legend = LegendPosition::None;
    });
    EXPECT_TRUE(InOrder(
        chart,
        {"<c:chartSpace xmlns:c=", "xmlns:a=", "xmlns:r=",
         "<c:date1904 val=\"0\"/><c:lang val=\"en-US\"/><c:roundedCorners val=\"0\"/><mc:AlternateContent",
         "<mc:Choice Requires=\"c14\"", "<c14:style val=\"102\"/></mc:Choice><mc:Fallback><c:style val=\"2\"/>",
         "<c:chart><c:title><c:tx><c:rich><a:bodyPr/><a:lstStyle/><a:p><a:pPr><a:defRPr/></a:pPr><a:r><a:rPr "
         "lang=\"en-US\"/><a:t>&lt;T&gt;</a:t></a:r><a:endParaRPr lang=\"en-US\"/></a:p></c:rich></c:tx><c:layout/>"
         "<c:overlay",
         "</c:title><c:autoTitleDeleted val=\"0\"/><c:plotArea><c:layout/><c:barChart>",
         "</c:valAx><c:dTable><c:showHorzBorder val=\"1\"/><c:showVertBorder val=\"0\"/><c:showOutline val=\"1\"/>"
         "<c:showKeys val=\"0\"/></c:dTable></c:plotArea><c:plotVisOnly",
         "<c:dispBlanksAs val=\"span\"/><c:showDLblsOverMax val=\"0\"/></c:chart></c:chartSpace>"}))
        << chart;
    const std::string plain = ChartOf(DiagramKind::Bar);
    for (const char* name : {"c:title", "c:autoTitleDeleted", "c:dTable"}) {
        EXPECT_EQ(Element(plain, name), "(none)") << name;
    }
}

TEST(ChartTest, WritesASeries) {
    const std::string line = ChartOf(DiagramKind::Line, [](CChart& chart) {
        Series& series = chart.main.series[0];
        series.line.dash = LineDash::ShortDot;
        series.smoothing = Smoothing::On;
        series.marker = {MarkerSymbol::Diamond, 9, NoFill(), {}};
    });
    EXPECT_TRUE(InOrder(
        line, {"<c:ser><c:idx val=\"0\"/><c:order val=\"0\"/><c:tx><c:strRef><c:f>A!$B$1</c:f><c:strCache><c:ptCount "
               "val=\"1\"/><c:pt idx=\"0\"><c:v>N &amp; M</c:v></c:pt></c:strCache></c:strRef></c:tx><c:spPr><a:ln>"
               "<a:solidFill><a:srgbClr val=\"C0504D\"/></a:solidFill><a:prstDash val=\"sysDot\"/></a:ln></c:spPr>"
               "<c:marker><c:symbol val=\"diamond\"/><c:size val=\"9\"/><c:spPr><a:noFill/></c:spPr></c:marker><c:cat>"
               "<c:numRef><c:f>A!$A$2:$A$3</c:f></c:numRef></c:cat><c:val><c:numRef><c:f>A!$B$2:$B$3</c:f></c:numRef>"
               "</c:val><c:smooth val=\"1\"/></c:ser>",
               "<c:ser><c:idx val=\"1\"/><c:order val=\"1\"/>", "<c:marker><c:symbol val=\"none\"/></c:marker>"}))
        << line;
    const std::string kept = ChartOf([](CChart& chart) {
        chart.main = {DiagramKind::Pie, {Series()}};
        chart.main.series[0].name = "kept";
    });
    EXPECT_NE(kept.find("<c:order val=\"0\"/><c:tx><c:v>kept</c:v></c:tx></c:ser>"), std::string::npos) << kept;
}

TEST(ChartTest, WritesPatternsAndGradients) {
    const std::string chart = ChartOf(DiagramKind::Bar, [](CChart& each) {
        each.main.series[0].fill = PatternFill{PatternPreset::SolidDiamond, "112233", "445566"};
        each.main.series[1].fill =
            GradientFill{{{0, "000000"}, {100000, "FFFFFF"}}, GradientPath::Shape, {1, 2, 3, 4}, {-5, 0, 0, 6}};
        each.main.direction = BarDirection::Bars;
        each.main.grouping = BarGrouping::PercentStacked;
    });
    EXPECT_TRUE(InOrder(
        chart,
        {"<c:barDir val=\"bar\"/><c:grouping val=\"percentStacked\"/>",
         "<a:pattFill prst=\"solidDmnd\"><a:fgClr><a:srgbClr val=\"112233\"/></a:fgClr><a:bgClr><a:srgbClr "
         "val=\"445566\"/></a:bgClr></a:pattFill>",
         "<a:gsLst><a:gs pos=\"0\"><a:srgbClr val=\"000000\"/></a:gs><a:gs pos=\"100000\"><a:srgbClr val=\"FFFFFF\"/>"
         "</a:gs></a:gsLst><a:path path=\"shape\"><a:fillToRect l=\"1\" t=\"2\" r=\"3\" b=\"4\"/></a:path><a:tileRect "
         "l=\"-5\" t=\"0\" r=\"0\" b=\"6\"/></a:gradFill>"}))
        << chart;
}

TEST(ChartTest, WritesAxes) {
    const std::string chart = ChartOf(DiagramKind::Line, [](CChart& each) {
        each.yAxis.minimum = -1.5;
        each.yAxis.maximum = 1e7;
        each.yAxis.hasMinorGridlines = true;
        each.yAxis.crossing = AxisCrossing::Minimum;
        each.xAxis.labelDegrees = -45;
        each.xAxis.labelSkip = 2;
        each.xAxis.markSkip = 3;
        each.xAxis.isDeleted = true;
    });
    EXPECT_TRUE(InOrder(
        chart,
        {"<c:catAx><c:axId val=\"",
         "<c:scaling><c:orientation val=\"minMax\"/></c:scaling><c:delete val=\"1\"/>"
         "<c:axPos val=\"b\"/><c:majorTickMark val=\"none\"/><c:minorTickMark val=\"none\"/><c:tickLblPos "
         "val=\"nextTo\"/><c:txPr><a:bodyPr rot=\"-2700000\"/><a:lstStyle/><a:p><a:pPr><a:defRPr/></a:pPr>"
         "<a:endParaRPr lang=\"en-US\"/></a:p></c:txPr><c:crossAx",
         "<c:crosses val=\"autoZero\"/><c:auto", "<c:lblAlgn val=\"ctr\"/><c:lblOffset",
         "<c:tickLblSkip val=\"2\"/>"
         "<c:tickMarkSkip val=\"3\"/><c:noMultiLvlLbl",
         "</c:catAx><c:valAx>",
         "<c:orientation val=\"minMax\"/><c:max val=\"1e+07\"/><c:min val=\"-1.5\"/></c:scaling>",
         "<c:axPos val=\"l\"/><c:majorGridlines/><c:minorGridlines/><c:numFmt formatCode=\"General\" sourceLinked=\"",
         "<c:crosses val=\"min\"/><c:crossBetween val=\"between\"/></c:valAx>"}))
        << chart;
}

TEST(ChartTest, DrawsTheAdditionalDiagramOnAxesOfItsOwn) {
    const auto chart = [](DiagramKind kind, const std::vector<Series>& series) {
        return ChartOf(DiagramKind::Bar, [&](CChart& each) { each.additional = {kind, series}; });
    };
    const std::string both = chart(DiagramKind::Line, {Referring()});
    EXPECT_TRUE(InOrder(both, {"</c:barChart><c:lineChart>", "<c:idx val=\"2\"/><c:order val=\"2\"/>",
                               "</c:lineChart><c:catAx>", "<c:valAx>", "<c:catAx>", "<c:delete val=\"1\"/>",
                               "<c:valAx>", "<c:crosses val=\"max\"/>"}))
        << both;
    EXPECT_EQ(CountOf(both, "<c:axId "), 8U);
    for (const std::string& alone : {chart(DiagramKind::Line, {}), chart(DiagramKind::None, {Referring()})}) {
        EXPECT_EQ(CountOf(alone, "<c:axId "), 4U);
        EXPECT_EQ(CountOf(alone, "<c:ser>"), 2U);
    }
}

TEST(DrawingTest, AnchorsChartsAndPictures) {
    const xlsx_test::Written written = xlsx_test::Write(
        [](CWorkbook& workbook) {
            CWorksheet& sheet = workbook.AddSheet("A");
            workbook.AddChart(sheet, TwoCellAnchor{{1, 2, 3, 4}, {5, 6, 7, 8}}).main.kind = DiagramKind::Pie;
            workbook.AddPicture(sheet, L"p.png", ImageKind::Png, OneCellAnchor{{1, 2}, {300, 400}});
            workbook.AddPicture(sheet, L"p.png", ImageKind::Png, AbsoluteAnchor{10, 20, {5000000000, 40}});
            workbook.AddSheet("without drawing");
            workbook.AddChart(workbook.AddSheet("B"), AbsoluteAnchor{}).main.kind = DiagramKind::Pie;
        },
        {{"p.png", "bytes"}});
    const std::string drawing = written.Part("/xl/drawings/drawing1.xml");
    EXPECT_TRUE(InOrder(
        drawing,
        {"<xdr:twoCellAnchor><xdr:from><xdr:col>1</xdr:col><xdr:colOff>3</xdr:colOff><xdr:row>2</xdr:row><xdr:rowOff>4"
         "</xdr:rowOff></xdr:from><xdr:to><xdr:col>5</xdr:col><xdr:colOff>7</xdr:colOff><xdr:row>6</"
         "xdr:row><xdr:rowOff>8"
         "</xdr:rowOff></xdr:to><xdr:graphicFrame macro=\"\"><xdr:nvGraphicFramePr><xdr:cNvPr id=\"",
         "<xdr:cNvGraphicFramePr><a:graphicFrameLocks noGrp=", "<xdr:xfrm><a:off", "<a:ext",
         "</xdr:xfrm><a:graphic>"
         "<a:graphicData uri=\"http://schemas.openxmlformats.org/drawingml/2006/chart\"><c:chart",
         "r:id=\"rId1\"/>", "</xdr:graphicFrame><xdr:clientData/></xdr:twoCellAnchor>",
         "<xdr:oneCellAnchor editAs=\"oneCell\"><xdr:from><xdr:col>1<",
         "</xdr:from><xdr:ext cx=\"300\" cy=\"400\"/><xdr:pic>"
         "<xdr:nvPicPr><xdr:cNvPr id=\"",
         "<xdr:cNvPicPr><a:picLocks noChangeAspect=", "<xdr:blipFill><a:blip",
         "r:embed=\"rId2\"/><a:stretch><a:fillRect/></a:stretch></xdr:blipFill><xdr:spPr><a:prstGeom prst=\"rect\">"
         "<a:avLst/></a:prstGeom></xdr:spPr></xdr:pic><xdr:clientData/></xdr:oneCellAnchor>",
         "<xdr:absoluteAnchor><xdr:pos x=\"10\" y=\"20\"/><xdr:ext cx=\"5000000000\" cy=\"40\"/><xdr:pic>",
         "r:embed=\"rId3\"", "</xdr:absoluteAnchor></xdr:wsDr>"}))
        << drawing;
    // A drawing that is not written keeps its number.
    EXPECT_FALSE(written.Has("/xl/drawings/drawing2.xml"));
    EXPECT_TRUE(written.Has("/xl/drawings/drawing3.xml"));
    EXPECT_EQ(written.Part("/[Content_Types].xml").find("drawing2.xml"), std::string::npos);
    EXPECT_EQ(Element(written.Part("/xl/worksheets/sheet2.xml"), "drawing"), "(none)");
}

} // namespace
