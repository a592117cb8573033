// Modules and what they register with the workbench: menus, events, reservations and commands of several add-ons.
#include "workbench/host/Module.h"

#include <gtest/gtest.h>

#include "TestBuilding.h"

namespace {

using host::DatabaseType;
using host::ProjectEvent;
using Phase = workbench::RegistrationRole::Phase;

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

TEST(ModuleLoading, SaysWhatIsWrong) {
    workbench::WorkbenchHost host;
    workbench::Module module(host);
    EXPECT_NE(module.Load("/nowhere/Kelvarnix.apx").GetText().find("cannot be loaded"), std::string::npos);
    EXPECT_NE(module.Load("libc.so.6").GetText().find("is no add-on"), std::string::npos);
    EXPECT_FALSE(module.IsStarted());
}

} // namespace
