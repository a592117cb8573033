// Settings of the record: every key with good and bad values, settings files, and what a setting does besides.
#include "workbench/app/RecordSettings.h"

#include "lca/RecordEncodings.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace workbench;
using lca::FloorQuantity;
using lca::FloorSource;

/// The record, of which nothing was set before, after these settings.
lca::LCAProjectData After(const std::vector<std::string>& arguments, lca::LCAProjectData record = {}) {
    RecordSettings settings;
    for (const std::string& argument : arguments) {
        const Outcome failure = settings.AddArgument(argument);
        EXPECT_FALSE(failure) << failure->sentence;
    }
    settings.Apply(record);
    return record;
}

TEST(RecordSettings, EveryKey) {
    EXPECT_EQ(After({"SERVICELIFE=80"}).consideredServiceLifeYears, 80U);
    EXPECT_EQ(After({"PHASES=A1-A3;D"}).usedPhases, (std::vector<std::string>{"A1-A3", "D"}));
    EXPECT_TRUE(After({"PHASES="}).usedPhases.empty());
    const auto standards = After({"GWP-STANDARDS=Code A=7,5;B = C=12"}).standards;
    ASSERT_EQ(standards.size(), 2U);
    EXPECT_EQ(standards[0], (lca::Standard{"Code A", 7.5}));
    EXPECT_EQ(standards[1], (lca::Standard{"B = C", 12}));
    const lca::LCAProjectData shares = After({"CONTRIBUTION=Inventory_contribution=0;Inventory=7;Inventory_gwp=900"});
    EXPECT_FALSE(shares.contributionEnabled.at(lca::ElementCategory::Inventory));
    EXPECT_EQ(shares.contributionShare.at(lca::ElementCategory::Inventory), 7);
    EXPECT_EQ(shares.contributionGWP.at(lca::ElementCategory::Inventory), 900);
    EXPECT_EQ(After({"ELEMLIVES=Doors=40"}).elementLives,
              (std::map<lca::ElementCategory, std::int32_t>{{lca::ElementCategory::Doors, 40}}));
    EXPECT_EQ(After({"ELEMCOLORS=Doors=1,2,255"}).elementColours.at(lca::ElementCategory::Doors), 0xFF0102FFU);
    const struct {
        const char* text;
        lca::GWPUnitType unit;
    } units[] = {{"GWP_KG", lca::GWPUnitType::Total},
                 {"GWP_KG_M2", lca::GWPUnitType::PerArea},
                 {"GWP_KG_M2_A", lca::GWPUnitType::PerAreaAndYear}};
    for (const auto& row : units) {
        // Standards given later do not take the unit away.
        const auto record = After({"GWP-STANDARDS-UNIT=" + std::string(row.text), "GWP-STANDARDS=a=1"});
        EXPECT_EQ(record.standardsUnit, row.unit) << row.text;
    }
    for (const FloorQuantity quantity : lca::AllFloorQuantities) {
        const std::string key(lca::GetKeyText(quantity));
        const bool isArea = quantity == FloorQuantity::GrossFloorArea || quantity == FloorQuantity::ReferenceFloorArea;
        EXPECT_EQ(After({key + (isArea ? "=12,25" : "=-12,25")}).GetFloorValue(quantity), isArea ? 12.25 : -12.25);
    }
}

