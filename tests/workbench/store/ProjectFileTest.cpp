// Project files: what is written comes back, and commands of an opened project are kept as they happen.
#include "StoreTestSupport.h"

#include <algorithm>

namespace {

using namespace workbench;
using test::Describe;

class ProjectFile : public test::Store {};

/// Files as their format version was first written: they must open as long as that version is read.
TEST_F(ProjectFile, FilesOfEveryVersionOpen) {
    const std::string whole = Read(MakeWhole("whole.kvp"));
    support::ExpectApproved("workbench/store/expected/every-kind.txt", whole);
    const std::vector<std::vector<std::string>> formers = {{"version-1.sql"},
                                                           {"version-1.sql", "version-2.sql", "every-kind.sql"}};
    for (const std::vector<std::string>& scripts : formers) {
        const std::string former = MakeFile("former.kvp", scripts), before = support::ContentOf(former);
        auto opened = Open(former, KeepChanges::InFile);
        ASSERT_EQ(opened.GetText(), "");
        if (scripts.size() == 1)
            for (DatabaseRow& database : opened.Get()->model.databases)
                database.guid = {}; // made anew
        support::ExpectApproved(scripts.size() == 1 ? "workbench/store/expected/version-1.txt"
                                                    : "workbench/store/expected/version-2.txt",
                                Describe(opened.Get()->model));
        EXPECT_EQ(support::ContentOf(former), before) << "reading changes nothing";
        // The first change brings the file to the present form.
        opened = Open(former, KeepChanges::InFile);
        EXPECT_EQ(Rename(*opened.Get(), "renamed"), host::NoError);
        EXPECT_EQ(Read(former), Describe(opened.Get()->model));
        const std::string replaced = MakeFile("replaced.kvp", scripts);
        EXPECT_EQ(SaveProject(*Open(folder / "whole.kvp").Get(), replaced).GetText(), "");
        EXPECT_EQ(Read(replaced), whole);
    }
}

TEST_F(ProjectFile, EverythingComesBack) {
    const std::string other = folder / "Größe \xE5\xAE\xB6.kvp";
    for (const int walls : {0, 1, 50}) {
        const auto project = MakeProject(walls);
        for (const std::string& name : {file, other}) {
            ASSERT_EQ(SaveProject(*project, name).GetText(), "");
            EXPECT_EQ(Read(name), Describe(project->model)) << walls;
        }
    }
    EXPECT_EQ(CountFiles(), 2U) << "no unfinished file, no journal";
}

/// Gives the second row of every kind all that the first one has, and adds and replaces values.
host::ErrorCode ChangeEveryKind(Project& project) {
    const Model model = project.model;
    const auto change = [&](const auto& rows, auto key) {
        auto changed = rows.at(0);
        key(changed) = key(rows.at(1));
        project.Record({rows.at(1), changed});
    };
    const auto guid = [](auto& row) -> auto& {
        return row.guid;
    };
    change(model.GetGroups(), guid);
    change(model.GetDefinitions(), guid);
    change(model.GetSystems(), guid);
    change(
        model.GetItems(), [](auto& row) -> auto& { return row.item.guid; });
    change(
        model.GetBuildingMaterials(), [](auto& row) -> auto& { return row.index; });
    change(model.GetPlacedObjects(), guid);
    const host::Guid definition = model.GetDefinitions()[0].guid, element = model.GetElements()[0].guid;
    for (const double value : {4.5, 5.5}) {
        project.Record({{}, MaterialValue{{1}, definition, host::Variant::OfReal(value)}});
        project.Record({{}, ElementValue{element, definition, host::Variant::OfReal(value)}});
    }
    project.Record({{}, MaterialClassification{{2}, model.GetItems()[0].item.guid}});
    return host::NoError;
}

/// Removes every row that a command can remove.
host::ErrorCode RemoveEveryKind(Project& project) {
    const Model model = project.model;
    const auto remove = [&](const auto& rows) {
        for (const auto& row : rows)
            project.Record({row, {}});
    };
    remove(model.GetPlacedObjects());
    remove(model.GetMaterialClassifications());
    remove(model.GetDefinitions());
    remove(model.GetGroups());
    remove(model.GetItems());
    remove(model.GetSystems());
    for (const auto& [material, values] : model.GetMaterialValues())
        for (const auto& [definition, value] : values)
            project.Record({MaterialValue{material, definition, value}, {}});
    for (const auto& [element, values] : model.GetElementValues())
        for (const auto& [definition, value] : values)
            project.Record({ElementValue{model.GetElements()[element].guid, definition, value}, {}});
    return host::NoError;
}

TEST_F(ProjectFile, CommandsUndoAndRedoAreTransactions) {
    auto opened = Open(MakeWhole("a.kvp"), KeepChanges::InFile);
    ASSERT_EQ(opened.GetText(), "");
    Project& project = *opened.Get();
    std::vector<std::string> states = {Read(file)};
    for (const auto& work : {ChangeEveryKind, RemoveEveryKind}) {
        EXPECT_EQ(project.CallUndoable("work", [&] { return work(project); }), host::NoError);
        states.push_back(Describe(project.model));
        EXPECT_EQ(Read(file), states.back());
    }
    EXPECT_EQ(states[2].find("group"), std::string::npos);
    // What is put back stands last.
    const auto sorted = [](std::string text) {
        std::sort(text.begin(), text.end());
        return text;
    };
    for (const std::size_t state : {1U, 0U, 1U}) {
        EXPECT_EQ(project.ListUndoNames().empty() ? project.Redo() : project.Undo(), host::NoError);
        EXPECT_EQ(sorted(Read(file)), sorted(states[state]));
        EXPECT_EQ(sorted(Describe(project.model)), sorted(states[state]));
    }
    EXPECT_EQ(project.ListUndoNames(), std::vector<std::string>{"work"});
    // A project that is opened in memory leaves its file alone.
    const std::string before = support::ContentOf(file);
    EXPECT_EQ(Rename(*Open(file).Get(), "renamed"), host::NoError);
    EXPECT_EQ(support::ContentOf(file), before);
}

TEST_F(ProjectFile, AnotherProcessChangesAreReceived) {
    MakeWhole("a.kvp");
    auto first = Open(file, KeepChanges::InFile), second = Open(file, KeepChanges::InFile);
    Project &mine = *first.Get(), &theirs = *second.Get();
    EXPECT_FALSE(mine.ReceiveChanges());
    EXPECT_EQ(Rename(mine, "mine"), host::NoError);
    EXPECT_FALSE(mine.ReceiveChanges()) << "own changes are no news";
    EXPECT_EQ(mine.ListUndoNames().size(), 1U);
    EXPECT_TRUE(theirs.ReceiveChanges());
    EXPECT_EQ(theirs.model.GetGroups()[0].name, "mine");
    EXPECT_EQ(Rename(theirs, "theirs"), host::NoError);
    EXPECT_TRUE(mine.ReceiveChanges());
    EXPECT_EQ(Describe(mine.model), Describe(theirs.model));
    EXPECT_TRUE(mine.ListUndoNames().empty());
    EXPECT_FALSE(mine.ReceiveChanges());
    // Who holds what is decided on the file's present state, and a change that is refused there changes nothing.
    const auto give = [](Project& project, std::int16_t user) {
        return project.ChangeTeamwork([&] {
            const bool isFirst = project.model.reservations.size() == 1;
            if (isFirst) project.model.reservations = {{"BuildingMaterials", user}, {"Other", user}};
            return isFirst;
        });
    };
    EXPECT_FALSE(give(theirs, 1).HasFailed());
    EXPECT_FALSE(give(mine, 2).HasFailed());
    EXPECT_EQ(Read(file), Describe(theirs.model));
    EXPECT_EQ(Describe(mine.model), Describe(theirs.model));
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec("DROP TABLE reservations");
    EXPECT_TRUE(give(mine, 2).HasFailed());
    EXPECT_EQ(mine.model.members.size(), 2U) << "who was known stays";
}

} // namespace
