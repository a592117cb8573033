#include "src/Kelvarnix.h"

#include "src/AddOnContext.h"
#include "src/EnergyExchange.h"
#include "src/Entry.h"
#include "src/LCAProjectDataStore.h"
#include "src/LCAProperties.h"
#include "src/LCASchema.h"
#include "src/SystemStart.h"
#include "src/WindowCommands.h"

#include "General/CallbackGuard.h"
#include "host/Teamwork.h"
#include "platform/Text.h"
#include "src/Texts.h"

#include <set>
#include <utility>

namespace {

constexpr host::ErrorCode ContextMissing{1};

/// Cleared by the first registration, so that there is one a run of the host.
bool isEnergyRegistrationPending = true;

/// Keeps the module loaded and runs the body, which answers an error code, when there is something to act on.
template <typename Body>
host::ErrorCode DispatchCommand(const char* callback, Body&& body) {
    return General::RunGuarded(Entry::GetHost(), callback, [&] {
        if (Entry::GetHost() != nullptr) Entry::GetHost()->GetRegistration().KeepInMemory(true);
        AddOnContext* context = GetContext().get();
        return context == nullptr ? ContextMissing : body(*context);
    });
}

/// The same for a body that answers nothing.
template <typename Body>
host::ErrorCode Dispatch(const char* callback, Body&& body) {
    return DispatchCommand(callback, [&](AddOnContext& context) {
        body(context);
        return host::NoError;
    });
}

void TogglePalette(AddOnContext& context) {
    if (context.mainPalette.IsOpen())
        context.mainPalette.Close();
    else
        context.mainPalette.Open();
}

void OpenInformation() {
    const std::wstring address =
        platform::WideFromUtf8(ReadText(*Entry::GetHost(), ResourceIds::Web::InformationAddress));
    const std::optional<std::string> narrow = platform::NarrowFromWide(address);
    if (!narrow || !OpenWithSystemStart(*narrow))
        General::ReportFailure(Entry::GetHost(), "opening the web page", "the system has no program for it");
}

/// The record always starts from the model's values, which need the definitions that carry them, and never from the
/// former project's.
void TakeProject(AddOnContext& context, host::ProjectEvent event) {
    host::Host& host = *Entry::GetHost();
    context.projectData.Reset();
    General::ReportHostError(host, "creating the LCA properties", EnsureSchema(host));
    WarnOfDoubledDefinitions(host);
    if (event != host::ProjectEvent::NewAndReset)
        General::ReportHostError(host, "loading the project settings", LoadProjectData(host, context.projectData));
    WatchReservations(host);
    context.mainPalette.TakeNewProject();
}

} // namespace

std::unique_ptr<AddOnContext>& GetContext() {
    static std::unique_ptr<AddOnContext> context;
    return context;
}

void WatchReservations(host::Host& host) {
    std::set<host::Guid> sets;
    for (const char* name : {host::ClassificationsAndPropertiesSet, host::BuildingMaterialsSet})
        if (const host::Guid set = host.GetTeamwork().FindLockableSet(name); !set.IsNull()) sets.insert(set);
    if (sets.empty()) return;
    General::ReportHostError(host, "watching reservations",
                             host.GetRegistration().InstallReservationChangeHandler(HandleReservationChange, sets));
}

host::ErrorCode HandleMenuCommand(const host::MenuCommand& command) {
    return Dispatch("menu command", [&](AddOnContext& context) {
        if (command.itemIndex != 1) return;
        switch (command.menuStringList) {
        case ResourceIds::Menus::Palette:
            TogglePalette(context);
            break;
        case ResourceIds::Menus::BuildingMaterials:
            RunBuildingMaterialsSettings(*Entry::GetHost(), context);
            break;
        case ResourceIds::Menus::ProjectSettings:
            RunProjectSettings(*Entry::GetHost(), context);
            break;
        case ResourceIds::Menus::Information:
            OpenInformation();
            break;
        case ResourceIds::Menus::MaterialReport:
            context.mainPalette.CollectElementGWP();
            if (context.mainPalette.IsOpen()) context.mainPalette.RebuildTable(MainPalette::Rebuild::TextsOnly);
            RunMaterialReport(context);
            break;
        default:
            break;
        }
    });
}

host::ErrorCode HandleProjectEvent(host::ProjectEvent event, std::int32_t) {
    return Dispatch("project event", [&](AddOnContext& context) {
        switch (event) {
        case host::ProjectEvent::New:
        case host::ProjectEvent::NewAndReset:
        case host::ProjectEvent::Open:
            TakeProject(context, event);
            break;
        case host::ProjectEvent::WindowChanged:
            if (context.mainPalette.IsOpen()) context.mainPalette.OnActiveWindowChanged();
            break;
        case host::ProjectEvent::Quit:
            static_cast<void>(UnregisterExportTarget(*Entry::GetHost())); // the host ends: nobody is left to tell
            break;
        case host::ProjectEvent::AllInputFinished:
            // Where there is no energy evaluation nothing is said: most users have none.
            if (std::exchange(isEnergyRegistrationPending, false))
                static_cast<void>(RegisterExportTarget(*Entry::GetHost()));
            break;
        default:
            break;
        }
    });
}

host::ErrorCode HandlePaletteRequest(const host::Guid& palette) {
    return Dispatch("palette request", [&](AddOnContext& context) {
        if (palette == context.mainPalette.GetGuid()) context.mainPalette.Open();
    });
}

host::ErrorCode HandleReservationChange(const host::Guid&, std::int16_t) {
    // The host takes 0 only; without the object there is nothing to refresh.
    static_cast<void>(Dispatch("reservation change", [](AddOnContext& context) {
        if (context.mainPalette.IsOpen()) {
            context.mainPalette.RefreshEditors();
            context.mainPalette.UpdateSettingsButtonIcon();
        }
        if (context.buildingMaterialsDialog.IsOpen()) context.buildingMaterialsDialog.RefreshTeamwork();
        if (context.settingsDialog.IsOpen()) context.settingsDialog.RefreshTeamwork();
    }));
    return host::NoError;
}

host::ErrorCode HandleExportSettings(host::ObjectState& settings, bool) {
    return General::RunGuarded(Entry::GetHost(), "export settings", [&] {
        AnswerExportSettings(settings);
        return host::NoError;
    });
}

host::ErrorCode HandleExportData(const std::string& document, bool) {
    return DispatchCommand(
        "exported data", [&](AddOnContext& context) { return TakeExportedData(*Entry::GetHost(), context, document); });
}
