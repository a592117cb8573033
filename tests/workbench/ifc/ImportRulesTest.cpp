// The rules of the import, each by a small file with hand-computed results, read through the child program.
#include <gtest/gtest.h>
#include <sstream>

#include "IfcText.h"

using namespace workbench::ifc;
using namespace ifctest;

namespace {

constexpr double Exact = 1e-9; // sums and products of a few doubles

/// A wall 'w' (#20) with 2 m3 and 10 m2, and materials #40 Brick, #41 Wood.
std::string WallOfTwo() {
    return MetricProject() + "#20=IFCWALL('w',$,'Wall',$,$,#9,$,$,$);\n" +
           Quantity(30, 20, "VOLUME", "NetVolume", "2.") + Quantity(33, 20, "AREA", "NetSideArea", "10.") +
           "#40=IFCMATERIAL('Brick',$,$);\n#41=IFCMATERIAL('Wood',$,$);\n";
}

std::string Associate(int object, int material) {
    return "#99=IFCRELASSOCIATESMATERIAL('a',$,$,$,(#" + std::to_string(object) + "),#" + std::to_string(material) +
           ");\n";
}

struct MaterialCase {
    const char* name;
    std::string body;
    const char* components;
};

const std::string LayerSet = "#42=IFCMATERIALLAYER(#40,0.3,$,$,$,$,$);\n#43=IFCMATERIALLAYER(#41,0.1,$,$,$,$,$);\n"
                             "#44=IFCMATERIALLAYER(#41,0.,$,$,$,$,$);\n#45=IFCMATERIALLAYERSET((#42,#44,#43),$,$);\n";
const std::string WallType =
    "#60=IFCWALLTYPE('t',$,'T',$,$,$,$,$,$,.STANDARD.);\n#61=IFCRELDEFINESBYTYPE('d',$,$,$,(#20),#60);\n";

const MaterialCase MaterialCases[] = {
    {"none", "", "(no material) 2 m3 10 m2"},
    {"one", Associate(20, 40), "Brick 2 m3 10 m2"},
    {"layers with usage", LayerSet + "#46=IFCMATERIALLAYERSETUSAGE(#45,.AXIS2.,.POSITIVE.,0.,$);\n" + Associate(20, 46),
     "Brick 1.5 m3 10 m2; Wood 0.5 m3 10 m2"},
    {"layers without usage", LayerSet + Associate(20, 45), "Brick 1.5 m3 10 m2; Wood 0.5 m3 10 m2"},
    {"layer without material",
     "#42=IFCMATERIALLAYER(#40,0.3,$,$,$,$,$);\n#43=IFCMATERIALLAYER($,0.1,$,$,$,$,$);\n"
     "#45=IFCMATERIALLAYERSET((#42,#43),$,$);\n" +
         Associate(20, 45),
     "Brick 1.5 m3 10 m2; (no material) 0.5 m3 10 m2"},
    {"only empty layers",
     "#42=IFCMATERIALLAYER(#40,0.,$,$,$,$,$);\n#45=IFCMATERIALLAYERSET((#42),$,$);\n" + Associate(20, 45),
     "(no material) 2 m3 10 m2"},
    {"fractions",
     "#42=IFCMATERIALCONSTITUENT('a',$,#40,0.25,$);\n#43=IFCMATERIALCONSTITUENT('b',$,#41,0.75,$);\n"
     "#45=IFCMATERIALCONSTITUENTSET($,$,(#42,#43));\n" +
         Associate(20, 45),
     "Brick 0.5 m3 2.5 m2; Wood 1.5 m3 7.5 m2"},
    {"fractions that are not whole",
     "#42=IFCMATERIALCONSTITUENT('a',$,#40,0.1,$);\n#43=IFCMATERIALCONSTITUENT('b',$,#41,0.3,$);\n"
     "#45=IFCMATERIALCONSTITUENTSET($,$,(#42,#43));\n" +
         Associate(20, 45),
     "Brick 0.5 m3 2.5 m2; Wood 1.5 m3 7.5 m2"},
    {"a fraction missing",
     "#42=IFCMATERIALCONSTITUENT('a',$,#40,0.25,$);\n#43=IFCMATERIALCONSTITUENT('b',$,#41,$,$);\n"
     "#45=IFCMATERIALCONSTITUENTSET($,$,(#42,#43));\n" +
         Associate(20, 45),
     "Brick 1 m3 5 m2; Wood 1 m3 5 m2"},
    {"list", "#45=IFCMATERIALLIST((#40,#41));\n" + Associate(20, 45), "Brick 1 m3 5 m2; Wood 1 m3 5 m2"},
    {"profile",
     "#42=IFCMATERIALPROFILE($,$,#41,#43,$,$);\n#43=IFCRECTANGLEPROFILEDEF(.AREA.,$,$,1.,1.);\n"
     "#45=IFCMATERIALPROFILESET($,$,(#42),$);\n#46=IFCMATERIALPROFILESETUSAGE(#45,$,$);\n" +
         Associate(20, 46),
     "Wood 2 m3 10 m2"},
    {"from the type", WallType + Associate(60, 41), "Wood 2 m3 10 m2"},
    {"own before the type's", WallType + Associate(60, 41) + "#98=IFCRELASSOCIATESMATERIAL('b',$,$,$,(#20),#40);\n",
     "Brick 2 m3 10 m2"},
    {"from the whole",
     "#60=IFCWALL('whole',$,$,$,$,#9,$,$,$);\n#61=IFCRELAGGREGATES('g',$,$,$,#60,(#20));\n" + Associate(60, 41),
     "Wood 2 m3 10 m2"},
    {"association to nothing", "#99=IFCRELASSOCIATESMATERIAL('a',$,$,$,(#20),#777);\n", "(no material) 2 m3 10 m2"},
};

TEST(ImportRules, SplitsByMaterial) {
    for (const MaterialCase& row : MaterialCases) {
        SCOPED_TRACE(row.name);
        const ImportedBuilding building = Building(File("IFC4", WallOfTwo() + row.body));
        EXPECT_EQ(Components(building, "w"), row.components);
        const bool lacks = std::string_view(row.components).find(NoMaterialName) != std::string_view::npos;
        EXPECT_EQ(Ids(building.withoutMaterial), lacks ? "w" : "");
    }
}

struct QuantityCase {
    const char* name;
    const char* entity; ///< of #20, GlobalId 'e', shape #53
    std::string body;
    double volumeM3;
    QuantitySource volumeSource;
    double areaM2;
    QuantitySource areaSource;
};

constexpr const char* Wall = "IFCWALL('e',$,$,$,$,#9,#53,$,$)";
constexpr const char* Slab = "IFCSLAB('e',$,$,$,$,#9,#53,$,.FLOOR.)";
constexpr const char* Beam = "IFCBEAM('e',$,$,$,$,#9,#53,$,$)";
constexpr const char* Bare = "IFCWALL('e',$,$,$,$,#9,$,$,$)";

std::string Net(const char* value) {
    return Quantity(30, 20, "VOLUME", "NetVolume", value);
}
std::string Gross(const char* value) {
    return Quantity(33, 20, "VOLUME", "GrossVolume", value);
}
std::string Area(const char* name, const char* value) {
    return Quantity(36, 20, "AREA", name, value);
}

const std::string ThinLayers = "#40=IFCMATERIAL('Brick',$,$);\n#42=IFCMATERIALLAYER(#40,0.25,$,$,$,$,$);\n"
                               "#45=IFCMATERIALLAYERSET((#42),$,$);\n" +
                               Associate(20, 45);
constexpr auto None = QuantitySource::None;
constexpr auto StatedNet = QuantitySource::StatedNet;
constexpr auto StatedGross = QuantitySource::StatedGross;
constexpr auto Computed = QuantitySource::Geometry;
constexpr auto Layers = QuantitySource::LayerThickness;

// The body is a box 4 x 0.25 x 2: 2 m3, surface 2 (1 + 8 + 0.5) = 19 m2.
const QuantityCase QuantityCases[] = {
    {"nothing", Bare, "", 0.0, None, 0.0, None},
    {"geometry", Wall, "", 2.0, Computed, 9.5, Computed},
    {"net before gross", Bare, Net("3.") + Gross("3.5"), 3.0, StatedNet, 0.0, None},
    {"gross", Bare, Gross("3.5"), 3.5, StatedGross, 0.0, None},
    {"net of zero", Bare, Net("0.") + Gross("3.5"), 3.5, StatedGross, 0.0, None},
    {"negative net", Wall, Net("-2."), 2.0, Computed, 9.5, Computed},
    {"absurd net", Wall, Net("1.E300"), 2.0, Computed, 9.5, Computed},
    {"net beyond doubles", Wall, Net("1.E400"), 2.0, Computed, 9.5, Computed},
    {"net without value", Wall, Net("$"), 2.0, Computed, 9.5, Computed},
    {"twice the geometry", Wall, Net("3.999"), 3.999, StatedNet, 9.5, Computed},
    {"more than twice", Wall, Net("4.001"), 2.0, Computed, 9.5, Computed},
    {"a twentieth of the geometry", Wall, Net("0.101"), 0.101, StatedNet, 9.5, Computed},
    {"less than a twentieth", Wall, Net("0.099"), 2.0, Computed, 9.5, Computed},
    {"cubic millimetres", Wall, Net("2000000."), 2.0, Computed, 9.5, Computed},
    {"area stated with a wrong volume", Wall, Net("2000000.") + Area("NetSideArea", "8000000."), 2.0, Computed, 9.5,
     Computed},
    {"net side area", Wall, Area("NetSideArea", "7."), 2.0, Computed, 7.0, StatedNet},
    {"gross side area", Wall, Area("GrossSideArea", "8."), 2.0, Computed, 8.0, StatedGross},
    {"plan area of a wall", Wall, Area("NetArea", "1."), 2.0, Computed, 9.5, Computed},
    {"plan area of a slab", Slab, Area("NetArea", "1."), 2.0, Computed, 1.0, StatedNet},
    {"side area of a slab", Slab, Area("NetSideArea", "7."), 2.0, Computed, 9.5, Computed},
    {"area of a beam", Beam, Area("NetSurfaceArea", "7."), 2.0, Computed, 9.5, Computed},
    {"area by layers", Wall, ThinLayers, 2.0, Computed, 8.0, Layers},
    {"negative area", Wall, Area("NetSideArea", "-7.") + ThinLayers, 2.0, Computed, 8.0, Layers},
};

TEST(ImportRules, ChoosesQuantities) {
    for (const QuantityCase& row : QuantityCases) {
        SCOPED_TRACE(row.name);
        const ImportedBuilding building =
            Building(File("IFC4", MetricProject() + "#20=" + row.entity + ";\n" + Box(50, 4.0, 0.25, 2.0) + row.body));
        const ImportedElement element = Element(building, "e");
        EXPECT_NEAR(element.volumeM3, row.volumeM3, Exact);
        EXPECT_EQ(element.volumeSource, row.volumeSource);
        EXPECT_NEAR(element.areaM2, row.areaM2, Exact);
        EXPECT_EQ(element.areaSource, row.areaSource);
        EXPECT_EQ(Ids(building.withoutQuantity), row.volumeM3 == 0.0 ? "e" : "");
        const bool corrected = element.statedVolumeM3 && row.volumeSource == Computed;
        ASSERT_EQ(building.correctedVolumes.size(), corrected ? 1U : 0U);
        if (corrected) {
            EXPECT_EQ(building.correctedVolumes[0].element.globalId, "e");
        }
    }
}

struct UnitCase {
    const char* name;
    const char* units; ///< entities 1 to 3 and the list #4
    double lengthM;
    double boxVolumeM3; ///< of 10 x 1 x 10 units
    double statedM3;    ///< of a NetVolume of 70
    std::size_t warnings;
};

// One foot is 0.3048 m.
const UnitCase UnitCases[] = {
    {"metres",
     "#1=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.);#2=IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.);"
     "#3=IFCSIUNIT(*,.VOLUMEUNIT.,$,.CUBIC_METRE.);#4=IFCUNITASSIGNMENT((#1,#2,#3));",
     1.0, 100.0, 70.0, 0},
    {"decimetres and their powers",
     "#1=IFCSIUNIT(*,.LENGTHUNIT.,.DECI.,.METRE.);#2=IFCSIUNIT(*,.AREAUNIT.,.DECI.,.SQUARE_METRE.);"
     "#3=IFCSIUNIT(*,.VOLUMEUNIT.,.DECI.,.CUBIC_METRE.);#4=IFCUNITASSIGNMENT((#1,#2,#3));",
     0.1, 0.1, 0.07, 0},
    {"decimetres with cubic metres",
     "#1=IFCSIUNIT(*,.LENGTHUNIT.,.DECI.,.METRE.);#2=IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.);"
     "#3=IFCSIUNIT(*,.VOLUMEUNIT.,$,.CUBIC_METRE.);#4=IFCUNITASSIGNMENT((#1,#2,#3));",
     0.1, 0.1, 70.0, 0},
    {"derived from the length", "#1=IFCSIUNIT(*,.LENGTHUNIT.,.DECI.,.METRE.);#4=IFCUNITASSIGNMENT((#1));", 0.1, 0.1,
     0.07, 2},
    {"feet",
     "#1=IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.,'FOOT',#2);#2=IFCMEASUREWITHUNIT(IFCLENGTHMEASURE(0.3048),#3);"
     "#3=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.);#4=IFCUNITASSIGNMENT((#1));",
     0.3048, 2.8316846592, 1.98217926144, 2},
    {"feet by inches of millimetres",
     "#1=IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.,'FOOT',#2);#2=IFCMEASUREWITHUNIT(IFCRATIOMEASURE(12.),#3);"
     "#3=IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.,'INCH',#30);#30=IFCMEASUREWITHUNIT(IFCLENGTHMEASURE(25.4),#31);"
     "#31=IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.);#4=IFCUNITASSIGNMENT((#1));",
     0.3048, 2.8316846592, 1.98217926144, 2},
    {"a unit of itself",
     "#1=IFCCONVERSIONBASEDUNIT($,.LENGTHUNIT.,'FOOT',#2);#2=IFCMEASUREWITHUNIT(IFCLENGTHMEASURE(2.),#1);"
     "#4=IFCUNITASSIGNMENT((#1));",
     1.0, 100.0, 70.0, 3},
    {"none", "#4=IFCUNITASSIGNMENT(());", 1.0, 100.0, 70.0, 3},
    {"no list", "", 1.0, 100.0, 70.0, 3},
};

TEST(ImportRules, ConvertsUnits) {
    for (const UnitCase& row : UnitCases) {
        SCOPED_TRACE(row.name);
        const std::string project = MetricProject();
        const ImportedBuilding building = Building(
            File("IFC4", row.units + project.substr(project.find("#5=")) + Box(50, 10.0, 1.0, 10.0) +
                             "#20=IFCWALL('box',$,$,$,$,#9,#53,$,$);\n#21=IFCWALL('stated',$,$,$,$,#9,$,$,$);\n"
                             "#22=IFCDOOR('door',$,$,$,$,$,$,$,2.,1.,$,$,$);\n" +
                             Quantity(70, 21, "VOLUME", "NetVolume", "70.")));
        EXPECT_DOUBLE_EQ(building.metresPerLengthUnit, row.lengthM);
        EXPECT_NEAR(Element(building, "box").volumeM3, row.boxVolumeM3, Exact * row.boxVolumeM3);
        EXPECT_NEAR(Element(building, "stated").volumeM3, row.statedM3, Exact * row.statedM3);
        EXPECT_DOUBLE_EQ(Element(building, "door").overallHeightM.value_or(0.0), 2.0 * row.lengthM);
        EXPECT_EQ(building.warnings.size(), row.warnings);
    }
}

TEST(ImportRules, TakesTheUnitOfAQuantityBeforeTheProjects) {
    const ImportedBuilding building =
        Building(File("IFC4", MetricProject() + "#20=IFCWALL('w',$,$,$,$,#9,$,$,$);\n"
                                                "#30=IFCSIUNIT(*,.VOLUMEUNIT.,.DECI.,.CUBIC_METRE.);\n"
                                                "#31=IFCQUANTITYVOLUME('NetVolume',$,#30,2500.,$);\n"
                                                "#32=IFCELEMENTQUANTITY('q',$,$,$,$,(#31));\n"
                                                "#33=IFCRELDEFINESBYPROPERTIES('r',$,$,$,(#20),#32);\n"));
    EXPECT_NEAR(Element(building, "w").volumeM3, 2.5, Exact);
}

struct AggregateCase {
    const char* name;
    std::string body;
    const char* elements; ///< GlobalIds in order
    const char* sums;
};

std::string ElementOf(int id, const char* keyword, const char* globalId) {
    return "#" + std::to_string(id) + "=IFC" + keyword + "('" + globalId + "',$,$,$,$,#9,$,$,$);\n";
}
std::string Parts(int id, const char* whole, const char* parts) {
    return "#" + std::to_string(id) + "=IFCRELAGGREGATES('g',$,$,$," + whole + ",(" + parts + "));\n";
}
const std::string Roof = ElementOf(20, "ROOF", "roof") + ElementOf(21, "SLAB", "a") + ElementOf(22, "SLAB", "b");

const AggregateCase AggregateCases[] = {
    {"parts with quantities", Roof + Parts(25, "#20", "#21,#22") + Quantity(30, 21, "VOLUME", "NetVolume", "2."), "a b",
     "roof"},
    {"whole with quantities too",
     Roof + Parts(25, "#20", "#21,#22") + Quantity(30, 21, "VOLUME", "NetVolume", "2.") +
         Quantity(33, 20, "VOLUME", "NetVolume", "9."),
     "a b", "roof"},
    {"parts without", Roof + Parts(25, "#20", "#21,#22") + Quantity(33, 20, "VOLUME", "NetVolume", "9."), "roof a b",
     ""},
    {"parts of parts",
     Roof + Parts(25, "#20", "#21") + Parts(26, "#21", "#22") + Quantity(30, 22, "VOLUME", "NetVolume", "2."), "b",
     "roof a"},
    {"a circle",
     Roof + Parts(25, "#20", "#21") + Parts(26, "#21", "#20") + Quantity(30, 21, "VOLUME", "NetVolume", "2."),
     "roof a b", ""},
    {"only a window in it", Roof + "#23=IFCWINDOW('win',$,$,$,$,$,$,$,1.,2.,$,$,$);\n" + Parts(25, "#20", "#23"),
     "roof a b win", ""},
    {"parts of a window",
     "#23=IFCWINDOW('win',$,$,$,$,$,$,$,1.,2.,$,$,$);\n" + ElementOf(24, "PLATE", "pane") + Parts(25, "#23", "#24") +
         Quantity(30, 24, "VOLUME", "NetVolume", "2."),
     "win", ""},
};

TEST(ImportRules, CountsWholesOnlyWithoutTheirParts) {
    for (const AggregateCase& row : AggregateCases) {
        SCOPED_TRACE(row.name);
        const ImportedBuilding building = Building(File("IFC4", MetricProject() + row.body));
        std::vector<ImportFinding> elements;
        for (const ImportedElement& element : building.elements)
            elements.push_back({element.globalId, "", ""});
        EXPECT_EQ(Ids(elements), row.elements);
        EXPECT_EQ(Ids(building.sumsOfParts), row.sums);
    }
}

TEST(ImportRules, KnowsWhatIsABuildingElement) {
    const struct {
        const char* keyword;
        int kind; ///< the host's type number, 0 for left out
        const char* rest = "$";
    } rows[] = {{"WALL", 1},
                {"WALLSTANDARDCASE", 1},
                {"COLUMN", 2},
                {"PILE", 2, "$,$"},
                {"BEAM", 3},
                {"MEMBER", 3},
                {"SLAB", 8},
                {"ROOF", 9},
                {"COVERING", 6},
                {"STAIR", 47},
                {"RAMP", 47},
                {"RAMPFLIGHT", 47},
                {"RAILING", 51},
                {"PLATE", 6},
                {"FOOTING", 6},
                {"CURTAINWALL", 37},
                {"CHIMNEY", 6},
                {"BUILDINGELEMENTPROXY", 6},
                {"BUILDINGELEMENTPART", 6},
                {"FURNITURE", 0},
                {"SYSTEMFURNITUREELEMENT", 0},
                {"PIPESEGMENT", 0},
                {"BOILER", 0},
                {"TRANSPORTELEMENT", 0}};
    std::ostringstream body;
    body << MetricProject() << "#90=IFCOPENINGELEMENT('hole',$,$,$,$,#9,$,$,$);\n";
    int id = 100;
    for (const auto& row : rows)
        body << '#' << id++ << "=IFC" << row.keyword << "('" << row.keyword << "',$,$,$,$,#9,$,$," << row.rest
             << ");\n";
    const ImportedBuilding building = Building(File("IFC4", body.str()));
    int leftOut = 0;
    for (const auto& row : rows) {
        leftOut += row.kind == 0 ? 1 : 0;
        if (row.kind != 0) {
            EXPECT_EQ(static_cast<int>(Element(building, row.keyword).kind), row.kind) << row.keyword;
        }
    }
    EXPECT_EQ(building.elements.size(), std::size(rows) - static_cast<std::size_t>(leftOut));
    int counted = 0;
    for (const auto& [type, count] : building.leftOut)
        counted += count;
    EXPECT_EQ(counted, leftOut);
    EXPECT_EQ(building.leftOut.at("IfcPipeSegment"), 1);
}

TEST(ImportRules, MeasuresDoorsAndWindows) {
    const ImportedBuilding building = Building(
        File("IFC4",
             MetricProject() +
                 "#20=IFCDOOR('overall',$,$,$,$,$,$,$,2.,0.9,$,$,$);\n#21=IFCDOOR('stated',$,$,$,$,$,$,$,$,$,$,$,$);\n"
                 "#22=IFCWINDOW('none',$,$,$,$,$,$,$,1.5,$,$,$,$);\n" +
                 Quantity(30, 21, "LENGTH", "Width", "1.2") + Quantity(33, 21, "LENGTH", "Height", "2.5")));
    EXPECT_EQ(Element(building, "overall").kind, ElementKind::Door);
    EXPECT_NEAR(Element(building, "overall").areaM2, 1.8, Exact);
    EXPECT_NEAR(Element(building, "stated").areaM2, 3.0, Exact);
    EXPECT_EQ(Element(building, "none").kind, ElementKind::Window);
    EXPECT_TRUE(Element(building, "none").components.empty());
    EXPECT_EQ(Ids(building.withoutQuantity), "none");
    EXPECT_EQ(Ids(building.withoutMaterial), "");
}

TEST(ImportRules, FindsLayersAndStoreys) {
    const ImportedBuilding building = Building(File(
        "IFC4", MetricProject() + Box(50, 1.0, 1.0, 1.0) + Box(60, 1.0, 1.0, 1.0) +
                    "#20=IFCWALL('whole shape',$,$,$,$,#9,#53,$,$);\n#21=IFCWALL('item',$,$,$,$,#9,#63,$,$);\n"
                    "#22=IFCWALL('copy',$,$,$,$,#9,#73,$,$);\n#23=IFCWALL('nowhere',$,$,$,$,#9,$,$,$);\n"
                    "#70=IFCREPRESENTATIONMAP(#7,#52);\n#71=IFCMAPPEDITEM(#70,#74);\n"
                    "#72=IFCSHAPEREPRESENTATION(#6,'Body','MappedRepresentation',(#71));\n#73="
                    "IFCPRODUCTDEFINITIONSHAPE($,$,(#72));\n"
                    "#74=IFCCARTESIANTRANSFORMATIONOPERATOR3D($,$,#8,2.,$);\n"
                    "#80=IFCPRESENTATIONLAYERASSIGNMENT('W\\X2\\00E4\\X0\\nde',$,(#52),$);\n"
                    "#81=IFCPRESENTATIONLAYERASSIGNMENT('Innen',$,(#61),$);\n"
                    "#90=IFCBUILDINGSTOREY('o',$,'OG',$,$,#9,$,$,.ELEMENT.,2.7);\n#91=IFCBUILDINGSTOREY('e',$,'EG',$,$,"
                    "#9,$,$,.ELEMENT.,0.);\n"
                    "#92=IFCSPACE('s',$,'Room',$,$,#9,$,$,.ELEMENT.,$,$);\n#93=IFCRELAGGREGATES('g',$,$,$,#90,(#92));\n"
                    "#94=IFCRELCONTAINEDINSPATIALSTRUCTURE('c',$,$,$,(#20),#92);\n#95="
                    "IFCRELCONTAINEDINSPATIALSTRUCTURE('c',$,$,$,(#22,#24),#91);\n"
                    "#24=IFCELEMENTASSEMBLY('assembly',$,$,$,$,#9,$,$,$,$);\n"
                    "#96=IFCRELAGGREGATES('g',$,$,$,#24,(#21));\n"));
    const auto layer = [&](const char* id) { return building.layers.at(Element(building, id).layer); };
    const auto storey = [&](const char* id) {
        const auto index = Element(building, id).storey;
        return index ? building.storeys.at(*index).name : std::string("-");
    };
    EXPECT_EQ(layer("whole shape"), "Wände");
    EXPECT_EQ(layer("item"), "Innen");
    EXPECT_EQ(layer("nowhere"), NoLayerName);
    EXPECT_EQ(layer("copy"), "Wände");
    EXPECT_EQ(Ids(building.sumsOfParts), "assembly");
    ASSERT_EQ(building.storeys.size(), 2U);
    EXPECT_EQ(building.storeys[0].name, "EG") << "by elevation";
    EXPECT_EQ(storey("whole shape"), "OG") << "through the space";
    EXPECT_EQ(storey("item"), "EG") << "through the whole";
    EXPECT_EQ(storey("nowhere"), "-");
}

struct FloorCase {
    const char* name;
    std::string body;
    std::optional<double> areaM2;
    FloorAreaSource source;
};

const std::string Spaces =
    "#20=IFCBUILDING('b',$,$,$,$,$,$,$,.ELEMENT.,$,$,$);\n#21=IFCSPACE('r',$,$,$,$,#9,$,$,.ELEMENT.,$,$);\n"
    "#22=IFCSPACE('s',$,$,$,$,#9,$,$,.ELEMENT.,$,$);\n";
const FloorCase FloorCases[] = {
    {"nothing", Spaces, std::nullopt, FloorAreaSource::None},
    {"building",
     Spaces + Quantity(30, 20, "AREA", "GrossFloorArea", "150.") + Quantity(33, 21, "AREA", "GrossFloorArea", "20."),
     150.0, FloorAreaSource::Building},
    {"building by property",
     Spaces + "#30=IFCPROPERTYSINGLEVALUE('GrossFloorArea',$,IFCAREAMEASURE(140.),$);\n"
              "#31=IFCPROPERTYSET('p',$,'Pset',$,(#30));\n#32=IFCRELDEFINESBYPROPERTIES('r',$,$,$,(#20),#31);\n",
     140.0, FloorAreaSource::Building},
    {"spaces gross",
     Spaces + Quantity(30, 21, "AREA", "GrossFloorArea", "20.") + Quantity(33, 22, "AREA", "GrossFloorArea", "30.") +
         Quantity(36, 21, "AREA", "NetFloorArea", "19."),
     50.0, FloorAreaSource::SpacesGross},
    {"spaces net",
     Spaces + Quantity(30, 21, "AREA", "NetFloorArea", "19.") + Quantity(33, 22, "AREA", "NetFloorArea", "29."), 48.0,
     FloorAreaSource::SpacesNet},
    {"spaces mixed",
     Spaces + Quantity(30, 21, "AREA", "GrossFloorArea", "20.") + Quantity(33, 22, "AREA", "NetFloorArea", "29."), 49.0,
     FloorAreaSource::SpacesMixed},
    {"space in a space",
     Spaces + Quantity(30, 21, "AREA", "GrossFloorArea", "20.") + Quantity(33, 22, "AREA", "GrossFloorArea", "5.") +
         "#40=IFCRELAGGREGATES('g',$,$,$,#21,(#22));\n",
     20.0, FloorAreaSource::SpacesGross},
    {"negative", Spaces + Quantity(30, 20, "AREA", "GrossFloorArea", "-1."), std::nullopt, FloorAreaSource::None},
};

TEST(ImportRules, OffersAFloorArea) {
    for (const FloorCase& row : FloorCases) {
        SCOPED_TRACE(row.name);
        const ImportedBuilding building = Building(File("IFC4", MetricProject() + row.body));
        EXPECT_EQ(building.grossFloorAreaM2, row.areaM2);
        EXPECT_EQ(building.grossFloorAreaSource, row.source);
    }
}

struct DensityCase {
    const char* name;
    const char* schema;
    std::string body;
    std::optional<double> densityKgPerM3;
};

const std::string Brick4 = "#20=IFCWALL('w',$,$,$,$,#9,$,$,$);\n#40=IFCMATERIAL('Brick',$,$);\n" + Associate(20, 40);
const std::string Brick2x3 = "#20=IFCWALL('w',$,$,$,$,#9,$,$);\n#40=IFCMATERIAL('Brick');\n" + Associate(20, 40);
std::string Density(const char* value, const char* unit = "$") {
    return "#41=IFCPROPERTYSINGLEVALUE('MassDensity',$," + std::string(value) + "," + unit + ");\n";
}
const std::string Common = "#42=IFCMATERIALPROPERTIES('Pset_MaterialCommon',$,(#41),#40);\n";
const std::string GramPerCubicCentimetre =
    "#44=IFCDERIVEDUNIT((#45,#46),.MASSDENSITYUNIT.,$);\n#45=IFCDERIVEDUNITELEMENT(#47,1);\n#46=IFCDERIVEDUNITELEMENT(#"
    "48,-3);\n"
    "#47=IFCSIUNIT(*,.MASSUNIT.,$,.GRAM.);\n#48=IFCSIUNIT(*,.LENGTHUNIT.,.CENTI.,.METRE.);\n";

const DensityCase DensityCases[] = {
    {"none", "IFC4", Brick4, std::nullopt},
    {"common set", "IFC4", Brick4 + Common + Density("IFCMASSDENSITYMEASURE(1800.)"), 1800.0},
    {"as a plain number", "IFC4", Brick4 + Common + Density("IFCREAL(1800.)"), 1800.0},
    {"own unit", "IFC4", Brick4 + Common + Density("IFCMASSDENSITYMEASURE(1.8)", "#44") + GramPerCubicCentimetre,
     1800.0},
    {"zero", "IFC4", Brick4 + Common + Density("IFCMASSDENSITYMEASURE(0.)"), std::nullopt},
    {"negative", "IFC4", Brick4 + Common + Density("IFCMASSDENSITYMEASURE(-5.)"), std::nullopt},
    {"absurd", "IFC4", Brick4 + Common + Density("IFCMASSDENSITYMEASURE(1800000.)"), std::nullopt},
    {"no number", "IFC4", Brick4 + Common + Density("IFCLABEL('1800')"), std::nullopt},
    {"older schema, general", "IFC2X3", Brick2x3 + "#42=IFCGENERALMATERIALPROPERTIES(#40,$,0.1,1800.);\n", 1800.0},
    {"older schema, extended", "IFC2X3",
     Brick2x3 + Density("IFCMASSDENSITYMEASURE(1800.)") +
         "#42=IFCEXTENDEDMATERIALPROPERTIES(#40,(#41),$,'Pset_MaterialCommon');\n",
     1800.0},
    {"older schema, no value", "IFC2X3", Brick2x3 + "#42=IFCGENERALMATERIALPROPERTIES(#40,$,$,$);\n", std::nullopt},
};

TEST(ImportRules, ReadsDensities) {
    for (const DensityCase& row : DensityCases) {
        SCOPED_TRACE(row.name);
        const ImportedBuilding building = Building(File(row.schema, MetricProject() + row.body));
        ASSERT_EQ(building.materials.size(), 1U);
        EXPECT_EQ(building.materials[0].name, "Brick");
        EXPECT_EQ(building.materials[0].densityKgPerM3.has_value(), row.densityKgPerM3.has_value());
        EXPECT_NEAR(building.materials[0].densityKgPerM3.value_or(0.0), row.densityKgPerM3.value_or(0.0),
                    1e-9 * 1800.0);
    }
}

TEST(ImportRules, ReadsTheOlderSchema) {
    const ImportedBuilding building = Building(File(
        "IFC2X3", MetricProject() + Box(50, 4.0, 0.25, 2.0) +
                      "#20=IFCWALLSTANDARDCASE('w',$,'W\\X2\\00E4\\X0\\nde \\S\\| l''\\X\\E9t\\X\\E9',$,$,#9,#53,$);\n"
                      "#21=IFCDOOR('d',$,$,$,$,$,$,$,2.,0.9);\n#22=IFCELECTRICALELEMENT('x',$,$,$,$,$,$,$);\n"
                      "#40=IFCMATERIAL('Stahl/Beton (C25)');\n#41=IFCMATERIALLAYER(#40,0.25,$);\n"
                      "#42=IFCMATERIALLAYERSET((#41),$);\n#43=IFCMATERIALLAYERSETUSAGE(#42,.AXIS2.,.POSITIVE.,0.);\n" +
                      Associate(20, 43) +
                      "#30=IFCQUANTITYVOLUME('NetVolume',$,$,1.9);\n#31=IFCELEMENTQUANTITY('q',$,$,$,$,(#30));\n"
                      "#32=IFCRELDEFINESBYPROPERTIES('r',$,$,$,(#20),#31);\n"));
    EXPECT_EQ(building.schema, "IFC2X3");
    EXPECT_EQ(building.projectName, "House");
    EXPECT_EQ(Element(building, "w").name, "Wände ü l'été");
    EXPECT_EQ(Components(building, "w"), "Stahl/Beton (C25) 1.9 m3 7.6 m2");
    EXPECT_EQ(building.leftOut.at("IfcElectricalElement"), 1);
}

TEST(ImportRules, MergesMaterialsOfOneName) {
    const ImportedBuilding building =
        Building(File("IFC4", WallOfTwo() + "#42=IFCMATERIAL('Brick',$,$);\n#45=IFCMATERIALLIST((#40,#42,#41));\n" +
                                  Associate(20, 45)));
    ASSERT_EQ(building.materials.size(), 2U);
    EXPECT_EQ(building.materials[0].name, "Brick");
    EXPECT_EQ(Element(building, "w").components.size(), 3U);
}

} // namespace
