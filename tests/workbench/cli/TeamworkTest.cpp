// A shared project in several processes: this one holds it open with the add-on's windows, others come and go.
#include "support/Answers.h"
#include "support/TestFolder.h"
#include "workbench/store/ProjectFile.h"

#include "../host/DrivenAddOn.h"
#include "Program.h"

namespace {

using namespace ResourceIds;
using workbench::KeepChanges;

const std::string Properties = host::ClassificationsAndPropertiesSet, Materials = host::BuildingMaterialsSet;

/// What happens and what can be seen afterwards goes into one text.
class TeamworkTest : public test::DrivenAddOn {
protected:
    void SetUp() override {
        DrivenAddOn::SetUp();
        ASSERT_EQ(workbench::SaveProject(*host.GetProject(), folder / "shared.kvp").GetText(), "");
        Other("share shared.kvp --member 'anna;Anna Größe' --member ben");
        auto opened = workbench::OpenProjectFile(folder / "shared.kvp", KeepChanges::InFile);
        ASSERT_EQ(opened.GetText(), "");
        host.access.userId = 1;
        host.OpenProject(opened.Take(), host::ProjectEvent::Open);
        host.dialogManager.alertAnswer = [&](const host::Alert& alert) {
            Say("  alert " + std::to_string(static_cast<int>(alert.type)) + ": " + alert.largeText);
            return std::int16_t{1};
        };
    }
    void TearDown() override {
        for (const std::string& line : report)
            Say("  report: " + line);
        const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
        support::ExpectApproved("workbench/cli/expected/windows-" + test + ".txt", log);
    }
    void Say(const std::string& line) { log += line + "\n"; }
    /// A command of another process, and its answer.
    void Other(const std::string& arguments) {
        Say("$ kelvarnix " + arguments);
        log += clitest::Shell(folder.GetPath(), "kelvarnix " + arguments).output;
    }
    void PressAsBen(const std::string& set) { Other("teamwork shared.kvp --as ben --button " + set); }
    /// Ben reserves, changes and releases.
    void ChangeAsBen(const std::string& set, const std::string& change) {
        PressAsBen(set);
        Other("assess shared.kvp --save shared.kvp --as ben --quiet " + change);
        PressAsBen(set);
    }
    void Turn() {
        Say("turn");
        host.TurnEventLoop();
    }
    void PressHere(const std::string& name, std::int16_t item) { Say(name + (Press(item) ? " pressed" : " disabled")); }
    /// Status text, button, icon and whether OK can be pressed, of the open materials dialog.
    void ShowControl() {
        using namespace BuildingMaterialsItems;
        Say("  here: " + support::Escape(Item(TeamworkStatusText).text) + "|" + Item(TeamworkButton).text + "|" +
            std::to_string(Item(TeamworkIcon).icon) + "|" + (Item(OkButton).isEnabled ? "OK" : "-"));
    }
    void ShowRecord() {
        std::string line = "  record:";
        for (const auto key :
             {lca::PropertyKey::ServiceLife, lca::PropertyKey::OperationalEmission, lca::PropertyKey::GrossFloorArea,
              lca::PropertyKey::ReferenceFloorArea, lca::PropertyKey::GWPStandards,
              lca::PropertyKey::ElectricitySourceFactor, lca::PropertyKey::Contribution}) {
            const host::Variant value = Default(key);
            line +=
                " " + (value.type == host::ValueType::String ? value.text : std::to_string(value.integer + value.real));
        }
        Say(line);
    }
    void ShowPalette() {
        Say("  palette: " + Cell(4, 3) + "|" + PaletteItem(PaletteItems::ServiceLifeEdit).text + "|" +
            std::to_string(PaletteItem(PaletteItems::SettingsButton).icon));
    }

