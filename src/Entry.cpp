#include "src/Entry.h"

#include "src/AddOnContext.h"
#include "src/Kelvarnix.h"

#include "General/CallbackGuard.h"
#include "host/EnergyExchange.h"
#include "host/Registration.h"
#include "src/Texts.h"

#include <memory>
#include <utility>

namespace {

host::Host* importedHost = nullptr;
/// Freed by the host while a call into them still waits.
std::unique_ptr<AddOnContext> retired;

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

/// Leaves the pointer empty when the object cannot be built; the handlers then do nothing.
void CreateContext() {
    // A failure has its line in the host's report by then.
    static_cast<void>(General::RunGuarded(importedHost, "initialisation", [] {
        GetContext() = std::make_unique<AddOnContext>(*importedHost);
        return host::NoError;
    }));
}

host::ErrorCode InstallHandlers() {
    host::Registration& registration = importedHost->GetRegistration();
    for (const MenuResource& menu : Menus)
        General::ReportHostError(*importedHost, "installing a menu handler",
                                 registration.InstallMenuHandler(menu.menu, HandleMenuCommand));
    if (AddOnContext* context = GetContext().get())
        General::ReportHostError(*importedHost, "registering the palette",
                                 context->mainPalette.RegisterPalette(HandlePaletteRequest));
    WatchReservations(*importedHost);
    host::ErrorCode result = registration.InstallProjectEventHandler(host::AllProjectEvents, HandleProjectEvent);
    result |= registration.InstallSettingsCommandHandler(Exchange::AskSettings, Exchange::CommandVersion,
                                                         HandleExportSettings);
    result |=
        registration.InstallDocumentCommandHandler(Exchange::SendData, Exchange::CommandVersion, HandleExportData);
    return result;
}

void DropRetired() noexcept {
    retired.reset();
}

/// No dialog of a freed object is left with the host, whose next message would find nobody.
void ReleaseContext() {
    std::unique_ptr<AddOnContext>& context = GetContext();
    if (!context) return;
    context->ReleaseWindows();
    if (!General::RunningCallback::IsNested()) return context.reset();
    context->older = std::move(retired);
    retired = std::move(context);
}

} // namespace

namespace Entry {

void SetHost(host::Host* host) {
    importedHost = host;
}

host::Host* GetHost() {
    return importedHost;
}

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

host::ErrorCode Initialise() {
    return General::RunGuarded(importedHost, "initialisation", [] {
        if (importedHost == nullptr) return host::Errors::General;
        General::RunningCallback::whenDone = DropRetired;
        importedHost->GetRegistration().KeepInMemory(true);
        ReleaseContext();
        CreateContext();
        return InstallHandlers();
    });
}

host::ErrorCode FreeData() {
    return General::RunGuarded(importedHost, "freeing", [] {
        ReleaseContext();
        return host::NoError;
    });
}

} // namespace Entry
