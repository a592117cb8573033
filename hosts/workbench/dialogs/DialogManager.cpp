#include "workbench/dialogs/DialogManager.h"

#include <algorithm>

namespace workbench {

host::DialogId DialogManager::OpenPalette(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler) {
    const DialogState* dialog = dialogs.Add(resource, guid, handler);
    if (dialog == nullptr) return {};
    const host::DialogId id = dialog->id;
    Send(host::DialogMessage::Initialise, id, 0);
    return id;
}

void DialogManager::ClosePalette(host::DialogId dialog) {
    Send(host::DialogMessage::Close, dialog, 0);
    dialogs.Remove(dialog);
}

host::Size DialogManager::ReadSize(host::DialogId dialog) {
    const DialogState* state = dialogs.Find(dialog);
    return state == nullptr ? host::Size{} : state->size;
}

void DialogManager::SetMinimumSize(host::DialogId dialog, host::Size size) {
    if (DialogState* state = dialogs.Find(dialog)) state->minimumSize = size;
}

void DialogManager::BeginMoveGrow(host::DialogId dialog) {
    if (DialogState* state = dialogs.Find(dialog)) ++state->moveGrowDepth;
}

void DialogManager::EndMoveGrow(host::DialogId dialog) {
    if (DialogState* state = dialogs.Find(dialog)) --state->moveGrowDepth;
}

std::int16_t DialogManager::Show(const host::Alert& alert) {
    shownAlerts.push_back(alert);
    return alertAnswer ? alertAnswer(alert) : std::int16_t{1};
}

void DialogManager::WriteReport(const std::string& line) {
    if (reportSink) reportSink(line);
}

bool DialogManager::Press(host::DialogId dialog, std::int16_t item) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    if (state == nullptr || !state->isVisible || !state->isEnabled) return false;
    Send(host::DialogMessage::Click, dialog, item);
    return true;
}

void DialogManager::Resize(host::DialogId dialog, host::Size size) {
    DialogState* state = dialogs.Find(dialog);
    if (state == nullptr) return;
    state->size = {std::max(size.width, state->minimumSize.width), std::max(size.height, state->minimumSize.height)};
    Send(host::DialogMessage::Resize, dialog, 0);
}

void DialogManager::RequestClose(host::DialogId dialog) {
    Send(host::DialogMessage::CloseRequest, dialog, 0);
}

void DialogManager::DrawCell(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column,
                             host::NativeContext& context) {
    const ColumnState* state = dialogs.FindColumn(dialog, item, column);
    if (state == nullptr || !state->ownerDrawn || dialogs.FindRow(dialog, item, row) == nullptr) return;
    host::DialogMessageData data;
    data.row = row;
    data.column = column;
    data.area = {0, 0, static_cast<std::int16_t>(state->place.end - state->place.begin), RowHeight};
    data.context = &context;
    Send(host::DialogMessage::ListCellUpdate, dialog, item, data);
}

void DialogManager::Send(host::DialogMessage message, host::DialogId dialog, std::int16_t item,
                         const host::DialogMessageData& data) {
    if (const DialogState* state = dialogs.Find(dialog))
        state->handler->HandleDialogMessage(message, dialog, item, data);
}

} // namespace workbench
