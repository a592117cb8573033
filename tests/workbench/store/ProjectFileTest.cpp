// Project files: what is written comes back, and commands of an opened project are kept as they happen.
#include "StoreTestSupport.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace {

using namespace workbench;

TEST(ProjectFile, EverythingComesBack) {
    const test::Folder folder;
    for (const int elements : {0, 1, 50}) {
        const auto project = test::MakeProject(elements);
        ASSERT_EQ(SaveProject(*project, folder / "a.kvp"), "");
        EXPECT_EQ(test::OpenAndDescribe(folder / "a.kvp"), test::Describe(project->model)) << elements;
    }
    EXPECT_EQ(folder.CountFiles(), 1U); // no unfinished file, no journal
}

TEST(ProjectFile, NamesWithOtherLetters) {
    const test::Folder folder;
    const auto project = test::MakeProject(3);
    const auto file = folder / "Größe \xE5\xAE\xB6.kvp";
    ASSERT_EQ(SaveProject(*project, file), "");
    EXPECT_EQ(test::OpenAndDescribe(file), test::Describe(project->model));
}

host::ErrorCode Rename(Project& project, const char* name) {
    return project.CallUndoable("rename", [&] {
        host::PropertyGroup changed = project.model.GetGroups()[0];
        changed.name = name;
        project.Record({project.model.GetGroups()[0], changed});
        return host::NoError;
    });
}

TEST(ProjectFile, CommandsUndoAndRedoAreTransactions) {
    const test::Folder folder;
    const auto file = folder / "a.kvp";
    ASSERT_EQ(SaveProject(*test::MakeProject(5), file), "");
    OpenedProject opened = OpenProjectFile(file, KeepChanges::InFile);
    ASSERT_NE(opened.project, nullptr) << opened.failure;
    Project& project = *opened.project;
    const auto isKept = [&] { return test::OpenAndDescribe(file) == test::Describe(project.model); };

    EXPECT_EQ(Rename(project, "renamed"), host::NoError);
    EXPECT_TRUE(isKept());
    const auto everyKind = [&] {
        const Model& model = project.model;
        host::PropertyDefinition definition = model.GetDefinitions()[0];
        definition.options.pop_back();
        definition.availability.push_back(model.GetItems()[2].item.guid);
        project.Record({model.GetDefinitions()[0], definition});
        project.Record({{}, host::ClassificationSystem{host::CreateGuid(), "new", "1", {2026, 11, 22}}});
        project.Record({{}, ClassificationItem{{host::CreateGuid(), "x", "y"}, model.GetSystems().back().guid, {}}});
        project.Record({{}, MaterialClassification{{3}, model.GetItems()[0].item.guid}});
        project.Record({{}, MaterialValue{{3}, definition.guid, host::Variant::OfReal(2.5)}});
        project.Record({{}, ElementValue{model.GetElements()[0].guid, definition.guid, host::Variant::OfInteger(4)}});
        host::BuildingMaterial heavier = model.GetBuildingMaterials()[0];
        heavier.densityKgM3 = 9999;
        project.Record({model.GetBuildingMaterials()[0], heavier});
        project.Record({model.GetGroups()[0], {}});
        return host::NoError;
    };
    EXPECT_EQ(project.CallUndoable("every kind", everyKind), host::NoError);
    EXPECT_TRUE(isKept());
    EXPECT_EQ(project.Undo(), host::NoError);
    EXPECT_TRUE(isKept());
    EXPECT_EQ(project.Undo(), host::NoError);
    EXPECT_EQ(project.model.GetGroups()[0].name, "Group");
    EXPECT_TRUE(isKept());
    EXPECT_EQ(project.Redo(), host::NoError);
    EXPECT_EQ(project.Redo(), host::NoError);
    EXPECT_EQ(project.model.GetBuildingMaterials()[0].densityKgM3, 9999);
    EXPECT_TRUE(isKept());
    EXPECT_EQ(project.ListUndoNames(), (std::vector<std::string>{"rename", "every kind"}));
}

TEST(ProjectFile, WhatIsOpenedInMemoryLeavesTheFileAlone) {
    const test::Folder folder;
    const auto file = folder / "a.kvp";
    ASSERT_EQ(SaveProject(*test::MakeProject(5), file), "");
    const std::string before = test::ReadAll(file);
    OpenedProject opened = OpenProjectFile(file, KeepChanges::InMemory);
    ASSERT_NE(opened.project, nullptr);
    EXPECT_EQ(Rename(*opened.project, "renamed"), host::NoError);
    EXPECT_EQ(test::ReadAll(file), before);
}

TEST(ProjectFile, TwoMayHaveItOpen) {
    const test::Folder folder;
    const auto file = folder / "a.kvp";
    ASSERT_EQ(SaveProject(*test::MakeProject(5), file), "");
    OpenedProject first = OpenProjectFile(file, KeepChanges::InFile);
    OpenedProject second = OpenProjectFile(file, KeepChanges::InFile);
    ASSERT_TRUE(first.project && second.project);
    EXPECT_EQ(Rename(*first.project, "one"), host::NoError);
    EXPECT_EQ(Rename(*second.project, "two"), host::NoError);
    EXPECT_NE(test::OpenAndDescribe(file).find(" two\n"), std::string::npos);
}

/// A file as format version 1 was first written: it must open as long as that version is read.
TEST(ProjectFile, VersionOneOpens) {
    const test::Folder folder;
    const auto file = folder / "v1.kvp";
    {
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec(test::ReadAll(KELVARNIX_SOURCE_DIR "/tests/workbench/store/version-1.sql"));
    }
    const OpenedProject opened = OpenProjectFile(file, KeepChanges::InMemory);
    ASSERT_NE(opened.project, nullptr) << opened.failure;
    const Model& model = opened.project->model;
    ASSERT_EQ(model.GetElements().size(), 2U);
    EXPECT_EQ(model.GetElements()[1].name, "Haustür");
    ASSERT_EQ(model.GetComponents(model.GetElements()[0]).size(), 1U);
    EXPECT_EQ(model.GetComponents(model.GetElements()[0])[0].volumeM3, 2.5);
    ASSERT_EQ(model.GetDefinitions().size(), 1U);
    EXPECT_EQ(model.GetDefinitions()[0].defaultValue.integer, 50);
}

} // namespace
