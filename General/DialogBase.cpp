#include "General/DialogBase.h"

#include "General/CallbackGuard.h"

namespace General {

CDialogBase::CDialogBase(host::Host& host, std::int16_t resource, const char* guid)
    : host(host), resource(resource), guid(host::ParseGuid(guid)) {}

std::int16_t CDialogBase::HandleDialogMessage(host::DialogMessage message, host::DialogId handle, std::int16_t item,
                                              const host::DialogMessageData& data) {
    if (message == host::DialogMessage::Initialise) dialog = handle;
    const std::int16_t answer =
        RunGuarded<std::int16_t>(&host, "dialog message", 0, 0, [&] { return HandleItemEvent(message, item, data); });
    if (message == host::DialogMessage::Close) dialog = {};
    return answer;
}

std::int16_t CDialogBase::RunModal() {
    return dialog.IsOpen() ? std::int16_t{0} : host.GetDialogs().RunModal(resource, guid, *this);
}

bool CDialogBase::OpenAsPalette() {
    if (!dialog.IsOpen()) dialog = host.GetDialogs().OpenPalette(resource, guid, *this);
    return dialog.IsOpen();
}

void CDialogBase::ClosePalette() {
    if (dialog.IsOpen()) host.GetDialogs().ClosePalette(dialog);
}

} // namespace General
