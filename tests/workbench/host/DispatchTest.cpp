// Commands and events on their way from the workbench into its add-ons: windows, the order of events, several add-ons,
// and the web page.
#include "support/FakeOpener.h"

#include "DrivenAddOn.h"

namespace {

using namespace ResourceIds;
using host::DatabaseType;
using host::ProjectEvent;
using Phase = workbench::RegistrationRole::Phase;

class DispatchTest : public test::DrivenAddOn {
protected:
    /// The project's first database of this type.
    host::Database Find(DatabaseType type) {
        std::vector<host::Database> databases;
        EXPECT_EQ(host.databases.ListDatabases(type, databases), host::NoError);
        return databases.empty() ? host::Database{type, {}, {}} : databases.front();
    }
};

TEST_F(DispatchTest, SwitchingWindowsTellsThePalette) {
    TogglePalette();
    const struct {
        host::Database window;
        bool canPlace;
    } cases[] = {{{DatabaseType::Model3D, {}, {}}, false}, {Find(DatabaseType::Section), true},
                 {Find(DatabaseType::Elevation), true},    {{DatabaseType::Model3D, {}, {}}, false},
                 {Find(DatabaseType::Layout), true},       {{DatabaseType::FloorPlan, {}, {}}, true}};
    for (const auto& one : cases) {
        ASSERT_EQ(host.SwitchWindow(one.window), host::NoError);
        EXPECT_EQ(PaletteItem(PaletteItems::PlaceButton).isEnabled, one.canPlace);
        EXPECT_EQ(host.databases.GetCurrent().id, one.window.id);
        EXPECT_EQ(host.databases.frontWindow.id, one.window.id);
    }
    EXPECT_EQ(host.SwitchWindow({DatabaseType::Section, {}, {}}), host::Errors::BadDatabase);
    EXPECT_EQ(host.databases.frontWindow.type, DatabaseType::FloorPlan);
}

/// What the host does with a palette by itself changes nothing of what the add-on has set.
TEST_F(DispatchTest, TheHostHidesAndDisablesThePaletteByItself) {
    const host::Guid guid = host::ParseGuid("{E2ADBC68-AD7B-4AFF-9115-86328A1FBA94}");
    EXPECT_EQ(host.dialogManager.RequestPalette(guid), host::NoError); // was open when the host was left
    ASSERT_NE(Palette(), nullptr);
    EXPECT_EQ(MenuText(), "Hide Palette");
    const host::DialogId palette = Palette()->id;
    const auto update = [&] { return host.dialogManager.Press(palette, PaletteItems::UpdateButton); };
    host.dialogManager.ShowPalettes(false);
    EXPECT_FALSE(update());
    PaletteItem(PaletteItems::PieChart).drawing.clear();
    InDialog(Menus::ProjectSettings, [&] { Press(ProjectSettingsItems::OkButton); });
    EXPECT_TRUE(PaletteItem(PaletteItems::PieChart).drawing.empty()); // nobody could see it
    host.dialogManager.ShowPalettes(true);
    EXPECT_FALSE(PaletteItem(PaletteItems::PieChart).drawing.empty());
    EXPECT_TRUE(update());

    bool isPicking = false;
    host.userInput.pointAnswer = [&](const std::string&) {
        isPicking = true;
        EXPECT_FALSE(update());
        return std::optional<host::Point>();
    };
    EXPECT_TRUE(host.dialogManager.Press(palette, PaletteItems::PlaceButton));
    EXPECT_TRUE(isPicking);
    EXPECT_TRUE(update());
    EXPECT_FALSE(host.dialogManager.Press(palette, PaletteItems::HiddenIcon)); // the add-on's own hiding stays
}

/// A host that was left with the palette open asks for it before it opens a project.
TEST_F(DispatchTest, ThePaletteOpensBeforeAProject) {
    module.Unload();
    workbench::WorkbenchHost early;
    early.dialogManager.reportSink = [this](const std::string& line) { report.push_back(line); };
    workbench::Module addOn{early};
    ASSERT_EQ(addOn.Load(KELVARNIX_BIN_DIR "/Kelvarnix.apx"), "");
    ASSERT_EQ(addOn.Start(), "");
    EXPECT_EQ(early.dialogManager.RequestPalette(host::ParseGuid("{E2ADBC68-AD7B-4AFF-9115-86328A1FBA94}")),
              host::NoError);
    const workbench::DialogState* palette = early.openDialogs.FindByResource(PaletteDialog);
    ASSERT_NE(palette, nullptr);
    EXPECT_EQ(early.listCells.ReadText(palette->id, PaletteItems::Table, 9, 2), "TOTAL");
    // 0x810600CB: there is no project.
    EXPECT_EQ(report, std::vector<std::string>{"GWP calculation: ended with host error 0x810600CB"});
    early.OpenProject(test::MakeBuilding(), ProjectEvent::Open);
    EXPECT_TRUE(early.dialogManager.Press(palette->id, PaletteItems::UpdateButton));
    EXPECT_EQ(report.size(), 1U);
}

TEST_F(DispatchTest, NothingOfTheAddOnIsLeftOpen) {
    TogglePalette();
    EXPECT_EQ(host.dialogManager.CountPalettes(), 1U);
    module.Unload();
    EXPECT_TRUE(host.openDialogs.List().empty());
    EXPECT_EQ(host.dialogManager.CountPalettes(), 0U);
    EXPECT_TRUE(report.empty());
    ASSERT_EQ(module.Load(KELVARNIX_BIN_DIR "/Kelvarnix.apx"), "");
    ASSERT_EQ(module.Start(), "");
    TogglePalette();
    EXPECT_NE(Palette(), nullptr);
}

/// Opening, placing and giving back with a host that refuses: nothing happens, and one line says so where the user did
/// not just cancel.
TEST_F(DispatchTest, WhatTheHostDoesNotOpenIsSaidOnce) {
    host.userInput.pointAnswer = [](const std::string&) { return std::optional(host::Point{1, 2}); };
    const auto choose = [&](std::int16_t menu) { EXPECT_EQ(host.registration.ChooseMenu(menu, 1), host::NoError); };
    const auto place = [&] {
        choose(Menus::Palette);
        EXPECT_TRUE(host.dialogManager.Press(Palette()->id, PaletteItems::PlaceButton));
        choose(Menus::Palette);
    };
    const struct {
        const char* operation;
        std::function<void()> action;
        std::vector<std::string> lines;
    } cases[] = {
        {"Dialogs.OpenPalette", [&] { choose(Menus::Palette); }, {"opening the palette: the host did not open it"}},
        {"Dialogs.RunModal", [&] { choose(Menus::ProjectSettings); }, {"opening a dialog: the host did not open it"}},
        {"UserInput.PickPoint", place, {}},
        {"PlacedObjects.Create", place, {"placing the report object: ended with host error 0x81060001"}},
        {"Dialogs.UnregisterPalette",
         [&] { module.Unload(); },
         {"giving back a palette: ended with host error 0x81060001"}},
    };
    for (const auto& one : cases) {
        report.clear();
        host.refusals.rule = [&](const std::string& operation, const host::Guid&) {
            return operation == one.operation ? host::Errors::General : host::NoError;
        };
        one.action();
        EXPECT_EQ(report, one.lines) << one.operation;
        EXPECT_EQ(Palette(), nullptr) << one.operation;
        EXPECT_TRUE(Model().GetPlacedObjects().empty()) << one.operation;
    }
    EXPECT_EQ(host.dialogManager.CountPalettes(), 1U); // what nobody gave back stays with the host
}

TEST_F(DispatchTest, InfoOpensTheProductsAddress) {
    const support::FakeOpener opener;
    EXPECT_EQ(host.registration.ChooseMenu(Menus::Information, 2), host::NoError); // no command
    EXPECT_EQ(host.registration.ChooseMenu(Menus::Information, 1), host::NoError);
    EXPECT_EQ(opener.WaitForWords(), "https://kelvarnix.example/|done");
    EXPECT_TRUE(report.empty());
}

std::vector<std::string> told; ///< by the add-ons below; handlers are plain functions

template <char AddOn>
host::ErrorCode TellEvent(ProjectEvent event, std::int32_t) {
    told.push_back(AddOn + std::to_string(static_cast<std::uint32_t>(event)));
    return AddOn == 'A' ? 7 : 8;
}

template <char AddOn>
host::ErrorCode TellReservation(const host::Guid&, std::int16_t owner) {
    told.push_back(AddOn + std::string("r") + std::to_string(owner));
    return 0;
}

TEST(Registration, EveryAddOnIsToldWhatItAskedFor) {
    constexpr host::ModuleId A = {1, 0}, B = {2, 0};
    host::Guid set;
    set.bytes[0] = 1;
    workbench::WorkbenchHost host;
    workbench::RegistrationRole& registration = host.registration;
    const auto command = [](const workbench::CommandData&, bool) { return host::ErrorCode{5}; };
    const auto settings = [](host::ObjectState&, bool) { return host::NoError; };
    const auto call = [&](const host::ModuleId& addOn, const char(&code)[5], std::int32_t version) {
        return host.addOnCommands.Call(addOn, host::CommandCode(code), version, {}, true);
    };
    EXPECT_EQ(registration.InstallProjectEventHandler(1, TellEvent<'A'>), host::Errors::RefusedCommand);
    registration.SetPhase(Phase::Registering, A);
    EXPECT_EQ(registration.RegisterMenu(100, 200), host::NoError);
    EXPECT_EQ(registration.RegisterSupportedCommand(host::CommandCode("COMM"), 1), host::NoError);
    EXPECT_EQ(registration.RegisterSupportedCommand(host::CommandCode("COMM"), 2), host::Errors::BadId);
    registration.SetPhase(Phase::Registering, B);
    EXPECT_EQ(registration.RegisterMenu(100, 200), host::Errors::BadId); // lists are the host's, not an add-on's
    for (const std::uint32_t code : {host::CommandCode("SET1"), host::CommandCode("SET2")})
        EXPECT_EQ(registration.RegisterSupportedCommand(code, 1), host::NoError);
    EXPECT_EQ(registration.RegisterSupportedCommand(host::CommandCode("COMM"), 3), host::NoError);
    registration.SetPhase(Phase::Initialising, B);
    EXPECT_EQ(registration.InstallMenuHandler(100, [](const host::MenuCommand&) { return host::NoError; }),
              host::Errors::BadId);
    EXPECT_EQ(registration.InstallProjectEventHandler(host::AllProjectEvents, TellEvent<'B'>), host::NoError);
    EXPECT_EQ(registration.InstallReservationChangeHandler(TellReservation<'B'>, {set}), host::NoError);
    EXPECT_EQ(registration.InstallPartnerHandler(host::CommandCode("COMM"), 3, command), host::NoError);
    EXPECT_EQ(registration.InstallSettingsCommandHandler(host::CommandCode("SET1"), 1, settings), host::NoError);
    EXPECT_EQ(registration.InstallSettingsCommandHandler(host::CommandCode("SET2"), 1, settings), host::Errors::BadId)
        << "the host would not know which of the two it answers";
    registration.SetPhase(Phase::Initialising, A);
    EXPECT_EQ(registration.InstallProjectEventHandler(1, TellEvent<'B'>), host::NoError);
    EXPECT_EQ(registration.InstallProjectEventHandler(0x40, TellEvent<'A'>), host::NoError); // in the place of it
    EXPECT_EQ(registration.InstallReservationChangeHandler(TellReservation<'A'>, {}), host::NoError);
    registration.SetPhase(Phase::Closed);

    EXPECT_EQ(call(A, "COMM", 1), host::Errors::CommandVersionNotSupported); // declared, not installed
    EXPECT_EQ(call(B, "COMM", 1), host::Errors::CommandVersionNotSupported);
    EXPECT_EQ(call(B, "NONE", 3), host::Errors::CommandNotSupported);
    EXPECT_EQ(call({3, 0}, "COMM", 3), host::Errors::ModuleNotInstalled);
    EXPECT_EQ(call(B, "COMM", 3), 5);

    told.clear();
    host.OpenProject(test::MakeBuilding(), ProjectEvent::New);
    host.OpenProject(test::MakeBuilding(), ProjectEvent::NewAndReset);
    host.OpenProject(test::MakeBuilding(), ProjectEvent::Open);
    EXPECT_EQ(host.SwitchWindow({DatabaseType::Model3D, {}, {}}), 8);
    EXPECT_EQ(registration.RaiseReservationChange(set, 3), 0);
    EXPECT_EQ(registration.RaiseReservationChange({}, 4), 0);
    EXPECT_EQ(registration.RaiseEvent(ProjectEvent::Quit), 8);
    // The start is complete once, after the first project.
    EXPECT_EQ(told, (std::vector<std::string>{"B1", "B4194304", "B2", "B4", "B524288", "Br3", "B64", "A64"}));
    registration.Remove(B);
    EXPECT_EQ(registration.RaiseEvent(ProjectEvent::Quit), 7);
    EXPECT_EQ(told.size(), 9U);
    EXPECT_EQ(call(B, "COMM", 3), host::Errors::ModuleNotInstalled);
}

} // namespace
