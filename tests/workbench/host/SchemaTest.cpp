// The LCA schema in the model, and storing and loading the project record in it.
#include "src/LCAProjectDataStore.h"
#include "src/LCAProperties.h"
#include "src/LCASchema.h"

#include <gtest/gtest.h>

#include <cmath>

#include "TestBuilding.h"

#include <set>

namespace {

using host::ValueType;
using lca::PropertyKey;

class SchemaTest : public testing::Test {
protected:
    void SetUp() override { host.OpenProject(test::MakeBuilding(), host::ProjectEvent::New); }
    workbench::Project& Project() { return *host.GetProject(); }
    const workbench::Model& Model() { return host.GetProject()->model; }
    host::PropertyDefinition Definition(PropertyKey key) { return test::FindByKey(Model(), key); }
    std::string GroupOf(PropertyKey key) {
        for (const host::PropertyGroup& group : Model().GetGroups())
            if (group.guid == Definition(key).group) return group.name;
        return {};
    }
    /// Changes a definition as a user does in the host's own dialog.
    void Change(const host::PropertyDefinition& changed) {
        ASSERT_EQ(host.commands.Call("edit", [&] { return host.properties.ChangeDefinition(changed); }), host::NoError);
    }
    host::ErrorCode Store(lca::LCAProjectData record) {
        return ChangeProjectData(host, record, [wanted = record](auto& present) { present = wanted; });
    }

