// The built module, loaded by the operating system's loader as a host loads it.
#include "host/EnergyExchange.h"
#include "host/Entry.h"

#include <gtest/gtest.h>

#include "support/NullHost.h"

#include <algorithm>
#include <functional>
#include <random>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

class Library {
public:
#if defined(_WIN32)
    explicit Library(const char* path) : handle(LoadLibraryA(path)) {}
    ~Library() {
        if (handle != nullptr) FreeLibrary(handle);
    }
    template <typename Function>
    Function Find(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(handle, name)));
    }
    HMODULE handle;
#else
    explicit Library(const char* path) : handle(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {}
    ~Library() {
        if (handle != nullptr) dlclose(handle);
    }
    template <typename Function>
    Function Find(const char* name) const {
        return reinterpret_cast<Function>(dlsym(handle, name));
    }
    void* handle;
#endif
};

namespace Exchange = host::EnergyExchange;

/// Takes the module's handlers; the installation of that number fails.
class Handlers : public test::NullRegistration {
public:
    host::ErrorCode InstallMenuHandler(std::int16_t, host::MenuHandler handler) override {
        menu = handler;
        return Count();
    }
    host::ErrorCode InstallReservationChangeHandler(host::ReservationChangeHandler handler,
                                                    const std::set<host::Guid>&) override {
        reservation = handler;
        return Count();
    }
    host::ErrorCode InstallProjectEventHandler(std::uint32_t, host::ProjectEventHandler handler) override {
        event = handler;
        return Count();
    }
    host::ErrorCode InstallSettingsCommandHandler(std::uint32_t, std::int32_t,
                                                  host::SettingsCommandHandler handler) override {
        askSettings = handler;
        return Count();
    }
    host::ErrorCode InstallDocumentCommandHandler(std::uint32_t, std::int32_t,
                                                  host::DocumentCommandHandler handler) override {
        sendData = handler;
        return Count();
    }

    int failing = -1;
    int installed = 0;
    host::MenuHandler menu = nullptr;
    host::ReservationChangeHandler reservation = nullptr;
    host::ProjectEventHandler event = nullptr;
    host::SettingsCommandHandler askSettings = nullptr;
    host::DocumentCommandHandler sendData = nullptr;

private:
    host::ErrorCode Count() { return installed++ == failing ? host::Errors::General : host::NoError; }
};

/// Counts how often the module introduces itself and takes its leave.
class Partner : public test::NullAddOnCommands {
public:
    host::ErrorCode Call(const host::ModuleId&, std::uint32_t code, std::int32_t, host::ParameterListId,
                         bool) override {
        registrations += code == Exchange::RegisterTarget;
        leaves += code == Exchange::UnregisterTarget;
        return host::NoError;
    }
    int registrations = 0, leaves = 0;
};

/// The module between loading and unloading, with a host that lives as long.
class Life {
public:
    Life() : library(KELVARNIX_BIN_DIR "/Kelvarnix.apx") {
        host.registration = &handlers;
        host.addOnCommands = &partner;
        if (library.handle == nullptr) return;
        setImported = library.Find<host::SetImportedFunctions>(host::SetImportedFunctionsName);
        getExported = library.Find<host::GetExportedFunctions>(host::GetExportedFunctionsName);
    }
    bool IsLoaded() const { return setImported != nullptr && getExported != nullptr; }

    /// What every handler answers, in a random order of commands, events and calls.
    void CallAll(host::ErrorCode expected, std::mt19937& random) {
        using Event = host::ProjectEvent;
        host::ObjectState settings;
        std::vector<std::function<void()>> calls;
        // Not the information command: it would start a browser.
        for (const std::int16_t list : {32500, 32501, 32502, 32504, 1})
            for (const int item : {0, 1, 2})
                calls.push_back([=, this] { EXPECT_EQ(handlers.menu({list, item}), expected) << list; });
        for (const Event event : {Event::New, Event::NewAndReset, Event::Open, Event::Quit, Event::WindowChanged,
                                  Event::AllInputFinished, static_cast<Event>(0x20), static_cast<Event>(0)})
            for (int times = 0; times < 2; ++times)
                calls.push_back([=, this] { EXPECT_EQ(handlers.event(event, 0), expected); });
        calls.push_back([&] { EXPECT_EQ(handlers.reservation({}, 1), 0); });
        calls.push_back([&] { EXPECT_EQ(handlers.askSettings(settings, true), 0); });
        // The null host reads no document.
        calls.push_back(
            [&] { EXPECT_EQ(handlers.sendData("<root/>", true), expected == 0 ? host::Errors::BadValue : expected); });
        std::shuffle(calls.begin(), calls.end(), random);
        for (const std::function<void()>& call : calls)
            call();
    }

