// Base of every dialog and of the palette: resource, fixed identifier, the host's handle while open, and one item-event
// handler that derived classes override.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"

namespace General {

class CDialogBase : public host::DialogHandler {
public:
    /// guid is the dialog class's own, the key under which the host keeps size and position. The host outlives the
    /// dialog.
    CDialogBase(host::Host& host, std::int16_t resource, const char* guid);
    ~CDialogBase() override = default;
    CDialogBase(const CDialogBase&) = delete;
    CDialogBase& operator=(const CDialogBase&) = delete;

    bool IsOpen() const { return dialog.IsOpen(); }
    host::DialogId GetDialog() const { return dialog; }
    std::int16_t GetResource() const { return resource; }
    const host::Guid& GetGuid() const { return guid; }

    std::int16_t HandleDialogMessage(host::DialogMessage message, host::DialogId dialog, std::int16_t item,
                                     const host::DialogMessageData& data) final;

protected:
    /// Answers as DialogHandler; item 0 is the dialog itself.
    virtual std::int16_t HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                         const host::DialogMessageData& data) = 0;

    /// Answers the item that closed the dialog; 0, and nothing happens, while it is already open.
    std::int16_t RunModal();
    bool OpenAsPalette();
    void ClosePalette();
    host::Host& GetHost() const { return host; }

private:
    host::Host& host;
    std::int16_t resource;
    host::Guid guid;
    host::DialogId dialog;
};

} // namespace General
