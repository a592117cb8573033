// The module's two exports, through which the workbench finds the entry.
#include "src/Entry.h"

#include "General/CallbackGuard.h"
#include "host/Resources.h"
#include "resources/ResourceIds.h"

#if defined(_WIN32)
#define KELVARNIX_EXPORT extern "C" __declspec(dllexport)
#else
#define KELVARNIX_EXPORT extern "C" __attribute__((visibility("default")))
#endif

KELVARNIX_EXPORT std::int32_t SetImportedFuncAddrs(const host::ImportedFunctions* functions) {
    if (!host::IsOfThisInterface(functions) || functions->host == nullptr)
        return host::Errors::BadParameters.GetValue();
    Entry::SetHost(functions->host);
    return host::NoError.GetValue();
}

KELVARNIX_EXPORT std::int32_t GetExportedFuncAddrs(host::ExportedFunctions* functions) {
    host::Host* host = Entry::GetHost();
    if (!host::IsOfThisInterface(functions) || host == nullptr) return host::Errors::BadParameters.GetValue();
    const auto fill = [&] {
        functions->moduleId = host->GetResources().ReadModuleId(ResourceIds::ModuleIdResource);
        functions->checkEnvironment = Entry::CheckEnvironment;
        functions->registerInterface = Entry::RegisterInterface;
        functions->initialise = Entry::Initialise;
        functions->freeData = Entry::FreeData;
        return host::NoError;
    };
    return General::RunGuarded(host, "export of the entry", fill).GetValue();
}
