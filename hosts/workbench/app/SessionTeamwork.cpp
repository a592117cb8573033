// The session at the dialogs that guard shared settings.
#include "workbench/app/Session.h"

#include "resources/ResourceData.h"

namespace workbench {

namespace {

using namespace ResourceIds;

/// The dialog in which a set of settings is reserved.
struct GuardingDialog {
    const char* setName;
    std::int16_t menu;
    std::int16_t statusText;
    std::int16_t button;
};

constexpr GuardingDialog GuardingDialogs[] = {
    {host::BuildingMaterialsSet, Menus::BuildingMaterials, BuildingMaterialsItems::TeamworkStatusText,
     BuildingMaterialsItems::TeamworkButton},
    {host::ClassificationsAndPropertiesSet, Menus::ProjectSettings, ProjectSettingsItems::TeamworkStatusText,
     ProjectSettingsItems::TeamworkButton}};

const GuardingDialog* FindGuardingDialog(const std::string& setName) {
    for (const GuardingDialog& dialog : GuardingDialogs)
        if (setName == dialog.setName) return &dialog;
    return nullptr;
}

} // namespace

Outcome Session::PressTeamworkButton(const std::string& setName) {
    const GuardingDialog* guarding = FindGuardingDialog(setName);
    if (guarding == nullptr)
        return Failure::Usage(setName + ": the settings to reserve are " + host::BuildingMaterialsSet + " and " +
                              host::ClassificationsAndPropertiesSet);
    UseModal(guarding->menu, [&](host::DialogId dialog) { host->dialogManager.Press(dialog, guarding->button); });
    return GetProject().GetStoreOutcome();
}

std::string Session::ReadTeamworkStatus(const std::string& setName) {
    std::string status;
    const GuardingDialog* guarding = FindGuardingDialog(setName);
    if (guarding == nullptr) return status;
    UseModal(guarding->menu,
             [&](host::DialogId dialog) { status = host->dialogItems.ReadText(dialog, guarding->statusText); });
    std::erase(status, '\n');
    return status;
}

void Session::UseModal(std::int16_t menu, const std::function<void(host::DialogId)>& use) {
    host->dialogManager.modalUser = use;
    std::ignore = host->registration.ChooseMenu(menu, 1); // the add-on reports by itself
    host->dialogManager.modalUser = nullptr;
}

} // namespace workbench
