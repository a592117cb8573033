// The built module, loaded by the operating system's loader as a host loads it.
#include "host/Entry.h"

#include <gtest/gtest.h>

#include "support/NullHost.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

/// The module between loading and unloading, with the host that it has. Keeps the handler of the menu that was
/// installed last.
class Life : public test::NullHost {
public:
    Life() {
        const char path[] = KELVARNIX_BIN_DIR "/Kelvarnix.apx";
#if defined(_WIN32)
        library = LoadLibraryA(path);
        const auto find = [&](const char* name) { return reinterpret_cast<void*>(GetProcAddress(library, name)); };
#else
        library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
        const auto find = [&](const char* name) { return dlsym(library, name); };
#endif
        setImported = reinterpret_cast<host::SetImportedFunctions>(find(host::SetImportedFunctionsName));
        getExported = reinterpret_cast<host::GetExportedFunctions>(find(host::GetExportedFunctionsName));
        imported.host = this;
    }
    ~Life() override {
#if defined(_WIN32)
        FreeLibrary(library);
#else
        dlclose(library);
#endif
    }
    host::ModuleId ReadModuleId(std::int16_t) override {
        if (isOutOfMemory) throw std::bad_alloc();
        return {1, 2};
    }
    host::ErrorCode InstallMenuHandler(std::int16_t, host::MenuHandler handler) override {
        menu = handler;
        return 0;
    }

    host::ImportedFunctions imported;
    host::ExportedFunctions module;
    host::SetImportedFunctions setImported;
    host::GetExportedFunctions getExported;
    host::MenuHandler menu = nullptr;
    bool isOutOfMemory = false;

private:
#if defined(_WIN32)
    HMODULE library;
#else
    void* library;
#endif
};

TEST(Module, TablesOfAnotherStateAreRefused) {
    Life life;
    EXPECT_EQ(life.getExported(&life.module), host::Errors::BadParameters); // no host yet
    EXPECT_EQ(life.setImported(nullptr), host::Errors::BadParameters);
    const host::ImportedFunctions good = life.imported;
    for (const auto& spoil : std::initializer_list<void (*)(host::ImportedFunctions&)>{
             [](auto& table) { table.host = nullptr; }, [](auto& table) { table.size = 4; },
             [](auto& table) { table.version = host::InterfaceVersion + 1; }}) {
        life.imported = good;
        spoil(life.imported);
        EXPECT_EQ(life.setImported(&life.imported), host::Errors::BadParameters);
    }
    life.imported = good;
    ASSERT_EQ(life.setImported(&life.imported), host::NoError);
    EXPECT_EQ(life.getExported(nullptr), host::Errors::BadParameters);
    life.module.size += 8;
    EXPECT_EQ(life.getExported(&life.module), host::Errors::BadParameters);
    EXPECT_EQ(life.module.initialise, nullptr);
    life.module = {};
    life.isOutOfMemory = true;
    EXPECT_EQ(life.getExported(&life.module), host::Errors::OutOfMemory);
}

TEST(Module, LivesItsWholeLifeAgainAndAgain) {
    for (int run = 0; run < 2; ++run) {
        Life life;
        ASSERT_EQ(life.setImported(&life.imported), host::NoError);
        ASSERT_EQ(life.getExported(&life.module), host::NoError);
        EXPECT_EQ(life.module.moduleId.localId, 2U);
        host::Environment environment;
        environment.applicationCode = 2;
        EXPECT_EQ(life.module.checkEnvironment(environment), host::AddOnType::DoNotRegister);
        environment.applicationCode = host::ArchiCADApplicationCode;
        EXPECT_EQ(life.module.checkEnvironment(environment), host::AddOnType::Preload);
        EXPECT_EQ(life.module.registerInterface(), host::NoError);
        EXPECT_EQ(life.module.freeData(), host::NoError); // nothing there yet
        for (int times = 0; times < 2; ++times) {
            EXPECT_EQ(life.module.initialise(), host::NoError);
            EXPECT_EQ(life.menu({32502, 1}), 0);
            EXPECT_EQ(life.module.freeData(), host::NoError);
            EXPECT_EQ(life.menu({32502, 1}), 1); // the handler of an add-on that is gone does nothing
        }
    }
}

} // namespace
