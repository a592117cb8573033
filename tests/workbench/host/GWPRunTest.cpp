// The run of the calculation over a model, against sums by hand.
#include "src/GWPRun.h"
#include "src/LCAProjectDataStore.h"
#include "src/LCAProperties.h"
#include "src/LCASchema.h"

#include <gtest/gtest.h>

#include "TestBuilding.h"

namespace {

using lca::PropertyKey;

class GWPRunTest : public testing::Test {
protected:
    void SetUp() override {
        host.OpenProject(test::MakeBuilding(), host::ProjectEvent::New);
        ASSERT_EQ(EnsureSchema(host), host::NoError);
    }
    workbench::Model& Model() { return host.GetProject()->model; }

    void SetMaterial(host::AttributeIndex material, const std::string& gwp, const char* unit, int years) {
        const host::PropertyDefinition unitType = test::FindByKey(Model(), PropertyKey::UnitType);
        host::Guid key;
        for (const host::PropertyOption& option : unitType.options)
            if (option.text == unit) key = option.key;
        const std::vector<host::PropertyValue> values = {
            test::ValueOf(Model(), PropertyKey::GWPPerUnit, host::Variant::OfText(gwp)),
            test::ValueOf(Model(), PropertyKey::UnitType, host::Variant::OfGuid(key)),
            test::ValueOf(Model(), PropertyKey::ServiceYear, host::Variant::OfInteger(years))};
        ASSERT_EQ(host.commands.Call("m", [&] { return StoreMaterialValues(host, material, values); }), host::NoError);
    }
    void SetElement(int number, PropertyKey key, host::Variant value) {
        const std::vector<host::PropertyValue> values = {test::ValueOf(Model(), key, std::move(value))};
        ASSERT_EQ(
            host.commands.Call("e", [&] { return host.properties.WriteElementValues(test::GuidOf(number), values); }),
            host::NoError);
    }
    void Run() { ASSERT_EQ(RunGWPCalculation(host, record, table, sums), RunOutcome::Whole); }

    workbench::WorkbenchHost host;
    lca::LCAProjectData record;
    lca::MaterialSumTable table;
    lca::BaseSums sums;
};

TEST_F(GWPRunTest, SumsTheBuilding) {
    SetMaterial(test::Concrete, "300", "m3", 20); // 2 m3 x 300 x 3 = 1800
    SetMaterial(test::Plaster, "2,5", "m2", 0);   // 8 m2 x 2.5 = 20
    SetMaterial(test::Timber, "1.5", "kg", 0);    // 2 m3 x 500 kg/m3 x 1.5 = 1500
    SetElement(3, PropertyKey::GWP, host::Variant::OfReal(200));
    SetElement(3, PropertyKey::GWPPercentage, host::Variant::OfReal(50));
    SetElement(4, PropertyKey::GWP, host::Variant::OfReal(70));
    Run();
    EXPECT_DOUBLE_EQ(sums.buildingComponents, 3320);
    EXPECT_DOUBLE_EQ(sums.doors, 100);
    EXPECT_DOUBLE_EQ(sums.windows, 70);
    ASSERT_EQ(table.GetLayers().size(), 2U);
    EXPECT_EQ(table.GetLayers()[0].layer, test::Outside.value);
    ASSERT_EQ(table.GetLayers()[0].materials.size(), 2U);
    EXPECT_DOUBLE_EQ(table.GetLayers()[0].materials[0].gwp, 1800);
    EXPECT_DOUBLE_EQ(table.GetLayers()[0].materials[1].gwp, 20);
    EXPECT_DOUBLE_EQ(table.GetLayers()[1].materials[0].gwp, 1500);
    Run(); // starts anew, does not add up
    EXPECT_DOUBLE_EQ(sums.buildingComponents, 3320);
}

TEST_F(GWPRunTest, ElementsLeftOutOrShared) {
    SetMaterial(test::Concrete, "300", "m3", 0);
    SetMaterial(test::Timber, "100", "m3", 0);
    SetElement(1, PropertyKey::Include, host::Variant::OfBoolean(false));
    SetElement(2, PropertyKey::GWPPercentage, host::Variant::OfReal(25));
    SetElement(2, PropertyKey::GWP, host::Variant::OfReal(9999)); // does not count for a wall
    Run();
    EXPECT_DOUBLE_EQ(sums.buildingComponents, 50); // 2 m3 x 100 x 25 %
    EXPECT_EQ(table.GetLayers().size(), 1U);
}

TEST_F(GWPRunTest, PhasesComeFromTheStoredRecord) {
    SetMaterial(test::Timber, "A1-A3=-700;C3=800;D=-300", "m3", 0);
    Run();
    EXPECT_DOUBLE_EQ(sums.buildingComponents, 200); // 2 m3 x (-700 + 800)
    ASSERT_EQ(ChangeProjectData(host, record,
                                [](auto& present) {
                                    present.usedPhases = {"A1-A3", "D"};
                                }),
              host::NoError);
    record.usedPhases = {"C3"}; // the run reads the model, not what happens to be in memory
    Run();
    EXPECT_DOUBLE_EQ(sums.buildingComponents, -2000);
}

TEST_F(GWPRunTest, WithoutSchemaEverythingIsZero) {
    host.OpenProject(test::MakeBuilding(), host::ProjectEvent::New);
    Run();
    EXPECT_EQ(sums.buildingComponents, 0);
    EXPECT_EQ(table.GetLayers().size(), 2U);
}

TEST_F(GWPRunTest, RunsOnTheFloorPlanAndComesBack) {
    ASSERT_FALSE(host.databases.ChangeCurrentDatabase({host::DatabaseType::Model3D, {}, {}}));
    std::vector<host::DatabaseType> seen;
    host.progress.observer = [&](const auto&) { seen.push_back(host.databases.GetCurrent().type); };
    Run();
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front(), host::DatabaseType::FloorPlan);
    EXPECT_EQ(host.databases.GetCurrent().type, host::DatabaseType::Model3D);
}

