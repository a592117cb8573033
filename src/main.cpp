// Entry of the module: the two exports through which a host finds it, and the four callbacks of its life. Stays free of
// what commands and events do, which is the dispatch's.
#include "src/AddOnContext.h"
#include "src/Kelvarnix.h"

#include "General/CallbackGuard.h"
#include "host/EnergyExchange.h"
#include "host/Entry.h"
#include "host/Registration.h"

#include "host/Teamwork.h"
#include "src/Texts.h"

#include <memory>
#include <set>

#if defined(_WIN32)
#define KELVARNIX_EXPORT extern "C" __declspec(dllexport)
#else
#define KELVARNIX_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

host::Host* importedHost = nullptr;

struct MenuResource {
    std::int16_t menu;
    std::int16_t prompt;
};

/// In the order of registration, which is the order in the menu.
constexpr MenuResource Menus[] = {{ResourceIds::Menus::Palette, ResourceIds::Menus::PalettePrompt},
                                  {ResourceIds::Menus::MaterialReport, ResourceIds::Menus::MaterialReportPrompt},
                                  {ResourceIds::Menus::BuildingMaterials, ResourceIds::Menus::BuildingMaterialsPrompt},
                                  {ResourceIds::Menus::ProjectSettings, ResourceIds::Menus::ProjectSettingsPrompt},
                                  {ResourceIds::Menus::Information, ResourceIds::Menus::InformationPrompt}};

namespace Exchange = host::EnergyExchange;

host::AddOnType CheckEnvironment(host::Environment& environment) {
    const auto check = [&] {
        if (importedHost == nullptr || environment.applicationCode != host::ArchiCADApplicationCode)
            return host::AddOnType::DoNotRegister;
        environment.addOnName = ReadText(*importedHost, ResourceIds::AddOn::Name);
        environment.addOnDescription = ReadText(*importedHost, ResourceIds::AddOn::Description);
        return host::AddOnType::Preload;
    };
    return General::RunGuarded(importedHost, "environment check", host::AddOnType::DoNotRegister,
                               host::AddOnType::DoNotRegister, check);
}

host::ErrorCode RegisterInterface() {
    return General::RunGuarded(importedHost, "interface registration", [] {
        if (importedHost == nullptr) return host::Errors::General;
        host::Registration& registration = importedHost->GetRegistration();
        host::ErrorCode result = host::NoError;
        for (const MenuResource& menu : Menus)
            result |= registration.RegisterMenu(menu.menu, menu.prompt);
        result |= registration.RegisterSupportedCommand(Exchange::AskSettings, Exchange::CommandVersion);
        result |= registration.RegisterSupportedCommand(Exchange::SendData, Exchange::CommandVersion);
        return result;
    });
}

/// Leaves the pointer empty when the object cannot be built; the handlers then do nothing.
void CreateContext() {
    // A failure has its line in the host's report by then.
    static_cast<void>(General::RunGuarded(importedHost, "initialisation", [] {
        GetContext() = std::make_unique<AddOnContext>(*importedHost);
        return host::NoError;
    }));
}

std::set<host::Guid> FindWatchedSets() {
    host::Teamwork& teamwork = importedHost->GetTeamwork();
    return {teamwork.FindLockableSet(host::ClassificationsAndPropertiesSet),
            teamwork.FindLockableSet(host::BuildingMaterialsSet)};
}

host::ErrorCode InstallHandlers() {
    host::Registration& registration = importedHost->GetRegistration();
    for (const std::int16_t menu :
         {ResourceIds::Menus::Palette, ResourceIds::Menus::MaterialReport, ResourceIds::Menus::BuildingMaterials,
          ResourceIds::Menus::ProjectSettings, ResourceIds::Menus::Information})
        General::ReportHostError(*importedHost, "installing a menu handler",
                                 registration.InstallMenuHandler(menu, HandleMenuCommand));
    General::ReportHostError(*importedHost, "watching reservations",
                             registration.InstallReservationChangeHandler(HandleReservationChange, FindWatchedSets()));
    host::ErrorCode result = registration.InstallProjectEventHandler(host::AllProjectEvents, HandleProjectEvent);
    result |= registration.InstallCommandHandler(Exchange::AskSettings, Exchange::CommandVersion, HandleExportSettings);
    result |= registration.InstallCommandHandler(Exchange::SendData, Exchange::CommandVersion, HandleExportData);
    return result;
}

host::ErrorCode Initialise() {
    return General::RunGuarded(importedHost, "initialisation", [] {
        if (importedHost == nullptr) return host::Errors::General;
        SetHost(importedHost);
        importedHost->GetRegistration().KeepInMemory(true);
        CreateContext();
        return InstallHandlers();
    });
}

host::ErrorCode FreeData() {
    return General::RunGuarded(importedHost, "freeing", [] {
        GetContext().reset();
        return host::NoError;
    });
}

} // namespace

KELVARNIX_EXPORT std::int32_t SetImportedFuncAddrs(const host::ImportedFunctions* functions) {
    if (!host::IsOfThisInterface(functions) || functions->host == nullptr)
        return host::Errors::BadParameters.GetValue();
    importedHost = functions->host;
    return host::NoError.GetValue();
}

KELVARNIX_EXPORT std::int32_t GetExportedFuncAddrs(host::ExportedFunctions* functions) {
    if (!host::IsOfThisInterface(functions) || importedHost == nullptr) return host::Errors::BadParameters.GetValue();
    const auto fill = [&] {
        functions->moduleId = importedHost->GetResources().ReadModuleId(ResourceIds::ModuleIdResource);
        functions->checkEnvironment = CheckEnvironment;
        functions->registerInterface = RegisterInterface;
        functions->initialise = Initialise;
        functions->freeData = FreeData;
        return host::NoError;
    };
    return General::RunGuarded(importedHost, "export of the entry", fill).GetValue();
}
