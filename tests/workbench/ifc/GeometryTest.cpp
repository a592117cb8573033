// Volumes from geometry against volumes by hand; every body is read through the child program.
#include <cmath>
#include <gtest/gtest.h>
#include <iomanip>
#include <numbers>
#include <sstream>

#include "IfcText.h"

using namespace workbench::ifc;
using namespace ifctest;

namespace {

std::string Shape(const char* item) {
    return "#20=IFCWALL('e',$,$,$,$,#9,#21,$,$);\n#21=IFCPRODUCTDEFINITIONSHAPE($,$,(#22));\n"
           "#22=IFCSHAPEREPRESENTATION(#6,'Body','x',(" +
           std::string(item) + "));\n";
}

/// Points #100 to #107 of the cube from (0,0,0) to (SIZE,SIZE,SIZE), bit 0 of the number x, bit 1 y, bit 2 z.
std::string CubePoints(double size, double originX = 0.0, int first = 100) {
    std::ostringstream text;
    text << std::showpoint << std::setprecision(10);
    for (int i = 0; i < 8; ++i) {
        text << '#' << first + i << "=IFCCARTESIANPOINT((" << originX + (i & 1) * size << ',' << (i >> 1 & 1) * size
             << ',' << (i >> 2 & 1) * size << "));\n";
    }
    return text.str();
}

/// COUNT faces of that cube, outward; entities from FIRST on, three a face.
std::string CubeFaces(int first, int points, int count) {
    constexpr int Corners[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    std::ostringstream text;
    for (int face = 0; face < count; ++face) {
        const int id = first + 3 * face;
        const auto& c = Corners[face];
        text << '#' << id << "=IFCFACE((#" << id + 1 << "));\n#" << id + 1 << "=IFCFACEOUTERBOUND(#" << id + 2
             << ",.T.);\n#" << id + 2 << "=IFCPOLYLOOP((#" << points + c[0] << ",#" << points + c[1] << ",#"
             << points + c[2] << ",#" << points + c[3] << "));\n";
    }
    return text.str();
}

constexpr const char* SixFaces = "#120,#123,#126,#129,#132,#135";
constexpr const char* OtherFaces = "#220,#223,#226,#229,#232,#235";
const std::string Up = "#30=IFCDIRECTION((0.,0.,1.));\n";
const std::string Circle =
    "#31=IFCCIRCLEPROFILEDEF(.AREA.,$,#32,0.5);\n#32=IFCAXIS2PLACEMENT2D(#33,$);\n#33=IFCCARTESIANPOINT((0.,0.));\n";
const std::string Scaled = "#40=IFCREPRESENTATIONMAP(#7,#52);\n#41=IFCMAPPEDITEM(#40,#42);\n"
                           "#42=IFCCARTESIANTRANSFORMATIONOPERATOR3D($,$,#8,2.,$);\n";

struct VolumeCase {
    const char* name;
    std::string body;
    double volumeM3;
    double areaM2; ///< half the surface, or volume by thickness
    double share;  ///< relative tolerance
};

// A polygon of 96 sides instead of a circle has 1 - sin(2 pi / 96) / (2 pi / 96) = 0.07 % less area.
const VolumeCase VolumeCases[] = {
    {"closed brep",
     Shape("#23") + "#23=IFCFACETEDBREP(#24);\n#24=IFCCLOSEDSHELL((" + SixFaces + "));\n" + CubePoints(2.0) +
         CubeFaces(120, 100, 6),
     8.0, 12.0, 1e-9},
    {"brep far from the origin",
     Shape("#23") + "#23=IFCFACETEDBREP(#24);\n#24=IFCCLOSEDSHELL((" + SixFaces + "));\n" + CubePoints(2.0, 5000.0) +
         CubeFaces(120, 100, 6),
     8.0, 12.0, 1e-6},
    {"two bodies",
     Shape("#23,#25") + "#23=IFCFACETEDBREP(#24);\n#24=IFCCLOSEDSHELL((" + SixFaces +
         "));\n#25=IFCFACETEDBREP(#26);\n#26=IFCCLOSEDSHELL((" + OtherFaces + "));\n" + CubePoints(2.0) +
         CubeFaces(120, 100, 6) + CubePoints(1.0, 7.0, 200) + CubeFaces(220, 200, 6),
     9.0, 15.0, 1e-9},
    {"cylinder", Shape("#23") + "#23=IFCEXTRUDEDAREASOLID(#31,#7,#30,3.);\n" + Circle + Up, 0.75 * std::numbers::pi,
     1.75 * std::numbers::pi, 1e-3},
    {"oblique extrusion",
     Shape("#23") + "#23=IFCEXTRUDEDAREASOLID(#50,#7,#30,2.);\n#30=IFCDIRECTION((0.6,0.,0.8));\n" +
         Box(50, 1.0, 1.0, 1.0),
     1.6, 0.5 * (2.0 + 2.0 * 1.6 + 2.0 * 2.0), 1e-9},
    {"copy at double size", Shape("#41") + Scaled + Box(50, 1.0, 2.0, 3.0), 48.0, 44.0, 1e-9},
    {"cut by half space",
     Shape("#23") +
         "#23=IFCBOOLEANCLIPPINGRESULT(.DIFFERENCE.,#51,#24);\n#24=IFCHALFSPACESOLID(#25,.F.);\n"
         "#25=IFCPLANE(#26);\n#26=IFCAXIS2PLACEMENT3D(#27,$,$);\n#27=IFCCARTESIANPOINT((0.,0.,1.));\n" +
         Box(50, 4.0, 0.5, 3.0),
     2.0, 8.5 - 2.0 - 0.0 + 0.0, 1e-6},
};

TEST(Geometry, ComputesClosedBodies) {
    for (const VolumeCase& row : VolumeCases) {
        SCOPED_TRACE(row.name);
        const ImportedBuilding building = Building(File("IFC4", MetricProject() + row.body));
        const ImportedElement element = Element(building, "e");
        EXPECT_EQ(element.volumeSource, QuantitySource::Geometry);
        EXPECT_NEAR(element.volumeM3, row.volumeM3, row.share * row.volumeM3);
        EXPECT_NEAR(element.areaM2, row.areaM2, row.share * row.areaM2);
    }
}

TEST(Geometry, GivesAnOpenShellItsThickness) {
    const std::string open = Shape("#23") +
                             "#23=IFCSHELLBASEDSURFACEMODEL((#24));\n#24=IFCOPENSHELL((#120,#123,#126));\n" +
                             CubePoints(2.0) + CubeFaces(120, 100, 3);
    const std::string layer =
        "#40=IFCMATERIAL('Glass',$,$);\n#41=IFCMATERIALLAYER(#40,0.02,$,$,$,$,$);\n"
        "#42=IFCMATERIALLAYERSET((#41),$,$);\n#43=IFCRELASSOCIATESMATERIAL('a',$,$,$,(#20),#42);\n";
    // Three squares of 4 m2, 20 mm thick.
    const ImportedElement thick = Element(Building(File("IFC4", MetricProject() + open + layer)), "e");
    EXPECT_EQ(thick.volumeSource, QuantitySource::ShellThickness);
    EXPECT_NEAR(thick.volumeM3, 0.24, 1e-9);
    EXPECT_NEAR(thick.areaM2, 12.0, 1e-9);
    const ImportedElement thin = Element(Building(File("IFC4", MetricProject() + open)), "e");
    EXPECT_EQ(thin.volumeSource, QuantitySource::None) << "without layers there is no volume";
    EXPECT_NEAR(thin.areaM2, 6.0, 1e-9);
}

/// Wall 4 x 0.25 x 2 of 2 m3 with a hole 1 x 1 x 1 through it, 0.25 m3; PLACEMENT is the hole's.
std::string WallWithHole(const char* placement) {
    return MetricProject() + Box(50, 4.0, 0.25, 2.0) + Box(60, 1.0, 1.0, 1.0) +
           "#20=IFCWALL('e',$,$,$,$,#9,#53,$,$);\n#21=IFCOPENINGELEMENT('hole',$,$,$,$," + placement +
           ",#63,$,$);\n#22=IFCRELVOIDSELEMENT('v',$,$,$,#20,#21);\n#23=IFCLOCALPLACEMENT(#9,#24);\n"
           "#24=IFCAXIS2PLACEMENT3D(#25,$,$);\n#25=IFCCARTESIANPOINT((0.5,0.,0.5));\n#26=IFCLOCALPLACEMENT(#26,#24);\n";
}

TEST(Geometry, SubtractsOpenings) {
    EXPECT_NEAR(Element(Building(File("IFC4", WallWithHole("#23"))), "e").volumeM3, 1.75, 1e-6);
    EXPECT_NEAR(Element(Building(File("IFC4", WallWithHole("$"))), "e").volumeM3, 1.75, 1e-6) << "no placement";
    EXPECT_NEAR(Element(Building(File("IFC4", WallWithHole("#26"))), "e").volumeM3, 1.75, 1e-6)
        << "a placement of itself";
}

TEST(Geometry, ChecksStatedVolumesOfWallsWithOpenings) {
    const struct {
        const char* stated;
        bool corrected;
    } rows[] = {{"0.09", true}, {"0.11", false}, {"1.75", false}, {"3.95", false}, {"4.05", true}};
    // The wall without the hole has 2 m3. Computing every body must not change what counts.
    for (const auto& row : rows)
        for (const bool everyBody : {false, true}) {
            SCOPED_TRACE(std::string(row.stated) + (everyBody ? ", every body" : ""));
            ImportResult result =
                ifctest::Read(File("IFC4", WallWithHole("#23") + Quantity(30, 20, "VOLUME", "NetVolume", row.stated) +
                                               Quantity(33, 20, "AREA", "NetSideArea", "7.")),
                              {.everyBody = everyBody});
            ASSERT_FALSE(result.HasFailed()) << result.GetText();
            EXPECT_EQ(result.Get().correctedVolumes.size(), row.corrected ? 1U : 0U);
            const ImportedElement wall = Element(result.Get(), "e");
            EXPECT_EQ(wall.volumeSource, row.corrected ? QuantitySource::Geometry : QuantitySource::StatedNet);
            EXPECT_EQ(wall.geometryVolumeM3.has_value(), row.corrected || everyBody);
            EXPECT_NEAR(wall.geometryVolumeM3.value_or(1.75), 1.75, 1e-6);
        }
}

TEST(Geometry, IgnoresWhatIsNoBody) {
    const std::string body = Box(50, 4.0, 0.25, 2.0);
    const std::size_t name = body.find("'Body'");
    const std::string axis = body.substr(0, name) + "'Axis'" + body.substr(name + 6);
    const ImportedBuilding building =
        Building(File("IFC4", MetricProject() + "#20=IFCWALL('e',$,$,$,$,#9,#53,$,$);\n" + axis));
    EXPECT_EQ(Ids(building.withoutQuantity), "e");
}

} // namespace
