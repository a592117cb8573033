// The answer of the child program: written and read, and read with every kind of damage.
#include "workbench/ifc/ImportAnswer.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace workbench::ifc;

namespace {

ImportedBuilding Sample() {
    ImportedBuilding building;
    building.schema = "IFC4";
    building.projectName = "Häuser";
    building.layers = {"Außenwände", NoLayerName};
    building.storeys = {{"EG", -0.5}};
    building.materials = {{"Beton", 2400.0}, {NoMaterialName, std::nullopt}};
    ImportedElement wall;
    wall.globalId = "w";
    wall.name = "Wand";
    wall.ifcType = "IfcWall";
    wall.kind = ElementKind::Wall;
    wall.layer = 1;
    wall.storey = 0;
    wall.components = {{0, 1.5, 7.0}, {1, 0.0, 7.0}};
    wall.volumeM3 = 1.5;
    wall.volumeSource = QuantitySource::StatedNet;
    wall.statedVolumeM3 = 1.5;
    ImportedElement door;
    door.globalId = "d";
    door.kind = ElementKind::Door;
    door.overallWidthM = 0.9;
    building.elements = {wall, door};
    building.leftOut = {{"IfcFurniture", 3}};
    building.withoutQuantity = {{"d", "IfcDoor", ""}};
    building.withoutVolume = {{"a", "", ""}};
    building.sharesUnknown = {{"b", "", ""}};
    building.correctedVolumes = {{{"w", "IfcWall", "Wand"}, 1500.0, 1.5}};
    building.grossFloorAreaM2 = 120.25;
    building.grossFloorAreaSource = FloorAreaSource::SpacesNet;
    building.warnings = {"One.", "Two."};
    return building;
}

TEST(ImportAnswer, CarriesEveryField) {
    AnswerReader reader;
    const std::string stream = EncodeProgress(0.25) + EncodeWorking(17) + EncodeBuilding(Sample());
    for (const char byte : stream) // as small as pieces can be
        ASSERT_TRUE(reader.Take({&byte, 1}));
    EXPECT_EQ(reader.Progress(), 0.25);
    EXPECT_EQ(reader.Working(), 17);
    ASSERT_TRUE(reader.Building());
    EXPECT_EQ(EncodeBuilding(*reader.Building()), EncodeBuilding(Sample())) << "no field may be lost";
    const ImportedBuilding& read = *reader.Building();
    EXPECT_EQ(read.elements.at(0).components.at(1).material, 1U);
    EXPECT_EQ(read.elements.at(0).storey, 0U);
    EXPECT_FALSE(read.elements.at(1).storey);
    EXPECT_EQ(read.storeys.at(0).elevationM, -0.5);
    EXPECT_EQ(read.withoutVolume.at(0).globalId + read.sharesUnknown.at(0).globalId, "ab");
    EXPECT_EQ(read.projectName, "Häuser");
    EXPECT_FALSE(reader.Take("x")) << "nothing may follow";
}

TEST(ImportAnswer, TakesNoDamagedAnswer) {
    const std::string whole = EncodeBuilding(Sample());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        AnswerReader reader;
        (void)reader.Take(std::string_view(whole).substr(0, length));
        ASSERT_FALSE(reader.Building()) << length;
    }
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int bit : {1, 16, 128}) {
            std::string flipped = whole;
            flipped[at] = static_cast<char>(flipped[at] ^ bit);
            AnswerReader reader;
            (void)reader.Take(flipped);
            ASSERT_FALSE(reader.Building()) << at;
        }
    }
}

TEST(ImportAnswer, BelievesNoImpossibleBuilding) {
    const auto taken = [](const auto& change) {
        ImportedBuilding building = Sample();
        change(building);
        AnswerReader reader;
        return reader.Take(EncodeBuilding(building));
    };
    EXPECT_TRUE(taken([](ImportedBuilding&) {}));
    EXPECT_FALSE(taken([](ImportedBuilding& b) { b.elements[0].layer = 2; }));
    EXPECT_FALSE(taken([](ImportedBuilding& b) { b.elements[0].storey = 1; }));
    EXPECT_FALSE(taken([](ImportedBuilding& b) { b.elements[0].components[0].material = 2; }));
    EXPECT_FALSE(taken([](ImportedBuilding& b) { b.elements[0].components[0].volumeM3 = std::nan(""); }));
    EXPECT_FALSE(taken([](ImportedBuilding& b) { b.elements[0].components[0].areaM2 = -1.0; }));
    EXPECT_FALSE(taken([](ImportedBuilding& b) { b.elements[0].kind = static_cast<ElementKind>(7); }));
    EXPECT_FALSE(taken([](ImportedBuilding& b) { b.elements[0].volumeSource = static_cast<QuantitySource>(9); }));
}

} // namespace
