#include "General/AnchoredDialog.h"

namespace General {

std::int16_t AnchoredDialog::HandleItemEvent(host::DialogMessage message, std::int16_t item,
                                             const host::DialogMessageData& data) {
    switch (message) {
    case host::DialogMessage::Initialise:
        OnInitialise();
        anchoring.RegisterAll(GetDialog(), layout.anchors, layout.anchorCount, layout.minimumSize);
        break;
    case host::DialogMessage::Click:
        return OnClick(item, data);
    case host::DialogMessage::DoubleClick:
        OnDoubleClick(item, data);
        break;
    case host::DialogMessage::Change:
        OnChange(item);
        break;
    case host::DialogMessage::ListCellUpdate:
        OnCell(item, data);
        break;
    case host::DialogMessage::UserItemUpdate:
        if (data.context != nullptr) OnDraw(item, data);
        break;
    case host::DialogMessage::Resize:
        Resize();
        break;
    case host::DialogMessage::CloseRequest:
        OnCloseRequest();
        break;
    case host::DialogMessage::Close:
        anchoring.Reset();
        OnClose();
        break;
    }
    return 0;
}

void AnchoredDialog::Resize() {
    host::Dialogs& dialogs = GetHost().GetDialogs();
    host::DialogItems& items = GetHost().GetDialogItems();
    dialogs.BeginMoveGrow(GetDialog());
    for (const std::int16_t item : layout.drawnItems)
        items.EnableDrawing(GetDialog(), item, false);
    anchoring.Apply(GetDialog());
    for (const std::int16_t item : layout.drawnItems)
        items.EnableDrawing(GetDialog(), item, true);
    OnResize();
    dialogs.EndMoveGrow(GetDialog());
    for (const std::int16_t item : layout.drawnItems)
        items.Redraw(GetDialog(), item);
}

} // namespace General