    support::TestFolder folder;
    std::string log;
};

TEST_F(TeamworkTest, Materials) {
    using namespace BuildingMaterialsItems;
    folder.Write("m.csv", "applies_to;name;unit;gwp\nmaterial;Timber;m3;7\n");
    InDialog(Menus::BuildingMaterials, [&] {
        ShowControl();
        PressHere("teamwork", TeamworkButton);
        ShowControl();
        PressAsBen(::Materials); // asks for it
        ShowControl();
        Turn();
        Turn(); // the release is told as any other change
        ShowControl();
        PressAsBen(::Materials);
        ShowControl();
        Turn();
        ShowControl();
        PressHere("OK", OkButton);
        PressHere("teamwork", TeamworkButton);
        ShowControl();
    });
    Other("assess shared.kvp --materials m.csv --save shared.kvp --quiet --as ben");
    PressAsBen(::Materials);
    Say("  Timber: " + StoredGWP(test::Timber));
    InDialog(Menus::BuildingMaterials, [&] {
        Select(MaterialList, {3});
        Type(ServiceLifeEdit, "33");
        PressHere("teamwork", TeamworkButton);
        ShowControl();
        Say("  Timber: " + StoredGWP(test::Timber) + ", shown " + Column(PhaseList, 2).front() + ", " +
            Item(ServiceLifeEdit).text + " years");
        Select(MaterialList, {1});
        Select(PhaseList, {1});
        TypeIntoCell(PhaseList, 2, "3");
        PressHere("OK", OkButton);
    });
    Other("materials shared.kvp");
    // Of a holder whom nobody knows, and without a server.
    Model().reservations = {{::Materials, 7}};
    InDialog(Menus::BuildingMaterials, [&] { ShowControl(); });
    Model().reservations.clear();
    host.teamwork.isServerReachable = false;
    InDialog(Menus::BuildingMaterials, [&] {
        PressHere("teamwork", TeamworkButton);
        ShowControl();
    });
}

TEST_F(TeamworkTest, Settings) {
    using namespace ProjectSettingsItems;
    TogglePalette();
    dialog = Palette()->id;
    ShowPalette();
    host.pictures.temporaryFolder = "/none";
    host.userInput.fileAnswer = [](const host::SaveFileQuestion&) {
        return std::optional<std::string>("/none/a.xlsx");
    };
    PressHere("report", PaletteItems::ReportButton);
    // Without the right nothing can be typed, also after a rebuild of the table; and a host that lets something be
    // typed into loses nothing.
    for (const bool isForced : {false, true}) {
        PressHere("update", PaletteItems::UpdateButton);
        PaletteItem(PaletteItems::ServiceLifeEdit).isEnabled = isForced;
        Select(PaletteItems::Table, {4});
        Say(TypeIntoCell(PaletteItems::Table, 3, "40") ? "typed" : "not typed");
        host.dialogManager.ClickCell(dialog, PaletteItems::Table, 6, 4);
        ShowPalette();
        ShowRecord();
    }
    InDialog(Menus::ProjectSettings, [&] {
        Type(GrossFloorAreaEdit, "123");
        ChangeAsBen(Properties, "--set SERVICELIFE=80 --set OPERATIONAL_EMISSION=9 --set FLOORAREA=7");
        Turn();
        Say("  years: " + Item(ServiceLifeEdit).text);
        PressHere("teamwork", TeamworkButton);
        Say("  years: " + Item(ServiceLifeEdit).text + ", area: " + Item(GrossFloorAreaEdit).text);
        Type(ReferenceFloorAreaEdit, "45");
        PressHere("OK", OkButton);
    });
    ShowRecord();
    Turn();
    dialog = Palette()->id;
    Select(PaletteItems::Table, {4});
    Say(TypeIntoCell(PaletteItems::Table, 3, "40") ? "typed" : "not typed");
    ShowPalette();
    Other("teamwork shared.kvp --as anna --button " + Properties); // this member releases in another process
    Turn();
    InDialog(Menus::ProjectSettings, [&] {
        ChangeAsBen(Properties, "--set SERVICELIFE=90 --set GWP-STANDARDS=Code=7 --set ELECTRICITY_S_FACTOR=2 "
                                "--set 'CONTRIBUTION=Inventory_contribution=1;Inventory=7'");
        PressHere("teamwork", TeamworkButton);
        PressHere("cancel", CancelButton);
    });
    host.dialogManager.ClickCell(Palette()->id, PaletteItems::Table, 6, 4);
    ShowRecord();
    Say("another project, a new one");
    host.OpenProject(test::MakeBuilding(), host::ProjectEvent::NewAndReset);
    ShowRecord();
}

} // namespace