    const Library library;
    Handlers handlers;
    Partner partner;
    test::NullHost host;
    host::SetImportedFunctions setImported = nullptr;
    host::GetExportedFunctions getExported = nullptr;
};

class ThrowingResources : public test::NullResources {
    host::ModuleId ReadModuleId(std::int16_t) override { throw std::bad_alloc(); }
};

TEST(Module, TablesOfAnotherStateAreRefused) {
    Life life;
    ASSERT_TRUE(life.IsLoaded());
    EXPECT_EQ(life.setImported(nullptr), host::Errors::BadParameters);
    host::ImportedFunctions imported;
    EXPECT_EQ(life.setImported(&imported), host::Errors::BadParameters); // no host
    imported.host = &life.host;
    imported.version = host::InterfaceVersion + 1;
    EXPECT_EQ(life.setImported(&imported), host::Errors::BadParameters);
    imported.version = host::InterfaceVersion;
    ASSERT_EQ(life.setImported(&imported), host::NoError);
    EXPECT_EQ(life.getExported(nullptr), host::Errors::BadParameters);
    host::ExportedFunctions exported;
    exported.size += 8;
    EXPECT_EQ(life.getExported(&exported), host::Errors::BadParameters);
    EXPECT_EQ(exported.initialise, nullptr);
    ThrowingResources resources;
    life.host.resources = &resources;
    exported = {};
    EXPECT_EQ(life.getExported(&exported), host::Errors::OutOfMemory);
}

TEST(Module, LivesItsWholeLifeAgainAndAgain) {
    std::mt19937 random(20260726);   // the same orders in every run
    constexpr int Installations = 9; // of five menus, reservations, events and two commands
    for (int failing = -1; failing < Installations; ++failing) {
        Life life;
        ASSERT_TRUE(life.IsLoaded());
        host::ExportedFunctions module;
        EXPECT_EQ(life.getExported(&module), host::Errors::BadParameters); // no host yet
        host::ImportedFunctions imported;
        imported.host = &life.host;
        imported.size = 4;
        EXPECT_EQ(life.setImported(&imported), host::Errors::BadParameters);
        imported.size = sizeof imported;
        ASSERT_EQ(life.setImported(&imported), host::NoError);
        ASSERT_EQ(life.getExported(&module), host::NoError);

        host::Environment environment;
        environment.applicationCode = 2;
        EXPECT_EQ(module.checkEnvironment(environment), host::AddOnType::DoNotRegister);
        environment.applicationCode = host::ArchiCADApplicationCode;
        EXPECT_EQ(module.checkEnvironment(environment), host::AddOnType::Preload);
        EXPECT_EQ(module.registerInterface(), host::NoError);
        EXPECT_EQ(module.freeData(), host::NoError); // nothing there yet

        life.handlers.failing = failing;
        constexpr int FirstReported = 6; // of menus and reservations nothing is said
        EXPECT_EQ(module.initialise(), failing < FirstReported ? host::NoError : host::Errors::General) << failing;
        EXPECT_EQ(life.handlers.installed, Installations); // a failure keeps nothing else back
        life.CallAll(0, random);
        EXPECT_EQ(life.partner.registrations, 1);
        EXPECT_EQ(life.partner.leaves, 2); // as often as the host says that it ends
        EXPECT_EQ(module.freeData(), host::NoError);
        EXPECT_EQ(module.freeData(), host::NoError);
        life.CallAll(1, random); // handlers of an add-on that is gone do nothing

        life.handlers.failing = -1;
        EXPECT_EQ(module.initialise(), host::NoError);
        life.CallAll(0, random);
        EXPECT_EQ(life.partner.registrations, 1); // once a run
        EXPECT_EQ(module.freeData(), host::NoError);
    }
}

} // namespace