    workbench::WorkbenchHost host;
};

TEST_F(SchemaTest, IsCreatedWholeInOneUndoStep) {
    const std::size_t systems = Model().GetSystems().size();
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    ASSERT_EQ(Model().GetDefinitions().size(), 19U);
    EXPECT_EQ(Model().GetSystems().back().name, "LCA Classification System");
    EXPECT_EQ(Model().GetSystems().back().version, "26");
    EXPECT_GE(Model().GetSystems().back().date.year, 2026);
    const workbench::ClassificationItem item = Model().GetItems().back();
    EXPECT_EQ(item.item.name, "LCA Building materials");
    EXPECT_EQ(Definition(PropertyKey::GWPPerUnit).availability, std::vector<host::Guid>{item.item.guid});
    EXPECT_EQ(Definition(PropertyKey::GWP).availability.size(), 15U); // every kind of element
    EXPECT_TRUE(Definition(PropertyKey::Phases).availability.empty());
    EXPECT_EQ(Project().ListUndoNames().size(), 1U);
    ASSERT_EQ(Project().Undo(), host::NoError);
    EXPECT_TRUE(Model().GetDefinitions().empty());
    EXPECT_TRUE(Model().GetGroups().empty());
    EXPECT_EQ(Model().GetSystems().size(), systems);
}

TEST_F(SchemaTest, DefinitionsAreAsTheRestOfTheWorldKnowsThem) {
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    struct Expected {
        PropertyKey key;
        const char* marker;
        const char* name;
        const char* group;
        ValueType type;
        host::Variant unset;
    };
    const Expected table[] = {
        {PropertyKey::GWPPerUnit, "LCAID=\"GWP/UNIT\"", "GWP (kg/unit)", "LCA Material", ValueType::String,
         host::Variant::OfText("0")},
        {PropertyKey::ServiceYear, "LCAID=\"SERVICEYEAR\"", "Service Year", "LCA Material", ValueType::Integer,
         host::Variant::OfInteger(0)},
        {PropertyKey::GWP, "LCAID=\"GWP\"", "GWP (kg)", "LCA Element", ValueType::Real, host::Variant::OfReal(0)},
        {PropertyKey::Include, "LCAID=\"INCLUDE\"", "Include", "LCA Element", ValueType::Boolean,
         host::Variant::OfBoolean(true)},
        {PropertyKey::GWPPercentage, "LCAID=\"GWPPERCENTAGE\"", "Percentage", "LCA Element", ValueType::Real,
         host::Variant::OfReal(100)},
        {PropertyKey::Phases, "LCAID=\"PHASES\"", "Used Phases", "LCA Project", ValueType::String,
         host::Variant::OfText("A1-A3;C3;C4")},
        {PropertyKey::ServiceLife, "LCAID=\"SERVICELIFE\"", "Considered Service Life", "LCA Project",
         ValueType::Integer, host::Variant::OfInteger(50)},
        {PropertyKey::OperationalEmission, "LCAID=\"OPERATIONAL_EMISSION\"", "Operational CO\xE2\x82\x82 Emission",
         "LCA Project", ValueType::Real, host::Variant::OfReal(0)},
        {PropertyKey::ElectricitySourceFactor, "LCAID=\"ELECTRICITY_S_FACTOR\"", "Electricity", "LCA Project",
         ValueType::Real, host::Variant::OfReal(0.053)},
    };
    for (const Expected& expected : table) {
        const host::PropertyDefinition definition = Definition(expected.key);
        EXPECT_EQ(definition.description, expected.marker);
        EXPECT_EQ(definition.name, expected.name);
        EXPECT_EQ(GroupOf(expected.key), expected.group);
        EXPECT_EQ(definition.valueType, expected.type) << expected.name;
        EXPECT_TRUE(definition.defaultValue == expected.unset) << expected.name;
        EXPECT_EQ(definition.collection, host::CollectionType::Single);
    }
    const host::PropertyDefinition unit = Definition(PropertyKey::UnitType);
    EXPECT_EQ(unit.collection, host::CollectionType::SingleChoice);
    ASSERT_EQ(unit.options.size(), 3U);
    EXPECT_EQ(unit.options[0].text + unit.options[1].text + unit.options[2].text, "m3m2kg");
    EXPECT_EQ(unit.defaultValue.guid, unit.options[0].key);
}

TEST_F(SchemaTest, TwoBuildsDifferInTheirOptionKeysOnly) {
    const host::PropertyDefinition a = BuildDefinition(host, 1), b = BuildDefinition(host, 1);
    std::set<host::Guid> keys;
    for (const host::PropertyDefinition& one : {a, b})
        for (const host::PropertyOption& option : one.options)
            keys.insert(option.key);
    EXPECT_EQ(keys.size(), 6U);
    EXPECT_EQ(BuildDefinition(host, 19).valueType, ValueType::None);
}

TEST_F(SchemaTest, ASecondRunWritesNothing) {
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    const std::uint64_t revision = Model().GetSchemaRevision();
    EXPECT_EQ(EnsureSchema(host), host::NoError);
    EXPECT_EQ(Model().GetSchemaRevision(), revision);
    EXPECT_EQ(Project().ListUndoNames().size(), 1U);
}

TEST_F(SchemaTest, AUsersRenameSurvives) {
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    host::PropertyDefinition renamed = Definition(PropertyKey::UnitType);
    renamed.name = "Einheit";
    renamed.description = "Our unit. " + renamed.description;
    renamed.options[0].text = "m\xC2\xB3";
    Change(renamed);
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    EXPECT_TRUE(Definition(PropertyKey::UnitType) == renamed);
    EXPECT_EQ(Model().GetDefinitions().size(), 19U);
}

TEST_F(SchemaTest, AnUnmarkedDefinitionOfTheNameIsTakenOver) {
    host::PropertyDefinition unit;
    ASSERT_EQ(host.commands.Call("prepare",
                                 [&] {
                                     host::PropertyGroup group{{}, "LCA Material"};
                                     EXPECT_FALSE(host.properties.CreateGroup(group));
                                     unit.group = group.guid;
                                     unit.name = "GWP Unit Type";
                                     unit.valueType = ValueType::String;
                                     unit.collection = host::CollectionType::SingleChoice;
                                     unit.options = {{test::GuidOf(91), "kg"}, {test::GuidOf(92), "t"}};
                                     return host.properties.CreateDefinition(unit);
                                 }),
              host::NoError);
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    const host::PropertyDefinition taken = Definition(PropertyKey::UnitType);
    EXPECT_EQ(taken.guid, unit.guid);
    ASSERT_EQ(taken.options.size(), 3U);
    EXPECT_EQ(taken.options[2].key, test::GuidOf(91)); // "kg" keeps its key, and with it the values
    EXPECT_EQ(Model().GetDefinitions().size(), 19U);
    EXPECT_EQ(Model().GetGroups().size(), 3U);
}

TEST_F(SchemaTest, ASharedProjectNeedsTheReservation) {
    Project().model.members = {{1, "anna", "Anna"}, {2, "ben", ""}};
    host.access.userId = 1;
    EXPECT_EQ(EnsureSchema(host), host::NoError);
    EXPECT_TRUE(Model().GetDefinitions().empty());
    Project().model.reservations = {{"ClassificationsAndProperties", 2}};
    EXPECT_EQ(EnsureSchema(host), host::NoError);
    EXPECT_TRUE(Model().GetDefinitions().empty());
    Project().model.reservations = {{"ClassificationsAndProperties", 1}};
    EXPECT_EQ(EnsureSchema(host), host::NoError);
    EXPECT_EQ(Model().GetDefinitions().size(), 19U);
}

TEST_F(SchemaTest, TheRecordIsStoredAsOneStepNamedUndo) {
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    lca::LCAProjectData record;
    record.consideredServiceLifeYears = 60;
    record.standardsUnit = lca::GWPUnitType::PerArea;
    record.standards = {{"Limit", 12.5}};
    record.SetFloorValue(lca::FloorQuantity::GrossFloorArea, lca::FloorSource::ByHand, 120);
    record.SetFloorChoice(lca::FloorQuantity::GrossFloorArea, lca::FloorSource::ByHand);
    ASSERT_EQ(Store(record), host::NoError);
    EXPECT_EQ(Project().ListUndoNames().back(), "Undo");
    EXPECT_EQ(Definition(PropertyKey::GWPStandards).description, "LCAID=\"GWP-STANDARDS\" LCAUNIT=\"GWP_KG_M2\"");
    EXPECT_EQ(Definition(PropertyKey::FloorSettings).defaultValue.text, "FLOORAREA_M=120;FLOORAREA_C=0");
    lca::LCAProjectData loaded;
    ASSERT_EQ(LoadProjectData(host, loaded), host::NoError);
    EXPECT_EQ(loaded.consideredServiceLifeYears, 60U);
    EXPECT_EQ(loaded.standards, record.standards);
    EXPECT_EQ(loaded.GetFloorValue(lca::FloorQuantity::GrossFloorArea), 120);
    // Storing what is there writes nothing and leaves no step.
    const std::size_t steps = Project().ListUndoNames().size();
    EXPECT_EQ(Store(loaded), host::NoError);
    EXPECT_LE(Project().ListUndoNames().size(), steps + 1);
    EXPECT_EQ(Store(loaded), host::NoError);
    EXPECT_FALSE(Project().Undo());
    EXPECT_FALSE(LoadProjectData(host, loaded));
}

TEST_F(SchemaTest, OnlyTheFirstMarkedDefinitionOfTheProjectGroupIsStored) {
    host::PropertyGroup foreign{{}, "Our own"};
    ASSERT_EQ(host.commands.Call("group", [&] { return host.properties.CreateGroup(foreign); }), host::NoError);
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    host::PropertyDefinition behind = Definition(PropertyKey::ServiceLife);
    behind.name = "Copy";
    host::PropertyDefinition before = behind;
    before.group = foreign.guid;
    for (host::PropertyDefinition* copy : {&behind, &before})
        ASSERT_EQ(host.commands.Call("copy", [&] { return host.properties.CreateDefinition(*copy); }), host::NoError);
    lca::LCAProjectData record;
    record.consideredServiceLifeYears = 80;
    ASSERT_EQ(Store(record), host::NoError);
    EXPECT_EQ(Definition(PropertyKey::ServiceLife).defaultValue.integer, 80);
    for (const host::PropertyDefinition* copy : {&behind, &before})
        EXPECT_EQ(Model().FindDefinition(copy->guid)->defaultValue.integer, 50);
}

TEST_F(SchemaTest, WithoutASchemaNothingIsReadOrWritten) {
    lca::LCAProjectData record;
    record.consideredServiceLifeYears = 70;
    record.SetFloorValue(lca::FloorQuantity::SolarPanels, lca::FloorSource::ByHand, 5);
    EXPECT_EQ(Store(record), host::NoError);
    EXPECT_TRUE(Project().ListUndoNames().empty());
    EXPECT_EQ(LoadProjectData(host, record), host::NoError);
    EXPECT_EQ(record.consideredServiceLifeYears, 70U);
    EXPECT_TRUE(record.enteredFloorValues.empty());
    EXPECT_EQ(record.usedPhases.size(), 3U);
}

TEST_F(SchemaTest, MaterialsAreClassifiedBeforeTheirValuesAreWritten) {
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    const std::vector<host::PropertyValue> values = {
        test::ValueOf(Model(), PropertyKey::GWPPerUnit, host::Variant::OfText("300"))};
    ASSERT_EQ(host.commands.Call("direct", [&] { return host.properties.WriteMaterialValues(test::Timber, values); }),
              host::Errors::BadProperty);
    for (int run = 0; run < 2; ++run) // the second run finds the material classified
        ASSERT_EQ(host.commands.Call("store",
                                     [&] {
                                         const host::ErrorCode error = StoreMaterialValues(host, test::Timber, values);
                                         return error;
                                     }),
                  run == 0 ? host::NoError : host::Errors::UndoEmpty);
    EXPECT_EQ(Model().GetMaterialClassifications().size(), 1U);
    std::vector<host::PropertyValue> read;
    ASSERT_EQ(host.properties.ReadMaterialValues(test::Timber, {values[0].definition}, read), host::NoError);
    EXPECT_EQ(read[0].value.text, "300");
}

TEST_F(SchemaTest, ADefinitionThatLostItsMarkerKeepsItsValue) {
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    for (const PropertyKey key : {PropertyKey::ServiceLife, PropertyKey::UnitType}) {
        host::PropertyDefinition definition = Definition(key);
        definition.description = "mine";
        definition.defaultValue = key == PropertyKey::ServiceLife
                                      ? host::Variant::OfInteger(77)
                                      : host::Variant::OfGuid(definition.options.back().key);
        Change(definition);
        ASSERT_EQ(EnsureSchema(host), host::NoError);
        EXPECT_EQ(Definition(key).guid, definition.guid);
        EXPECT_EQ(Definition(key).defaultValue, definition.defaultValue);
    }
}

TEST_F(SchemaTest, WhatCannotBeReadOrStoredIsNamed) {
    ASSERT_EQ(EnsureSchema(host), host::NoError);
    std::vector<std::string> lines;
    host.dialogManager.reportSink = [&](const std::string& line) { lines.push_back(line); };
    WarnOfDoubledDefinitions(host);
    EXPECT_TRUE(lines.empty());
    host::PropertyDefinition area = Definition(PropertyKey::GrossFloorArea);
    lca::LCAProjectData record;
    record.SetPlainValue(lca::FloorQuantity::GrossFloorArea, 12);
    for (const host::Variant& unusable : {host::Variant(), host::Variant::OfReal(INFINITY)}) {
        area.defaultValue = unusable;
        Change(area);
        EXPECT_EQ(LoadProjectData(host, record), host::NoError);
        EXPECT_EQ(record.GetPlainValue(lca::FloorQuantity::GrossFloorArea), 12);
    }
    host::PropertyDefinition copy = Definition(PropertyKey::Phases);
    copy.name = "Copy";
    ASSERT_EQ(host.commands.Call("copy", [&] { return host.properties.CreateDefinition(copy); }), host::NoError);
    WarnOfDoubledDefinitions(host);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_NE(lines[1].find(": Gross Floor Area"), std::string::npos) << lines[1];
    EXPECT_NE(lines[2].find(": Copy"), std::string::npos) << lines[2];
}

} // namespace