TEST_F(GWPRunTest, TellsItsProgressAboutTwentyTimes) {
    for (int i = 5; i <= 1000; ++i)
        test::AddElement(Model(), i, host::ElementType::Wall, test::Inside, {});
    Run();
    EXPECT_EQ(host.progress.state.title, "Kelvarnix Process");
    EXPECT_EQ(host.progress.state.phase, "Calculating GWP values");
    EXPECT_EQ(host.progress.state.maximum, 1000);
    EXPECT_EQ(host.progress.state.updates, 20);
    EXPECT_FALSE(host.progress.state.isOpen);
}

/// Nothing is known of an element's own values or of a material while the model has no definition for it, or one whose
/// value is none: the element counts whole, and a null identifier is never asked for.
TEST_F(GWPRunTest, DefinitionsWithoutAValueCountAsNotAvailable) {
    SetMaterial(test::Concrete, "300", "m3", 0);
    host::PropertyDefinition include = test::FindByKey(Model(), PropertyKey::Include);
    include.defaultValue = {};
    ASSERT_FALSE(host.commands.Call("no default", [&] { return host.properties.ChangeDefinition(include); }));
    Run();
    EXPECT_DOUBLE_EQ(sums.buildingComponents, 600);
    include.description = "unmarked";
    ASSERT_FALSE(host.commands.Call("no marker", [&] { return host.properties.ChangeDefinition(include); }));
    Run();
    EXPECT_DOUBLE_EQ(sums.buildingComponents, 600);
}

TEST_F(GWPRunTest, GoesOnWhereTheHostRefuses) {
    SetMaterial(test::Concrete, "300", "m3", 0); // element 1: 600
    SetMaterial(test::Timber, "100", "m3", 0);   // element 2: 200
    SetElement(2, PropertyKey::GWPPercentage, host::Variant::OfReal(50));
    const struct {
        const char* operation;
        int element; ///< whose operation is refused; 0: every one
        host::ErrorCode code;
        RunOutcome outcome;
        double sum;
        const char* line;
    } cases[] = {
        {"Model.ReadElementComponents", 1, host::Errors::NoAccessRight, RunOutcome::Incomplete, 100,
         "GWP calculation: elements that could not be read and do not count: 1 (first host error 0x81060133)"},
        {"Model.ReadElementHeader", 2, host::Errors::General, RunOutcome::Incomplete, 600,
         "elements that could not be read and do not count: 1"},
        {"Properties.ReadElementValues", 2, host::Errors::General, RunOutcome::Incomplete, 800,
         "elements that count whole because their own LCA values could not be read: 1"},
        {"Properties.ReadMaterialValues", 0, host::Errors::General, RunOutcome::Incomplete, 0,
         "values of building materials that could not be read and count as 0: 3"},
        {"Databases.ChangeCurrentDatabase", 0, host::Errors::BadDatabase, RunOutcome::NotRun, 700,
         "ended with host error"},
        {"Model.ListElements", 0, host::Errors::General, RunOutcome::NotRun, 700, "ended with host error"},
        {"ProgressWindow.SetValue", 0, host::Errors::Cancelled, RunOutcome::Cancelled, 700, "the former result stays"}};
    std::vector<std::string> lines;
    host.dialogManager.reportSink = [&](const std::string& line) { lines.push_back(line); };
    for (const auto& one : cases) {
        host.refusals.rule = nullptr;
        Run();
        lines.clear();
        const bool isOtherDatabase = std::string(one.operation) == "Databases.ChangeCurrentDatabase";
        ASSERT_FALSE(host.databases.ChangeCurrentDatabase(
            {isOtherDatabase ? host::DatabaseType::Model3D : host::DatabaseType::FloorPlan, {}, {}}));
        host.refusals.rule = [&](const std::string& operation, const host::Guid& subject) {
            const bool isMeant = one.element == 0 || subject == test::GuidOf(one.element);
            return operation == one.operation && isMeant ? one.code : host::NoError;
        };
        EXPECT_EQ(RunGWPCalculation(host, record, table, sums), one.outcome) << one.operation;
        EXPECT_DOUBLE_EQ(sums.buildingComponents, one.sum) << one.operation;
        ASSERT_EQ(lines.size(), 1U) << one.operation << testing::PrintToString(lines);
        EXPECT_NE(lines[0].find(one.line), std::string::npos) << lines[0];
    }
}

} // namespace
