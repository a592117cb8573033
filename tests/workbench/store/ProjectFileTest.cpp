// Project files: what is written comes back, and commands of an opened project are kept as they happen.
#include "workbench/model/ReportLibrary.h"

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
        PlacedObject moved = model.GetPlacedObjects()[0];
        moved.position.x = 99;
        moved.parameters.resize(2);
        project.Record({model.GetPlacedObjects()[0], moved});
        PlacedObject added = moved;
        added.guid = host::CreateGuid();
        project.Record({{}, added});
        project.Record({moved, {}});
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

/// A file as its format version was first written: it must open as long as that version is read.
/// Each version adds its statements to those of the one before.
std::filesystem::path MakeFixture(const test::Folder& folder, const char* name, int version) {
    const auto file = folder / name;
    SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    for (int i = 1; i <= version; ++i)
        database.exec(
            test::ReadAll(KELVARNIX_SOURCE_DIR "/tests/workbench/store/version-" + std::to_string(i) + ".sql"));
    return file;
}

void ExpectFixture(const Model& model) {
    ASSERT_EQ(model.GetElements().size(), 2U);
    EXPECT_EQ(model.GetElements()[1].name, "Haustür");
    ASSERT_EQ(model.GetComponents(model.GetElements()[0]).size(), 1U);
    EXPECT_EQ(model.GetComponents(model.GetElements()[0])[0].volumeM3, 2.5);
    ASSERT_EQ(model.GetDefinitions().size(), 1U);
    EXPECT_EQ(model.GetDefinitions()[0].defaultValue.integer, 50);
}

TEST(ProjectFile, VersionOneOpensWithTheShippedLibraries) {
    const test::Folder folder;
    const auto file = MakeFixture(folder, "v1.kvp", 1);
    const std::string before = test::ReadAll(file);
    OpenedProject opened = OpenProjectFile(file, KeepChanges::InFile);
    ASSERT_NE(opened.project, nullptr) << opened.failure;
    ExpectFixture(opened.project->model);
    ASSERT_EQ(opened.project->model.libraryParts.size(), 2U);
    EXPECT_EQ(opened.project->model.libraryParts[0].fileName, "Kelvarnix Material CO2 Report.gsm");
    EXPECT_EQ(opened.project->model.databases.size(), 3U);
    EXPECT_EQ(test::ReadAll(file), before) << "reading changes nothing";
    PlacedObject object;
    object.guid = host::CreateGuid();
    object.database = opened.project->model.databases[2].guid;
    object.libraryPart = MaterialReportPart;
    ASSERT_EQ(opened.project->CallUndoable("place",
                                           [&] {
                                               opened.project->Record({{}, object});
                                               return host::NoError;
                                           }),
              host::NoError);
    EXPECT_EQ(test::OpenAndDescribe(file), test::Describe(opened.project->model)); // upgraded with the first change
    const auto replaced = MakeFixture(folder, "replaced.kvp", 1);
    const auto other = test::MakeProject(3);
    EXPECT_EQ(SaveProject(*other, replaced), "");
    EXPECT_EQ(test::OpenAndDescribe(replaced), test::Describe(other->model));
}

TEST(ProjectFile, VersionTwoOpens) {
    const test::Folder folder;
    const OpenedProject opened = OpenProjectFile(MakeFixture(folder, "v2.kvp", 2), KeepChanges::InMemory);
    ASSERT_NE(opened.project, nullptr) << opened.failure;
    const Model& model = opened.project->model;
    ExpectFixture(model);
    EXPECT_EQ(model.databases.at(0).name, "Layout 1");
    ASSERT_EQ(model.libraryParts.size(), 1U);
    EXPECT_EQ(model.libraryParts[0].identifier, MaterialReportPart);
    EXPECT_EQ(model.libraryParts[0].parameters.at(1).real, 1);
    ASSERT_EQ(model.favourites.size(), 1U);
    EXPECT_EQ(model.favourites[0].xRatio, 2);
    ASSERT_EQ(model.GetPlacedObjects().size(), 1U);
    EXPECT_EQ(model.GetPlacedObjects()[0].position.y, -3);
    EXPECT_EQ(model.GetPlacedObjects()[0].database, model.databases[0].guid);
    ASSERT_EQ(model.GetPlacedObjects()[0].parameters.size(), 2U);
    EXPECT_EQ(model.GetPlacedObjects()[0].parameters[0].textArray, std::u16string(u"A\u00e9\0B\0\0", 6));
    EXPECT_EQ(model.GetPlacedObjects()[0].parameters[1].realArray, (std::vector<double>{1, -0.5}));
    EXPECT_EQ(model.requests.at(0), (ReservationRequest{"BuildingMaterials", 1}));
}

TEST(ProjectFile, AnotherProcessChangesAreReceived) {
    const test::Folder folder;
    const auto file = folder / "a.kvp";
    ASSERT_EQ(SaveProject(*test::MakeProject(5), file), "");
    OpenedProject first = OpenProjectFile(file, KeepChanges::InFile);
    OpenedProject second = OpenProjectFile(file, KeepChanges::InFile);
    EXPECT_FALSE(first.project->ReceiveChanges());
    EXPECT_EQ(Rename(*first.project, "mine"), host::NoError);
    EXPECT_FALSE(first.project->ReceiveChanges()) << "own changes are no news";
    EXPECT_EQ(first.project->ListUndoNames().size(), 1U);
    EXPECT_TRUE(second.project->ReceiveChanges());
    EXPECT_EQ(second.project->model.GetGroups()[0].name, "mine");
    EXPECT_EQ(Rename(*second.project, "theirs"), host::NoError);
    EXPECT_TRUE(first.project->ReceiveChanges());
    EXPECT_EQ(first.project->model.GetGroups()[0].name, "theirs");
    EXPECT_TRUE(first.project->ListUndoNames().empty());
    EXPECT_FALSE(first.project->ReceiveChanges());
}

} // namespace
