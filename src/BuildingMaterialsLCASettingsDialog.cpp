#include "src/BuildingMaterialsLCASettingsDialog.h"

#include "src/Texts.h"

BuildingMaterialsLCASettingsDialog::BuildingMaterialsLCASettingsDialog(host::Host& host)
    : CDialogBase(host, ResourceIds::BuildingMaterialsDialog, "{E5880DFD-3C2D-46B4-B5BD-2BE2EF126327}") {}

std::int16_t BuildingMaterialsLCASettingsDialog::HandleItemEvent(host::DialogMessage, std::int16_t,
                                                                 const host::DialogMessageData&) {
    return 0;
}
