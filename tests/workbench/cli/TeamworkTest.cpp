// A shared project in several processes: this one holds it open with the add-on's windows, others come and go.
#include "support/TestFolder.h"
#include "workbench/store/ProjectFile.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "../host/DrivenAddOn.h"
#include "Program.h"

namespace {

using namespace ResourceIds;
using clitest::Contains;
using clitest::ExpectRefusal;
using clitest::Kelvarnix;
using workbench::KeepChanges;

constexpr std::int16_t Anna = 1, Ben = 2;

class TeamworkTest : public test::DrivenAddOn {
protected:
    void SetUp() override {
        DrivenAddOn::SetUp();
        ASSERT_EQ(workbench::SaveProject(*host.GetProject(), file), "");
        ASSERT_EQ(Kelvarnix({"share", file, "--member", "anna;Anna Größe", "--member", " ben "}).output,
                  "Login  Full name\nanna   Anna Größe\nben\n");
        OpenAs(Anna);
    }
    void OpenAs(std::int16_t user) {
        workbench::OpenedProject opened = workbench::OpenProjectFile(file, KeepChanges::InFile);
        ASSERT_NE(opened.project, nullptr) << opened.failure;
        host.access.userId = user;
        host.OpenProject(std::move(opened.project), host::ProjectEvent::Open);
    }
    /// What another process sees as this member, after pressing the buttons of these sets.
    std::string Other(const char* login, const std::vector<std::string>& sets = {}) {
        std::vector<std::string> arguments = {"teamwork", file, "--as", login};
        for (const std::string& set : sets)
            arguments.insert(arguments.end(), {"--button", set});
        const clitest::Finished finished = Kelvarnix(arguments);
        EXPECT_EQ(finished.code, 0) << finished.errors;
        return finished.output + finished.errors;
    }
    /// A member reserves a set in a process that is then killed.
    void ReserveAndDie(std::int16_t user, const char* set) {
        const pid_t child = fork();
        if (child == 0) {
            workbench::WorkbenchHost other;
            other.access.userId = user;
            other.OpenProject(workbench::OpenProjectFile(file, KeepChanges::InFile).project, host::ProjectEvent::Open);
            if (other.teamwork.Reserve(other.teamwork.FindLockableSet(set), host::HostDialogs::Enabled) == 0)
                raise(SIGKILL);
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
    }
    void Turn() { host.TurnEventLoop(); }
    /// Status text, button text, icon and whether OK can be pressed, of the open materials dialog.
    std::string Control() {
        using namespace BuildingMaterialsItems;
        return Item(TeamworkStatusText).text + "|" + Item(TeamworkButton).text + "|" +
               std::to_string(Item(TeamworkIcon).icon) + "|" + (Item(OkButton).isEnabled ? "OK" : "-");
    }

    support::TestFolder folder;
    const std::string file = folder.Path() + "/shared.kvp";
};

constexpr char Free[] = "Free for reservation|Reserve|32691|-";
constexpr char Mine[] = "Editable|Release|32692|OK";
constexpr char Bens[] = "Reserved by \nben|Request|32690|-";

TEST_F(TeamworkTest, TheControlFollowsBothProcesses) {
    using namespace BuildingMaterialsItems;
    host.dialogManager.alertAnswer = [](const host::Alert&) { return std::int16_t{1}; };
    InDialog(Menus::BuildingMaterials, [&] {
        EXPECT_EQ(Control(), Free);
        EXPECT_TRUE(Item(TeamworkLabel).isVisible);
        EXPECT_TRUE(Press(TeamworkButton));
        EXPECT_EQ(Control(), Mine);
        EXPECT_TRUE(Contains(Other("ben"), "BuildingMaterials             Reserved by Anna Größe"));
        EXPECT_TRUE(Contains(Other("ben", {"BuildingMaterials"}), "Reserved by Anna Größe")); // asks for it
        EXPECT_EQ(Control(), Mine);
        Turn();
        ASSERT_EQ(host.dialogManager.shownAlerts.size(), 1U);
        EXPECT_EQ(host.dialogManager.shownAlerts[0].largeText, "ben asks you to release the building materials.");
        Turn(); // the release is told as any other change
        EXPECT_EQ(Control(), Free);
        EXPECT_TRUE(Contains(Other("ben", {"BuildingMaterials"}), "BuildingMaterials             Editable"));
        EXPECT_EQ(Control(), Free) << "nothing is told before the next turn";
        Turn();
        EXPECT_EQ(Control(), Bens);
        Turn();
        EXPECT_EQ(host.dialogManager.shownAlerts.size(), 1U);
        EXPECT_FALSE(Press(OkButton));
    });
}

TEST_F(TeamworkTest, TheNextHolderWorksOnWhatTheFormerStored) {
    const std::string table = folder.Write("m.csv", "applies_to;name;unit;gwp\nmaterial;Timber;m3;7\n");
    const std::vector<std::string> assess = {"assess", file, "--materials", table, "--save", file, "--quiet"};
    ExpectRefusal(Kelvarnix(assess), 2, file, "anna, ben");
    std::vector<std::string> asBen = assess;
    asBen.insert(asBen.end(), {"--as", "BEN"});
    ExpectRefusal(Kelvarnix(asBen), 5, "reserve them", "");
    Other("ben", {"BuildingMaterials"});
    EXPECT_EQ(Kelvarnix(asBen).code, 0);
    EXPECT_EQ(StoredGWP(test::Timber), "-");
    Other("ben", {"BuildingMaterials"}); // releases
    InDialog(Menus::BuildingMaterials, [&] {
        EXPECT_TRUE(Press(BuildingMaterialsItems::TeamworkButton));
        EXPECT_EQ(Control(), Mine);
    });
    EXPECT_EQ(StoredGWP(test::Timber), "7") << "reserving receives the others' changes";
    EXPECT_EQ(CountSteps(), 0U);
    InDialog(Menus::BuildingMaterials, [&] {
        Select(BuildingMaterialsItems::MaterialList, {1});
        Select(BuildingMaterialsItems::PhaseList, {1});
        TypeIntoCell(BuildingMaterialsItems::PhaseList, 2, "3");
        EXPECT_TRUE(Press(BuildingMaterialsItems::OkButton));
    });
    const workbench::OpenedProject other = workbench::OpenProjectFile(file, KeepChanges::InMemory);
    EXPECT_EQ(other.project->model.FindMaterialValues(test::Concrete)->begin()->second.text, "A1-A3=3");
}

TEST_F(TeamworkTest, AMemberWhoseProcessDiedIsNamedAndCanBeAsked) {
    ReserveAndDie(Ben, host::BuildingMaterialsSet);
    InDialog(Menus::BuildingMaterials, [&] {
        EXPECT_EQ(Control(), Free);
        Turn();
        EXPECT_EQ(Control(), Bens);
        Press(BuildingMaterialsItems::TeamworkButton);
        EXPECT_EQ(Control(), Bens);
    });
    EXPECT_TRUE(Contains(Other("ben"), "note: Anna Größe asks you to release the building materials."));
    EXPECT_TRUE(Contains(Other("ben", {"BuildingMaterials"}), "Free for reservation"));
}

TEST_F(TeamworkTest, SettingsCannotBeChangedWithoutTheReservation) {
    TogglePalette();
    dialog = Palette()->id;
    const std::string before = Default(lca::PropertyKey::Contribution).text;
    EXPECT_EQ(PaletteItem(PaletteItems::SettingsButton).icon, Icons::SettingsFreeForReservation);
    Select(PaletteItems::Table, {4});
    EXPECT_FALSE(TypeIntoCell(PaletteItems::Table, 3, "40"));
    host.dialogManager.ClickCell(dialog, PaletteItems::Table, 6, 4);
    EXPECT_EQ(Default(lca::PropertyKey::Contribution).text, before);
    // A rebuild of the table leaves no editor enabled; and a host that lets one be typed into loses nothing.
    Select(PaletteItems::Table, {4});
    EXPECT_TRUE(Press(PaletteItems::UpdateButton));
    EXPECT_FALSE(TypeIntoCell(PaletteItems::Table, 3, "40"));
    EXPECT_TRUE(report.empty());
    PaletteItem(PaletteItems::ServiceLifeEdit).isEnabled = true;
    int commands = 0;
    host.refusals.rule = [&](const std::string& operation, const host::Guid&) {
        if (operation == "UndoableCommands.Call") ++commands;
        return host::NoError;
    };
    EXPECT_TRUE(TypeIntoCell(PaletteItems::Table, 3, "40"));
    EXPECT_EQ(commands, 0) << "without the right nothing is tried";
    host.refusals.rule = nullptr;
    EXPECT_EQ(Cell(4, 3), "25.00");
    EXPECT_EQ(PaletteItem(PaletteItems::ServiceLifeEdit).text, "25");
    EXPECT_EQ(report.size(), 1U);
    report.clear();
    const host::Guid set = host.teamwork.FindLockableSet(host::ClassificationsAndPropertiesSet);
    ASSERT_EQ(host.teamwork.Reserve(set, host::HostDialogs::Enabled), host::NoError);
    Turn(); // own changes are told too
    EXPECT_EQ(PaletteItem(PaletteItems::SettingsButton).icon, Icons::SettingsEditable);
    EXPECT_TRUE(TypeIntoCell(PaletteItems::Table, 3, "40"));
    EXPECT_EQ(Cell(4, 3), "40.00");
    EXPECT_TRUE(report.empty()) << report.front();
}

TEST_F(TeamworkTest, RefusalsAndUnknownHolders) {
    host::Teamwork& teamwork = host.teamwork;
    const host::Guid set = teamwork.FindLockableSet(host::BuildingMaterialsSet);
    constexpr auto Dialogs = host::HostDialogs::Enabled;
    EXPECT_EQ(teamwork.Release(set, Dialogs), host::Errors::NoAccessRight);
    EXPECT_EQ(teamwork.Reserve({}, Dialogs), host::Errors::BadId);
    EXPECT_EQ(host.commands.Call("x", [&] { return teamwork.Reserve(set, Dialogs); }), host::Errors::RefusedCommand);
    host.teamwork.isServerReachable = false;
    InDialog(Menus::BuildingMaterials, [&] {
        Press(BuildingMaterialsItems::TeamworkButton);
        EXPECT_EQ(Control(), Free);
    });
    EXPECT_NE(teamwork.Reserve(set, Dialogs), host::NoError);
    host.teamwork.isServerReachable = true;
    Other("ben", {"BuildingMaterials"});
    Turn();
    EXPECT_EQ(teamwork.Reserve(set, host::HostDialogs::Disabled), host::Errors::NoAccessRight);
    EXPECT_TRUE(Model().requests.empty());
    Model().members[1].fullName = "Ben \"B\" \xD7\x91\xD7\x9F \xF0\x9F\x8F\xA0";
    InDialog(Menus::BuildingMaterials, [&] {
        EXPECT_EQ(Item(BuildingMaterialsItems::TeamworkStatusText).text,
                  "Reserved by \nBen \"B\" \xD7\x91\xD7\x9F \xF0\x9F\x8F\xA0");
    });
    Model().members.pop_back();
    InDialog(Menus::BuildingMaterials,
             [&] { EXPECT_EQ(Item(BuildingMaterialsItems::TeamworkStatusText).text, "Reserved by \n???"); });
}

TEST_F(TeamworkTest, TwoProcessesNeverBothHoldASet) {
    const auto button = [&](const char* login) { return Other(login, {"BuildingMaterials"}); };
    for (int round = 0; round < 5; ++round) {
        std::string anna, ben;
        std::thread first([&] { anna = button("anna"); });
        std::thread second([&] { ben = button("ben"); });
        first.join();
        second.join();
        const bool annaHolds = Contains(anna, "Editable"), benHolds = Contains(ben, "Editable");
        EXPECT_NE(annaHolds, benHolds) << anna << ben;
        button(annaHolds ? "anna" : "ben"); // releases
    }
}

TEST_F(TeamworkTest, SharingChecksItsArguments) {
    const std::string plain = folder.Path() + "/plain.kvp";
    ASSERT_EQ(workbench::SaveProject(*workbench::CreateProject(), plain), "");
    const std::string before = support::ContentOf(plain);
    const struct {
        std::vector<std::string> members;
        const char* says;
    } cases[] = {{{";Nobody"}, "login;Full Name"},
                 {{"a;b;c"}, "one \";\""},
                 {{"a;A", "A;b"}, "a member of this login"},
                 {{"\xFF;x"}, "UTF-8"}};
    for (const auto& one : cases) {
        std::vector<std::string> arguments = {"share", plain};
        for (const std::string& member : one.members)
            arguments.insert(arguments.end(), {"--member", member});
        ExpectRefusal(Kelvarnix(arguments), 2, "--member", one.says);
        EXPECT_EQ(support::ContentOf(plain), before) << one.says;
    }
    ExpectRefusal(Kelvarnix({"share", file, "--member", "ANNA;x"}), 2, "ANNA", "a member of this login");
    ExpectRefusal(Kelvarnix({"teamwork", plain}), 2, plain, "not shared");
    ExpectRefusal(Kelvarnix({"assess", plain, "--as", "anna"}), 2, plain, "not shared");
    ExpectRefusal(Kelvarnix({"teamwork", file, "--as", "eve", "--button", "BuildingMaterials"}), 2, "eve", "anna, ben");
    ExpectRefusal(Kelvarnix({"teamwork", file, "--as", "ben", "--button", "Layers"}), 2, "Layers", "BuildingMaterials");
    EXPECT_EQ(Kelvarnix({"share", file, "--member", "eve;Eve"}).code, 0);
    EXPECT_TRUE(Contains(Other("eve", {"BuildingMaterials"}), "Editable"));
}

/// What another member stored before this one gained the reservation stays, whatever window was open meanwhile.
TEST_F(TeamworkTest, WhatAnotherStoredSurvivesTheNextOk) {
    const auto asBen = [&](const std::string& set, std::vector<std::string> change) {
        Other("ben", {set});
        change.insert(change.begin(), {"assess", file});
        change.insert(change.end(), {"--save", file, "--as", "ben", "--quiet"});
        const clitest::Finished finished = Kelvarnix(change);
        EXPECT_EQ(finished.code, 0) << finished.errors;
        Other("ben", {set}); // releases
        Turn();
    };
    const std::string properties = host::ClassificationsAndPropertiesSet, materials = host::BuildingMaterialsSet;
    TogglePalette();
    InDialog(Menus::ProjectSettings, [&] {
        using namespace ProjectSettingsItems;
        Type(GrossFloorAreaEdit, "123");
        asBen(properties, {"--set", "SERVICELIFE=80", "--set", "OPERATIONAL_EMISSION=9", "--set", "FLOORAREA=7"});
        EXPECT_EQ(Item(ServiceLifeEdit).text, "50");
        EXPECT_TRUE(Press(TeamworkButton));
        EXPECT_EQ(Item(ServiceLifeEdit).text, "80");
        EXPECT_EQ(Item(GrossFloorAreaEdit).text, "123") << "what was typed stays";
        Type(ReferenceFloorAreaEdit, "45");
        EXPECT_TRUE(Press(OkButton));
    });
    EXPECT_EQ(Default(lca::PropertyKey::ServiceLife).integer, 80);
    EXPECT_EQ(Default(lca::PropertyKey::OperationalEmission).real, 9);
    EXPECT_EQ(Default(lca::PropertyKey::GrossFloorArea).real, 123);
    EXPECT_EQ(Default(lca::PropertyKey::ReferenceFloorArea).real, 45);
    Other("anna", {properties}); // this member releases in another process
    Turn();

    const std::string table = folder.Write("m.csv", "applies_to;name;unit;gwp\nmaterial;Timber;m3;777\n");
    InDialog(Menus::BuildingMaterials, [&] {
        using namespace BuildingMaterialsItems;
        const std::vector<std::string> names = Column(MaterialList, 2);
        Select(MaterialList,
               {static_cast<std::int32_t>(std::find(names.begin(), names.end(), "Timber") - names.begin() + 1)});
        Type(ServiceLifeEdit, "33");
        asBen(materials, {"--materials", table});
        EXPECT_TRUE(Press(TeamworkButton));
        EXPECT_EQ(Column(PhaseList, 2).front(), "777.00");
        EXPECT_EQ(Item(ServiceLifeEdit).text, "33");
        EXPECT_TRUE(Press(OkButton));
    });
    EXPECT_EQ(StoredGWP(test::Timber), "777");
    EXPECT_EQ(StoredValue(test::Timber, lca::PropertyKey::ServiceYear)->integer, 33);

    InDialog(Menus::ProjectSettings, [&] {
        asBen(properties, {"--set", "SERVICELIFE=90", "--set", "CONTRIBUTION=Inventory_contribution=1;Inventory=7"});
        Press(ProjectSettingsItems::TeamworkButton);
        Press(ProjectSettingsItems::CancelButton);
    });
    host.dialogManager.ClickCell(Palette()->id, PaletteItems::Table, 6, 4);
    EXPECT_EQ(Default(lca::PropertyKey::ServiceLife).integer, 90);
    const std::string contribution = Default(lca::PropertyKey::Contribution).text;
    EXPECT_NE(contribution.find("Inventory_contribution=0"), std::string::npos) << contribution;
    EXPECT_NE(contribution.find("Inventory=7"), std::string::npos) << contribution;
    EXPECT_TRUE(report.empty()) << report.front();
}

} // namespace