TEST(RecordSettings, BadArguments) {
    const struct {
        const char* argument;
        const char* reason;
    } cases[] = {{"SERVICELIFE", "write KEY=VALUE"},
                 {"=1", "the key is unknown; keys are GWP-STANDARDS, PHASES, "},
                 {"servicelife=1", "the key is unknown"},
                 {"GWP/UNIT=1", "the key is unknown"},
                 {"INCLUDE=1", "the key is unknown"},
                 {"SERVICELIFE=", "the value is whole years"},
                 {"SERVICELIFE=-1", "the value is whole years"},
                 {"SERVICELIFE=50.5", "the value is whole years"},
                 {"SERVICELIFE=2147483648", "the value is whole years"},
                 {"SERVICELIFE=long", "the value is whole years"},
                 {"FLOORAREA=", "the value is a number"},
                 {"FLOORAREA=12 m2", "the value is a number"},
                 {"FLOORAREA=-0,5", "an area is 0 or more"},
                 {"REFERENCE_FLOORAREA=-1", "an area is 0 or more"},
                 {"FLOOR_SETTINGS=FLOORAREA_E=-1", "an area is 0 or more"},
                 {"FLOOR_SETTINGS=FLOORAREA_M=1;REFERENCE_FLOORAREA_M=-1", "an area is 0 or more"},
                 {"SOLAR_PANELS=nan", "the value is a number"},
                 {"CONTRIBUTION=Inventory", "the value has an entry that cannot be read"},
                 {"CONTRIBUTION=Garden=5", "the value has an entry that cannot be read"},
                 {"CONTRIBUTION=Inventory=5;Installations=x", "the value has an entry that cannot be read"},
                 {"ELEMLIVES=Doors=soon", "the value has an entry that cannot be read"},
                 {"ELEMCOLORS=Doors=1,2", "the value has an entry that cannot be read"},
                 {"ELEMCOLORS=Doors=1,2,256", "the value has an entry that cannot be read"},
                 {"FLOOR_SETTINGS=FLOORAREA_X=1", "the value has an entry that cannot be read"},
                 {"GWP-STANDARDS=Code A", "the value has an entry that cannot be read"},
                 {"GWP-STANDARDS-UNIT=kg", "the unit is GWP_KG, GWP_KG_M2 or GWP_KG_M2_A"}};
    for (const auto& row : cases) {
        RecordSettings settings;
        const Outcome failure = settings.AddArgument(row.argument);
        ASSERT_TRUE(failure) << row.argument;
        EXPECT_EQ(failure->code, UsageError);
        const std::string sentence = "--set " + std::string(row.argument) + ": " + row.reason;
        EXPECT_EQ(failure->sentence.substr(0, sentence.size()), sentence);
        EXPECT_TRUE(settings.IsEmpty());
    }
}

TEST(RecordSettings, Files) {
    const support::TestFolder folder;
    RecordSettings settings;
    const std::string good = folder.Write("good.txt", "\xEF\xBB\xBF# settings\r\n\r\n  SERVICELIFE =  60 \r\n"
                                                      "   # PHASES = D\nPHASES=A1-A3\nFLOORAREA = 10\nFLOORAREA = 20");
    ASSERT_FALSE(settings.AddFile(good));
    lca::LCAProjectData record;
    settings.Apply(record);
    EXPECT_EQ(record.consideredServiceLifeYears, 60U);
    EXPECT_EQ(record.usedPhases, std::vector<std::string>{"A1-A3"});
    EXPECT_EQ(record.GetFloorValue(FloorQuantity::GrossFloorArea), 20) << "the last one counts";
    const struct {
        const char* content;
        const char* reason;
    } cases[] = {{"# a\nSERVICELIFE\n", ":2: write KEY = VALUE"},
                 {"SERVICELIFE = x\n", ":1: the value is whole years, 0 or more"},
                 {"\n\nHEIGHT = 3\n", ":3: the key is unknown"},
                 {"# Gr\xF6\xDF"
                  "e\n",
                  ": the text is not UTF-8"}};
    for (const auto& row : cases) {
        const std::string file = folder.Write("bad.txt", row.content);
        const Outcome failure = RecordSettings().AddFile(file);
        ASSERT_TRUE(failure) << row.content;
        EXPECT_EQ(failure->code, InputUnreadable);
        EXPECT_EQ(failure->sentence.substr(0, (file + row.reason).size()), file + row.reason);
    }
    const Outcome missing = RecordSettings().AddFile(folder / "missing.txt");
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->code, InputUnreadable);
    ASSERT_TRUE(RecordSettings().AddFile(folder.Path())) << "a folder is no settings file";
}

lca::LCAProjectData AllFromEvaluation() {
    lca::LCAProjectData record;
    for (const FloorQuantity quantity : lca::AllFloorQuantities) {
        record.SetFloorValue(quantity, FloorSource::EnergyEvaluation, 1000);
        record.SetFloorValue(quantity, FloorSource::ByHand, 2000);
        record.SetFloorChoice(quantity, FloorSource::EnergyEvaluation);
    }
    return record;
}

