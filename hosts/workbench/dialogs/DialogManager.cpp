#include "workbench/dialogs/DialogManager.h"

#include "lca/Numbers.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cmath>

namespace workbench {

namespace {

constexpr std::int16_t CancelItem = 2;

bool IsWholeNumber(const std::string& text) {
    const std::optional<double> value = lca::ParseDecimal(text);
    return value && *value == std::trunc(*value) && lca::ParseWholeNumber(text);
}

} // namespace

host::ErrorCode DialogManager::RegisterPalette(std::int16_t resource, const host::Guid& palette,
                                               host::PaletteRequestHandler handler) {
    if (mayRegisterPalettes && !mayRegisterPalettes()) return host::Errors::RefusedCommand;
    return palettes.try_emplace(palette, Palette{resource, handler}).second ? host::NoError : host::Errors::BadId;
}

host::ErrorCode DialogManager::UnregisterPalette(const host::Guid& palette) {
    return palettes.erase(palette) == 1 ? host::NoError : host::Errors::BadId;
}

host::DialogId DialogManager::OpenPalette(const host::Guid& palette, host::DialogHandler& handler) {
    const auto registered = palettes.find(palette);
    if (registered == palettes.end()) return {};
    const DialogState* dialog = dialogs.Add(registered->second.resource, palette, handler);
    if (dialog == nullptr) return {};
    const host::DialogId id = dialog->id;
    Send(host::DialogMessage::Initialise, id, 0);
    return id;
}

std::int16_t DialogManager::RunModal(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler) {
    DialogState* dialog = dialogs.Add(resource, guid, handler);
    if (dialog == nullptr) return 0;
    dialog->isModal = true;
    const host::DialogId id = dialog->id;
    Send(host::DialogMessage::Initialise, id, 0);
    if (modalUser) modalUser(id);
    RequestClose(id);
    dialog = dialogs.Find(id);
    if (dialog == nullptr) return 0;
    const std::int16_t closedBy = dialog->closedBy;
    Send(host::DialogMessage::Close, id, 0);
    dialogs.Remove(id);
    return closedBy;
}

void DialogManager::Close(host::DialogId dialog) {
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

host::ErrorCode DialogManager::RequestPalette(const host::Guid& palette) {
    const auto registered = palettes.find(palette);
    return registered == palettes.end() ? host::Errors::BadId : registered->second.handler(palette);
}

void DialogManager::ShowPalettes(bool shown) {
    for (const host::DialogId id : dialogs.List()) {
        DialogState* dialog = dialogs.Find(id);
        if (dialog == nullptr || dialog->isModal) continue;
        dialog->isHiddenByHost = !shown;
        for (std::size_t i = 0; shown && dialog != nullptr && i < dialog->items.size(); ++i, dialog = dialogs.Find(id))
            if (dialog->items[i].isPaintingDue) dialogs.Paint(id, static_cast<std::int16_t>(i + 1));
    }
}

void DialogManager::EnablePalettes(bool enabled) {
    for (const host::DialogId id : dialogs.List())
        if (DialogState* dialog = dialogs.Find(id); !dialog->isModal) dialog->isDisabledByHost = !enabled;
}

bool DialogManager::Press(host::DialogId dialog, std::int16_t item) {
    if (FindUsable(dialog, item) == nullptr) return false;
    const std::int16_t answer = Send(host::DialogMessage::Click, dialog, item);
    DialogState* state = dialogs.Find(dialog);
    if (state != nullptr && state->isModal && answer != 0) state->closedBy = answer;
    return true;
}

bool DialogManager::Type(host::DialogId dialog, std::int16_t item, const std::string& text) {
    ItemState* state = FindUsable(dialog, item);
    return state != nullptr && TypeInto(dialog, item, *state, text);
}

bool DialogManager::TypeIntoCell(host::DialogId dialog, std::int16_t list, std::int16_t column,
                                 const std::string& text) {
    const ItemState* listState = FindUsable(dialog, list);
    const ColumnState* place = dialogs.FindColumn(dialog, list, column);
    if (listState == nullptr || place == nullptr || listState->list.selected.empty()) return false;
    ItemState* editor = dialogs.FindItem(dialog, place->editor);
    return editor != nullptr && editor->isEnabled && TypeInto(dialog, place->editor, *editor, text);
}

bool DialogManager::Toggle(host::DialogId dialog, std::int16_t item) {
    ItemState* state = FindUsable(dialog, item);
    if (state == nullptr || state->kind != Resources::ItemKind::CheckBox) return false;
    state->isChecked = !state->isChecked;
    Send(host::DialogMessage::Change, dialog, item);
    return true;
}

bool DialogManager::Choose(host::DialogId dialog, std::int16_t item, std::int16_t entry) {
    ItemState* state = FindUsable(dialog, item);
    if (state == nullptr || entry < 1 || static_cast<std::size_t>(entry) > state->popUpTexts.size()) return false;
    state->selectedEntry = entry;
    Send(host::DialogMessage::Change, dialog, item);
    return true;
}

bool DialogManager::SelectRows(host::DialogId dialog, std::int16_t list, const std::vector<std::int32_t>& rows) {
    ItemState* state = FindUsable(dialog, list);
    if (state == nullptr) return false;
    std::set<std::int32_t> selected;
    for (const std::int32_t row : rows) {
        const RowState* rowState = dialogs.FindRow(dialog, list, row);
        if (rowState == nullptr || rowState->status != host::RowStatus::Normal) continue;
        if (state->kind == Resources::ItemKind::MultiSelList || selected.empty()) selected.insert(row);
    }
    state->list.selected = std::move(selected);
    Send(host::DialogMessage::Change, dialog, list);
    return true;
}

bool DialogManager::ClickCell(host::DialogId dialog, std::int16_t list, std::int32_t row, std::int16_t column) {
    return SendCellClick(host::DialogMessage::Click, dialog, list, row, column);
}

bool DialogManager::DoubleClickCell(host::DialogId dialog, std::int16_t list, std::int32_t row, std::int16_t column) {
    return SendCellClick(host::DialogMessage::DoubleClick, dialog, list, row, column);
}

void DialogManager::Resize(host::DialogId dialog, host::Size size) {
    DialogState* state = dialogs.Find(dialog);
    if (state == nullptr) return;
    state->size = {std::max(size.width, state->minimumSize.width), std::max(size.height, state->minimumSize.height)};
    Send(host::DialogMessage::Resize, dialog, 0);
}

void DialogManager::RequestClose(host::DialogId dialog) {
    const DialogState* open = dialogs.Find(dialog);
    if (open == nullptr || open->closedBy != 0) return;
    Send(host::DialogMessage::CloseRequest, dialog, 0);
    // A palette may be gone by now.
    DialogState* state = dialogs.Find(dialog);
    if (state != nullptr && state->isModal) state->closedBy = CancelItem;
}

void DialogManager::DrawUserItem(host::DialogId dialog, std::int16_t item, host::NativeContext& context) {
    const ItemState* state = dialogs.FindItem(dialog, item);
    if (state == nullptr || state->kind != Resources::ItemKind::UserItem) return;
    host::DialogMessageData data;
    data.area = {0, 0, state->rectangle.width, state->rectangle.height};
    data.background = state->background;
    data.context = &context;
    Send(host::DialogMessage::UserItemUpdate, dialog, item, data);
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

std::int16_t DialogManager::Send(host::DialogMessage message, host::DialogId dialog, std::int16_t item,
                                 const host::DialogMessageData& data) {
    const DialogState* state = dialogs.Find(dialog);
    return state == nullptr ? std::int16_t{0} : state->handler->HandleDialogMessage(message, dialog, item, data);
}

ItemState* DialogManager::FindUsable(host::DialogId dialog, std::int16_t item) {
    const DialogState* state = dialogs.Find(dialog);
    ItemState* found = dialogs.FindItem(dialog, item);
    const bool isUsable = found != nullptr && state->closedBy == 0 && !state->isHiddenByHost &&
                          !state->isDisabledByHost && found->isVisible && found->isEnabled;
    return isUsable ? found : nullptr;
}

bool DialogManager::TypeInto(host::DialogId dialog, std::int16_t item, ItemState& state, const std::string& text) {
    switch (state.kind) {
    case Resources::ItemKind::TextEdit:
        state.text = state.maximumLength == 0 ? text : std::string(utf8::CutToCharacters(text, state.maximumLength));
        break;
    case Resources::ItemKind::RealEdit:
        if (!lca::ParseDecimal(text)) return false;
        state.text = text;
        break;
    case Resources::ItemKind::IntEdit:
    case Resources::ItemKind::PosIntEdit:
        if (!IsWholeNumber(text)) return false;
        state.text = text;
        break;
    default:
        return false;
    }
    Send(host::DialogMessage::Change, dialog, item);
    return true;
}

bool DialogManager::SendCellClick(host::DialogMessage message, host::DialogId dialog, std::int16_t list,
                                  std::int32_t row, std::int16_t column) {
    const ItemState* state = FindUsable(dialog, list);
    const RowState* rowState = dialogs.FindRow(dialog, list, row);
    if (state == nullptr || rowState == nullptr || rowState->isSeparator) return false;
    const bool isSelected = state->list.selected.size() == 1 && state->list.selected.count(row) == 1;
    if (rowState->status == host::RowStatus::Normal && !isSelected) SelectRows(dialog, list, {row});
    host::DialogMessageData data;
    data.row = row;
    data.column = column;
    Send(message, dialog, list, data);
    return true;
}

} // namespace workbench
