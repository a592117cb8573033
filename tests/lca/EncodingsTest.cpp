// The stored texts of the project record, and the markers of its definitions.
#include "lca/RecordEncodings.h"

#include <gtest/gtest.h>

namespace {

using lca::ElementCategory;
using lca::FloorQuantity;
using lca::LCAProjectData;
using lca::PropertyKey;

TEST(Markers, AreFoundByTheirExactForm) {
    const std::vector<std::pair<std::string, std::optional<PropertyKey>>> cases = {
        {"", std::nullopt},
        {"LCAID=\"GWP/UNIT\"", PropertyKey::GWPPerUnit},
        {"Do not change. LCAID=\"ELECTRICITY_S_FACTOR\" LCAUNIT=\"GWP_KG\"", PropertyKey::ElectricitySourceFactor},
        {"LCAID=\"GWP\"", PropertyKey::GWP},
        {"LCAID=\"gwp\"", std::nullopt},
        {"LCAID=GWP", std::nullopt},
        {"LCAID=\"GWP", std::nullopt},
        {"LCAID=\"UNKNOWN\"", std::nullopt},
        {"LCAID=\"\"", std::nullopt},
    };
    for (const auto& [description, key] : cases)
        EXPECT_EQ(lca::FindMarker(description), key) << description;
    for (std::size_t i = 0; i < lca::PropertyKeyCount; ++i) {
        const auto key = static_cast<PropertyKey>(i);
        EXPECT_EQ(lca::FindMarker("x " + lca::WriteMarker(key) + " y"), key);
    }
    EXPECT_EQ(lca::WriteMarker(PropertyKey::GrossFloorArea), "LCAID=\"FLOORAREA\"");
}

TEST(Markers, UnitIsReplacedAddedAndRemoved) {
    using lca::GWPUnitType;
    const std::string plain = "LCAID=\"GWP-STANDARDS\"";
    EXPECT_EQ(lca::ReadUnitMarker(plain), GWPUnitType::PerAreaAndYear);
    EXPECT_EQ(lca::ReadUnitMarker(plain + " LCAUNIT=\"GWP_TON\""), GWPUnitType::PerAreaAndYear);
    EXPECT_EQ(lca::ReadUnitMarker(plain + " LCAUNIT=\"GWP_KG"), GWPUnitType::PerAreaAndYear);
    const std::string total = lca::WriteUnitMarker(plain + " keep", GWPUnitType::Total);
    EXPECT_EQ(total, plain + " keep LCAUNIT=\"GWP_KG\"");
    const std::string perArea = lca::WriteUnitMarker(total, GWPUnitType::PerArea);
    EXPECT_EQ(lca::ReadUnitMarker(perArea), GWPUnitType::PerArea);
    EXPECT_EQ(lca::WriteUnitMarker(perArea, GWPUnitType::PerAreaAndYear), plain + " keep");
}

TEST(Defaults, AreWrittenAsTheModelKeepsThem) {
    const LCAProjectData record;
    EXPECT_EQ(lca::EncodeStandards(record.standards), "");
    EXPECT_EQ(lca::EncodePhases(record.usedPhases), "A1-A3;C3;C4");
    EXPECT_EQ(lca::EncodeContribution(record),
              "Inventory_contribution=1;Installations_contribution=1;BuildingProcess_contribution=1;"
              "Inventory=5;Installations=10;BuildingProcess=10");
    EXPECT_EQ(lca::EncodeElementLives(record.elementLives), "Doors=25;Windows=25;Inventory=30;Installations=25");
    EXPECT_EQ(lca::EncodeElementColours(record.elementColours),
              "OperatingEmission=179,109,77;BuildingComponents=43,130,226;Doors=127,127,127;Windows=38,198,244;"
              "Inventory=210,152,102;Installations=70,173,121;BuildingProcess=127,72,48");
    EXPECT_EQ(lca::EncodeFloorSettings(record), "");
}

TEST(Standards, NamesMayHoldWhatTheFormCanHold) {
    const std::vector<lca::Standard> standards = {{"BR18 = limit", 12.5}, {"Größe \xF0\x9F\x8F\xA0", 8}, {"", 0}};
    EXPECT_EQ(lca::DecodeStandards(lca::EncodeStandards(standards)), standards);
    // A semicolon ends an entry; the name keeps its other letters and the next entry is whole.
    const auto read = lca::DecodeStandards(lca::EncodeStandards({{"a;b", 1}, {"c", 2}}));
    EXPECT_EQ(read, (std::vector<lca::Standard>{{"a,b", 1}, {"c", 2}}));
}

TEST(Standards, UnreadableEntriesAreLeftOut) {
    const std::vector<lca::Standard> expected = {{"A", 12.5}, {"D", -3}};
    EXPECT_EQ(lca::DecodeStandards("A=12,5;B;C=x;;D=-3;E="), expected);
}

TEST(Contribution, ThreeMapsFromOneText) {
    LCAProjectData record;
    lca::DecodeContribution("Inventory_contribution=true;Installations_contribution=1;Doors_contribution=0;"
                            "Inventory=7,5;BuildingProcess_gwp=4200;Unknown=3;Unknown_gwp=3;Windows=x",
                            record);
    using Flags = std::map<ElementCategory, bool>;
    using Numbers = std::map<ElementCategory, double>;
    EXPECT_EQ(record.contributionEnabled, (Flags{{ElementCategory::Doors, false},
                                                 {ElementCategory::Inventory, false},
                                                 {ElementCategory::Installations, true}}));
    EXPECT_EQ(record.contributionShare, (Numbers{{ElementCategory::Inventory, 7.5}}));
    EXPECT_EQ(record.contributionGWP, (Numbers{{ElementCategory::BuildingProcess, 4200}}));
}

TEST(ElementColours, ThreeChannelsOrNothing) {
    const std::map<ElementCategory, std::uint32_t> expected = {{ElementCategory::Doors, 0xFF010203}};
    EXPECT_EQ(lca::DecodeElementColours("Doors=1,2,3;Windows=1,2;Inventory=1,2,3,4;Installations=256,0,0;"
                                        "BuildingProcess=-1,0,0;OperatingEmission="),
              expected);
}

TEST(ElementLives, ReadsAndWrites) {
    const std::map<ElementCategory, std::int32_t> lives = {{ElementCategory::Doors, 40},
                                                           {ElementCategory::Windows, -1}};
    EXPECT_EQ(lca::DecodeElementLives(lca::EncodeElementLives(lives)), lives);
    EXPECT_EQ(lca::DecodeElementLives("Doors=40;Windows=-1;Roof=3;Inventory=99999999999"), lives);
}

TEST(FloorSettings, ChoiceIsTrueForOneOnly) {
    LCAProjectData record;
    lca::DecodeFloorSettings("FLOORAREA_C=true;SOLAR_PANELS_C=1;MAX_SOLAR_CONT_C=TRUE;OPERATIONAL_EMISSION_C=0",
                             record);
    EXPECT_EQ(record.floorChoice, (std::map<FloorQuantity, bool>{{FloorQuantity::GrossFloorArea, false},
                                                                 {FloorQuantity::OperationalEmission, false},
                                                                 {FloorQuantity::SolarPanels, true},
                                                                 {FloorQuantity::MaxSolarContribution, false}}));
}

TEST(FloorSettings, EachMapBySuffix) {
    LCAProjectData record;
    lca::DecodeFloorSettings("FLOORAREA_M=120,5;FLOORAREA_E=118;REFERENCE_FLOORAREA_M=x;AREA_M=1;FLOORAREA_X=3;_M=4",
                             record);
    EXPECT_EQ(record.enteredFloorValues, (std::map<FloorQuantity, double>{{FloorQuantity::GrossFloorArea, 120.5}}));
    EXPECT_EQ(record.evaluatedFloorValues, (std::map<FloorQuantity, double>{{FloorQuantity::GrossFloorArea, 118}}));
    EXPECT_EQ(lca::EncodeFloorSettings(record), "FLOORAREA_E=118;FLOORAREA_M=120.5");
}

TEST(Phases, EmptyTextIsAnEmptyList) {
    EXPECT_TRUE(lca::DecodePhases("").empty());
    EXPECT_EQ(lca::DecodePhases("A1-A3;C3"), (std::vector<std::string>{"A1-A3", "C3"}));
    EXPECT_EQ(lca::EncodePhases({}), "");
}

} // namespace
