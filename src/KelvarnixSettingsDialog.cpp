#include "src/KelvarnixSettingsDialog.h"

#include "src/Texts.h"

KelvarnixSettingsDialog::KelvarnixSettingsDialog(host::Host& host)
    : CDialogBase(host, ResourceIds::ProjectSettingsDialog, "{7A724F36-9D95-4064-B85D-CB8092A0AA41}") {}

std::int16_t KelvarnixSettingsDialog::HandleItemEvent(host::DialogMessage, std::int16_t,
                                                      const host::DialogMessageData&) {
    return 0;
}
