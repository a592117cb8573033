#include "workbench/host/Module.h"

#include <dlfcn.h>

namespace workbench {

namespace {

template <typename Function>
Function FindExport(void* library, const char* name) {
    return reinterpret_cast<Function>(dlsym(library, name));
}

} // namespace

Outcome Module::Load(const std::filesystem::path& file) {
    Unload();
    name = file.string();
    library = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return Failure::Input(name + ": the add-on cannot be loaded (" + dlerror() + "); build it or name another one");
    const auto setImported = FindExport<host::SetImportedFunctions>(library, host::SetImportedFunctionsName);
    const auto getExported = FindExport<host::GetExportedFunctions>(library, host::GetExportedFunctionsName);
    if (setImported == nullptr || getExported == nullptr)
        return Failure::Input(name + ": this library is no add-on: it lacks the exports of one");
    imported = {};
    imported.host = &host;
    exported = {};
    host::ErrorCode error(setImported(&imported));
    if (error == host::NoError) error = host::ErrorCode(getExported(&exported));
    if (error != host::NoError)
        return Failure::Input(name + ": the add-on was built for another version of the host (" +
                              host::WriteErrorCode(error) + "); build both anew");
    return Outcome::Done();
}

Outcome Module::Start() {
    environment = {};
    environment.applicationCode = host::ArchiCADApplicationCode;
    if (exported.checkEnvironment(environment) == host::AddOnType::DoNotRegister)
        return Failure::Input(name + ": the add-on does not want to run in this host");
    host.registration.SetPhase(RegistrationRole::Phase::Registering, exported.moduleId);
    host::ErrorCode error = exported.registerInterface();
    if (error == host::NoError) {
        host.registration.SetPhase(RegistrationRole::Phase::Initialising, exported.moduleId);
        error = exported.initialise();
    }
    host.registration.SetPhase(RegistrationRole::Phase::Closed);
    if (error != host::NoError)
        return Failure::Input(name + ": the add-on could not be started (" + host::WriteErrorCode(error) + ")");
    isStarted = true;
    return Outcome::Done();
}

void Module::Unload() {
    if (library == nullptr) return;
    if (exported.freeData != nullptr) std::ignore = exported.freeData();
    host.registration.Remove(exported.moduleId);
    dlclose(library);
    library = nullptr;
    exported = {};
    isStarted = false;
}

std::filesystem::path GetModulePath(const char* file) {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return program.parent_path() / file;
}

} // namespace workbench
