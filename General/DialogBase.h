// Base of every dialog and of the palette: resource, fixed identifier, the host's handle while open, and one item-event
// handler that derived classes override. None leaves an open dialog with the host when it goes.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"

namespace General {

class CDialogBase : public host::DialogHandler {
public:
    /// guid is the dialog class's own, the key under which the host keeps size and position. The host outlives the
    /// dialog.
    CDialogBase(host::Host& host, std::int16_t resource, const char* guid);
    /// Releases.
    ~CDialogBase() override;
    CDialogBase(const CDialogBase&) = delete;
    CDialogBase& operator=(const CDialogBase&) = delete;

    bool IsOpen() const { return dialog.IsOpen(); }
    host::DialogId GetDialog() const { return dialog; }
    std::int16_t GetResource() const { return resource; }
    const host::Guid& GetGuid() const { return guid; }

    /// Palettes only, during initialisation and before they are opened.
    host::ErrorCode RegisterPalette(host::PaletteRequestHandler handler);
    /// For good: closes the dialog without a message to the derived class, and gives the palette's registration back.
    void Release() noexcept;

    std::int16_t HandleDialogMessage(host::DialogMessage message, host::DialogId dialog, std::int16_t item,
                                     const host::DialogMessageData& data) final;

protected:
    /// Answers as DialogHandler; item 0 is the dialog itself.
    virtual std::int16_t HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                         const host::DialogMessageData& data) = 0;

    /// Answers the item that closed the dialog; 0, and nothing happens, while it is already open. A line in the host's
    /// report says when the host does not open it.
    std::int16_t RunModal();
    /// Whether the palette, which must be registered, is open now; a line in the host's report says when it is not.
    bool OpenAsPalette();
    void ClosePalette();
    host::Host& GetHost() const { return host; }

private:
    host::Host& host;
    std::int16_t resource;
    host::Guid guid;
    host::DialogId dialog;
    bool isRegistered = false;
    bool isReleased = false;
    bool wasOpened = false; ///< by the last RunModal
};

} // namespace General
