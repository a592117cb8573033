// The host's rules on properties and commands: what it refuses, and with which code.
#include "src/LCAProperties.h"
#include "src/LCASchema.h"

#include <gtest/gtest.h>

#include "TestBuilding.h"

namespace {

using host::Variant;
using lca::PropertyKey;
namespace Errors = host::Errors;

class PropertyRulesTest : public testing::Test {
protected:
    void SetUp() override {
        host.OpenProject(test::MakeBuilding(), host::ProjectEvent::New);
        ASSERT_EQ(EnsureSchema(host), host::NoError);
    }
    const workbench::Model& Model() { return host.GetProject()->model; }
    host::ErrorCode Do(const std::function<host::ErrorCode()>& command) { return host.commands.Call("test", command); }

    workbench::WorkbenchHost host;
};

TEST_F(PropertyRulesTest, ChangesNeedAnUndoableCommand) {
    host::PropertyGroup group{{}, "New"};
    EXPECT_EQ(host.properties.CreateGroup(group), Errors::NeedsUndoScope);
    host::PropertyDefinition definition = test::FindByKey(Model(), PropertyKey::Phases);
    EXPECT_EQ(host.properties.ChangeDefinition(definition), Errors::NeedsUndoScope);
    EXPECT_EQ(host.classifications.ClassifyMaterial(test::Timber, {}), Errors::NeedsUndoScope);
}

TEST_F(PropertyRulesTest, DefinitionsAreCheckedWhole) {
    const host::PropertyDefinition good = test::FindByKey(Model(), PropertyKey::UnitType);
    const auto create = [&](auto spoil) {
        host::PropertyDefinition definition = good;
        definition.name = "another";
        spoil(definition);
        return Do([&] { return host.properties.CreateDefinition(definition); });
    };
    EXPECT_EQ(create([&](auto& d) { d.name = good.name; }), Errors::NameAlreadyUsed);
    EXPECT_EQ(create([](auto& d) { d.name = ""; }), Errors::BadName);
    EXPECT_EQ(create([](auto& d) { d.group = test::GuidOf(1); }), Errors::BadId);
    EXPECT_EQ(create([](auto& d) { d.availability = {test::GuidOf(1)}; }), Errors::BadId);
    EXPECT_EQ(create([](auto& d) { d.valueType = host::ValueType::None; }), Errors::BadParameters);
    EXPECT_EQ(create([](auto& d) { d.options.clear(); }), Errors::BadParameters);
    EXPECT_EQ(create([](auto& d) { d.defaultValue = Variant::OfGuid(test::GuidOf(1)); }), Errors::BadValue);
    EXPECT_EQ(create([](auto&) {}), host::NoError);
    EXPECT_EQ(Model().GetDefinitions().size(), 20U); // the refused ones left nothing
}

TEST_F(PropertyRulesTest, OptionsHaveKeysOfTheirOwn) {
    const host::PropertyDefinition other = BuildDefinition(host, 1);
    for (const host::PropertyOption& option : test::FindByKey(Model(), PropertyKey::UnitType).options)
        for (const host::PropertyOption& another : other.options)
            EXPECT_NE(option.key, another.key);
    EXPECT_EQ(BuildDefinition(host, 19).valueType, host::ValueType::None); // one past the last
}

TEST_F(PropertyRulesTest, ValuesGoOnlyWhereTheDefinitionIsAvailable) {
    const auto gwp = [&] { return test::ValueOf(Model(), PropertyKey::GWPPerUnit, Variant::OfText("1")); };
    const auto write = [&](host::AttributeIndex material) {
        return Do([&] { return host.properties.WriteMaterialValues(material, {gwp()}); });
    };
    EXPECT_EQ(write(test::Timber), Errors::BadProperty);
    EXPECT_EQ(write({99}), Errors::BadIndex);
    std::vector<host::PropertyValue> values;
    EXPECT_EQ(host.properties.ReadMaterialValues(test::Timber, {gwp().definition}, values), host::NoError);
    EXPECT_EQ(values[0].status, host::PropertyStatus::NotAvailable);
    const host::Guid item = test::FindByKey(Model(), PropertyKey::GWPPerUnit).availability.front();
    EXPECT_EQ(Do([&] { return host.classifications.ClassifyMaterial(test::Timber, item); }), host::NoError);
    EXPECT_EQ(Do([&] { return host.classifications.ClassifyMaterial(test::Timber, item); }), Errors::NameAlreadyUsed);
    EXPECT_EQ(write(test::Timber), host::NoError);
    EXPECT_EQ(Do([&] {
                  host::PropertyValue wrong = gwp();
                  wrong.value = Variant::OfReal(1);
                  return host.properties.WriteMaterialValues(test::Timber, {wrong});
              }),
              Errors::BadValue);
    // An element value on a material definition is as unavailable as the other way round.
    EXPECT_EQ(Do([&] { return host.properties.WriteElementValues(test::GuidOf(1), {gwp()}); }), Errors::BadProperty);
}

TEST_F(PropertyRulesTest, ASharedProjectRefusesWithoutReservation) {
    workbench::Model& model = host.GetProject()->model;
    model.members = {{1, "anna", ""}};
    host.access.userId = 1;
    host::PropertyDefinition definition = test::FindByKey(Model(), PropertyKey::ServiceLife);
    definition.defaultValue = Variant::OfInteger(7);
    const auto change = [&] { return Do([&] { return host.properties.ChangeDefinition(definition); }); };
    EXPECT_EQ(change(), Errors::NoAccessRight);
    model.reservations = {{"BuildingMaterials", 1}};
    EXPECT_EQ(change(), Errors::NoAccessRight);
    model.reservations = {{"ClassificationsAndProperties", 1}};
    EXPECT_EQ(change(), host::NoError);
}

TEST_F(PropertyRulesTest, CommandsAreAllOrNothing) {
    workbench::Project& project = *host.GetProject();
    const std::size_t groups = Model().GetGroups().size();
    const auto add = [&](const char* name) {
        host::PropertyGroup group{{}, name};
        return host.properties.CreateGroup(group);
    };
    EXPECT_EQ(Do([&] {
                  EXPECT_FALSE(add("A"));
                  return Errors::General;
              }),
              Errors::General);
    EXPECT_EQ(Model().GetGroups().size(), groups);
    EXPECT_THROW(static_cast<void>(Do([&]() -> host::ErrorCode {
                     EXPECT_FALSE(add("A"));
                     throw std::runtime_error("in the middle");
                 })),
                 std::runtime_error);
    EXPECT_EQ(Model().GetGroups().size(), groups);
    EXPECT_EQ(Do([] { return host::NoError; }), Errors::UndoEmpty);
    EXPECT_EQ(Do([&] { return Do([] { return host::NoError; }); }), Errors::RefusedCommand);
    EXPECT_EQ(Do([&] { return add("A"); }), host::NoError);
    EXPECT_EQ(Do([&] { return add("B"); }), host::NoError);
    EXPECT_EQ(project.Undo(), host::NoError);
    EXPECT_EQ(project.Undo(), host::NoError);
    EXPECT_EQ(Model().GetGroups().size(), groups);
    EXPECT_EQ(project.Redo(), host::NoError);
    EXPECT_EQ(Model().GetGroups().back().name, "A");
    EXPECT_EQ(Do([&] { return add("C"); }), host::NoError);
    EXPECT_EQ(project.Redo(), Errors::UndoEmpty); // a new command ends what could be done again
}

} // namespace
