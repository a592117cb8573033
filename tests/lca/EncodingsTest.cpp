// The stored texts of the project record, and the markers of its definitions.
#include "lca/PropertyKeys.h"
#include "lca/RecordEncodings.h"

#include <gtest/gtest.h>

namespace {

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

/// What a new project's definitions get, and so what other programs find in a model.
TEST(StoredTexts, DefaultsAreWrittenAsTheModelKeepsThem) {
    const std::pair<PropertyKey, const char*> defaults[] = {
        {PropertyKey::GWPStandards, ""},
        {PropertyKey::Phases, "A1-A3;C3;C4"},
        {PropertyKey::ServiceLife, "50"},
        {PropertyKey::Contribution,
         "Inventory_contribution=1;Installations_contribution=1;BuildingProcess_contribution="
         "1;Inventory=5;Installations=10;BuildingProcess=10"},
        {PropertyKey::ElementLives, "Doors=25;Windows=25;Inventory=30;Installations=25"},
        {PropertyKey::ElementColours,
         "OperatingEmission=179,109,77;BuildingComponents=43,130,226;Doors=127,127,127;Windows=38,198,244;"
         "Inventory=210,152,102;Installations=70,173,121;BuildingProcess=127,72,48"},
        {PropertyKey::FloorSettings, ""},
        {PropertyKey::GrossFloorArea, "0"},
        {PropertyKey::ElectricitySourceFactor, "0.053"}};
    for (const auto& [key, text] : defaults)
        EXPECT_EQ(lca::WriteStoredText(lca::GetRow(key).encode(lca::LCAProjectData())), text) << lca::GetKeyText(key);
}

TEST(StoredTexts, WhatCanBeReadCountsAndIsWrittenAgain) {
    const struct {
        PropertyKey key;
        const char *stored, *again;
    } rows[] = {
        // A name may hold "="; a number has point or comma.
        {PropertyKey::GWPStandards,
         "BR18 = limit=12,5;Gr\xC3\xB6\xC3\x9F"
         "e \xF0\x9F\x8F\xA0=8;=0",
         "BR18 = limit=12.5;Gr\xC3\xB6\xC3\x9F"
         "e \xF0\x9F\x8F\xA0=8;=0"},
        {PropertyKey::GWPStandards, "A=12,5;B;C=x;;D=-3;E=", "A=12.5;D=-3"},
        {PropertyKey::Phases, "A1-A3;C3", "A1-A3;C3"},
        {PropertyKey::Phases, "", ""},
        {PropertyKey::Contribution,
         "Inventory_contribution=true;Installations_contribution=1;Doors_contribution=0;Inventory=7,5;"
         "BuildingProcess_gwp=4200;Unknown=3;Unknown_gwp=3;Windows=x",
         "Doors_contribution=0;Inventory_contribution=0;Installations_contribution=1;Inventory=7.5;"
         "BuildingProcess_gwp=4200"},
        {PropertyKey::ElementColours,
         "Doors=1,2,3;Windows=1,2;Inventory=1,2,3,4;Installations=256,0,0;BuildingProcess=-1,0,0;OperatingEmission=",
         "Doors=1,2,3"},
        {PropertyKey::ElementLives, "Doors=40;Windows=-1;Roof=3;Inventory=99999999999", "Doors=40;Windows=-1"},
        {PropertyKey::FloorSettings, "FLOORAREA_C=true;SOLAR_PANELS_C=1;MAX_SOLAR_CONT_C=TRUE;OPERATIONAL_EMISSION_C=0",
         "FLOORAREA_C=0;OPERATIONAL_EMISSION_C=0;SOLAR_PANELS_C=1;MAX_SOLAR_CONT_C=0"},
        {PropertyKey::FloorSettings,
         "FLOORAREA_M=120,5;FLOORAREA_E=118;REFERENCE_FLOORAREA_M=x;AREA_M=1;FLOORAREA_X=3;_M=4",
         "FLOORAREA_E=118;FLOORAREA_M=120.5"}};
    for (const auto& row : rows) {
        lca::LCAProjectData record;
        lca::BeginLoad(record);
        lca::GetRow(row.key).decode(row.stored, record);
        EXPECT_EQ(lca::WriteStoredText(lca::GetRow(row.key).encode(record)), row.again) << row.stored;
    }
    lca::LCAProjectData record;
    record.standards = {{"a;b", 1}, {"c", 2}}; // a semicolon would end the entry
    EXPECT_EQ(lca::EncodeStandards(record), "a,b=1;c=2");
}

} // namespace
