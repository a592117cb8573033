#include "General/DialogBase.h"

#include "General/CallbackGuard.h"

namespace General {

CDialogBase::CDialogBase(host::Host& host, std::int16_t resource, const char* guid)
    : host(host), resource(resource), guid(host::ParseGuid(guid)) {}

CDialogBase::~CDialogBase() {
    Release();
}

host::ErrorCode CDialogBase::RegisterPalette(host::PaletteRequestHandler handler) {
    const host::ErrorCode error = host.GetDialogs().RegisterPalette(resource, guid, handler);
    isRegistered = error == host::NoError;
    return error;
}

void CDialogBase::Release() noexcept {
    isReleased = true;
    // An exception of it has its line in the host's report by then.
    static_cast<void>(RunGuarded(&host, "closing a dialog", [this] {
        if (dialog.IsOpen()) host.GetDialogs().Close(dialog);
        if (isRegistered) ReportHostError(host, "giving back a palette", host.GetDialogs().UnregisterPalette(guid));
        return host::NoError;
    }));
    dialog = {};
    isRegistered = false;
}

std::int16_t CDialogBase::HandleDialogMessage(host::DialogMessage message, host::DialogId handle, std::int16_t item,
                                              const host::DialogMessageData& data) {
    if (isReleased) return 0;
    const RunningCallback running; // the dialog may be gone when it ends
    if (message == host::DialogMessage::Initialise) {
        dialog = handle;
        wasOpened = true;
    }
    const std::int16_t answer =
        RunGuarded<std::int16_t>(&host, "dialog message", 0, 0, [&] { return HandleItemEvent(message, item, data); });
    if (message == host::DialogMessage::Close) dialog = {};
    return answer;
}

std::int16_t CDialogBase::RunModal() {
    if (isReleased || dialog.IsOpen()) return 0;
    wasOpened = false;
    const std::int16_t answer = host.GetDialogs().RunModal(resource, guid, *this);
    if (!wasOpened) ReportFailure(&host, "opening a dialog", "the host did not open it");
    return answer;
}

bool CDialogBase::OpenAsPalette() {
    if (isReleased || dialog.IsOpen()) return dialog.IsOpen();
    const host::DialogId opened = host.GetDialogs().OpenPalette(guid, *this);
    if (!opened.IsOpen()) ReportFailure(&host, "opening the palette", "the host did not open it");
    if (!isReleased) dialog = opened;
    return dialog.IsOpen();
}

void CDialogBase::ClosePalette() {
    if (dialog.IsOpen()) host.GetDialogs().Close(dialog);
}

} // namespace General
