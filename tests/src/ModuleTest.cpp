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

TEST(Module, LivesItsLifeTwice) {
    for (int load = 0; load < 2; ++load) {
        test::NullHost host;
        const Library library(KELVARNIX_BIN_DIR "/Kelvarnix.apx");
        ASSERT_NE(library.handle, nullptr);
        const auto setImported = library.Find<host::SetImportedFunctions>(host::SetImportedFunctionsName);
        const auto getExported = library.Find<host::GetExportedFunctions>(host::GetExportedFunctionsName);
        ASSERT_NE(setImported, nullptr);
        ASSERT_NE(getExported, nullptr);
        host::ImportedFunctions imported;
        imported.host = &host;
        host::ExportedFunctions exported;
        ASSERT_EQ(setImported(&imported), host::NoError);
        ASSERT_EQ(getExported(&exported), host::NoError);
        host::Environment environment;
        environment.applicationCode = host::ArchiCADApplicationCode;
        EXPECT_EQ(exported.checkEnvironment(environment), host::AddOnType::Preload);
        EXPECT_EQ(exported.registerInterface(), host::NoError);
        EXPECT_EQ(exported.initialise(), host::NoError);
        EXPECT_EQ(exported.freeData(), host::NoError);
        imported.size = 4;
        EXPECT_EQ(setImported(&imported), host::Errors::BadParameters);
    }
}

} // namespace