/// Quantities that come from the energy evaluation.
std::string Flagged(const lca::LCAProjectData& record) {
    std::string keys;
    for (const FloorQuantity quantity : lca::AllFloorQuantities)
        if (record.GetFloorChoice(quantity) == FloorSource::EnergyEvaluation)
            keys.append(keys.empty() ? "" : " ").append(lca::GetKeyText(quantity));
    return keys;
}

TEST(RecordSettings, AQuantityCountsAsEnteredByHand) {
    const struct {
        std::vector<std::string> arguments;
        const char* flagged;
    } cases[] = {
        {{}, "FLOORAREA OPERATIONAL_EMISSION REFERENCE_FLOORAREA SOLAR_PANELS MAX_SOLAR_CONT ELECTRICITY_S_FACTOR"},
        {{"FLOORAREA=1", "OPERATIONAL_EMISSION=2"},
         "REFERENCE_FLOORAREA SOLAR_PANELS MAX_SOLAR_CONT ELECTRICITY_S_FACTOR"},
        {{"REFERENCE_FLOORAREA=1", "ELECTRICITY_S_FACTOR=2", "FLOORAREA=1", "OPERATIONAL_EMISSION=2"},
         "SOLAR_PANELS MAX_SOLAR_CONT"},
        {{"SOLAR_PANELS=3"}, "FLOORAREA OPERATIONAL_EMISSION REFERENCE_FLOORAREA ELECTRICITY_S_FACTOR"},
        {{"MAX_SOLAR_CONT=3"},
         "FLOORAREA OPERATIONAL_EMISSION REFERENCE_FLOORAREA MAX_SOLAR_CONT ELECTRICITY_S_FACTOR"},
        {{"MAX_SOLAR_CONT=3", "SOLAR_PANELS=3"},
         "FLOORAREA OPERATIONAL_EMISSION REFERENCE_FLOORAREA ELECTRICITY_S_FACTOR"},
        {{"SOLAR_PANELS=3", "MAX_SOLAR_CONT=3"},
         "FLOORAREA OPERATIONAL_EMISSION REFERENCE_FLOORAREA MAX_SOLAR_CONT ELECTRICITY_S_FACTOR"},
        // Floor settings have the last word, wherever they stand.
        {{"FLOOR_SETTINGS=FLOORAREA_C=1;SOLAR_PANELS_C=0", "FLOORAREA=5", "SOLAR_PANELS=3", "MAX_SOLAR_CONT=3"},
         "FLOORAREA OPERATIONAL_EMISSION REFERENCE_FLOORAREA MAX_SOLAR_CONT ELECTRICITY_S_FACTOR"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        EXPECT_EQ(Flagged(After(row.arguments, AllFromEvaluation())), row.flagged);
    }
}

TEST(RecordSettings, TheSolarLimitIsStoredUnderItsSetFlag) {
    const lca::LCAProjectData record = After({"MAX_SOLAR_CONT=7"}, AllFromEvaluation());
    EXPECT_EQ(record.evaluatedFloorValues.at(FloorQuantity::MaxSolarContribution), 7);
    EXPECT_EQ(record.enteredFloorValues.at(FloorQuantity::MaxSolarContribution), 2000);
    EXPECT_EQ(record.GetFloorValue(FloorQuantity::SolarPanels), 2000) << "by hand again";
    const lca::LCAProjectData panels = After({"SOLAR_PANELS=9"}, AllFromEvaluation());
    EXPECT_EQ(panels.enteredFloorValues.at(FloorQuantity::SolarPanels), 9);
    EXPECT_EQ(panels.evaluatedFloorValues.at(FloorQuantity::SolarPanels), 1000);
    const lca::LCAProjectData last = After({"FLOOR_SETTINGS=FLOORAREA_M=33", "FLOORAREA=5"}, AllFromEvaluation());
    EXPECT_EQ(last.GetFloorValue(FloorQuantity::GrossFloorArea), 33);
    EXPECT_EQ(last.evaluatedFloorValues.at(FloorQuantity::GrossFloorArea), 1000);
}

} // namespace
