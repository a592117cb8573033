#include "workbench/dialogs/DialogState.h"

#include <algorithm>

namespace workbench {

namespace {

host::Rectangle ToRectangle(const Resources::Rectangle& rectangle) {
    return {static_cast<std::int16_t>(rectangle.left), static_cast<std::int16_t>(rectangle.top),
            static_cast<std::int16_t>(rectangle.width), static_cast<std::int16_t>(rectangle.height)};
}

ItemState CreateItem(const Resources::DialogItem& source) {
    ItemState item;
    item.kind = source.kind;
    item.rectangle = ToRectangle(source.rectangle);
    item.text = std::string(source.text);
    item.icon = static_cast<std::int16_t>(source.iconId.value_or(0));
    for (const Resources::PopupEntry& entry : source.entries)
        item.popUpTexts.emplace_back(entry.text);
    item.selectedEntry = item.popUpTexts.empty() ? 0 : 1;
    item.maximumLength = static_cast<std::size_t>(source.maxLength.value_or(0));
    return item;
}

} // namespace

DialogState* OpenDialogs::Add(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler) {
    const Resources::DialogLayout* layout = Resources::FindDialog(resource);
    if (layout == nullptr) return nullptr;
    const host::DialogId id{++lastId};
    DialogState& dialog = dialogs[id.value];
    dialog.id = id;
    dialog.resource = resource;
    dialog.guid = guid;
    dialog.title = std::string(layout->title);
    dialog.size = {static_cast<std::int16_t>(layout->rectangle.width),
                   static_cast<std::int16_t>(layout->rectangle.height)};
    dialog.handler = &handler;
    for (const Resources::DialogItem& item : layout->items)
        dialog.items.push_back(CreateItem(item));
    return &dialog;
}

void OpenDialogs::Remove(host::DialogId dialog) {
    dialogs.erase(dialog.value);
}

DialogState* OpenDialogs::Find(host::DialogId dialog) {
    const auto found = dialogs.find(dialog.value);
    return found == dialogs.end() ? nullptr : &found->second;
}

DialogState* OpenDialogs::FindByResource(std::int16_t resource) {
    for (auto& [id, dialog] : dialogs)
        if (dialog.resource == resource) return &dialog;
    return nullptr;
}

std::vector<host::DialogId> OpenDialogs::List() const {
    std::vector<host::DialogId> list;
    for (const auto& [id, dialog] : dialogs)
        list.push_back({id});
    return list;
}

ItemState* OpenDialogs::FindItem(host::DialogId dialog, std::int16_t item) {
    DialogState* state = Find(dialog);
    if (state == nullptr || item < 1 || static_cast<std::size_t>(item) > state->items.size()) return nullptr;
    return &state->items[static_cast<std::size_t>(item - 1)];
}

bool OpenDialogs::HasModal() const {
    return std::any_of(dialogs.begin(), dialogs.end(), [](const auto& entry) { return entry.second.isModal; });
}

void OpenDialogs::Paint(host::DialogId dialog, std::int16_t item) {
    const DialogState* owner = Find(dialog);
    ItemState* state = FindItem(dialog, item);
    if (state == nullptr) return;
    state->isPaintingDue = !isPainting || owner->isHiddenByHost || !state->isVisible;
    if (state->isPaintingDue) return;
    RecordedContext context;
    host::DialogMessageData data;
    data.area = {0, 0, state->rectangle.width, state->rectangle.height};
    data.background = state->background;
    data.context = &context;
    owner->handler->HandleDialogMessage(host::DialogMessage::UserItemUpdate, dialog, item, data);
    if (ItemState* drawn = FindItem(dialog, item)) drawn->drawing = std::move(context.calls);
}

RowState* OpenDialogs::FindRow(host::DialogId dialog, std::int16_t item, std::int32_t row) {
    ItemState* state = FindItem(dialog, item);
    if (state == nullptr || row < 1 || static_cast<std::size_t>(row) > state->list.rows.size()) return nullptr;
    return &state->list.rows[static_cast<std::size_t>(row - 1)];
}

CellState* OpenDialogs::FindCell(host::DialogId dialog, std::int16_t item, std::int32_t row, std::int16_t column) {
    RowState* state = FindRow(dialog, item, row);
    if (state == nullptr || column < 1 || static_cast<std::size_t>(column) > state->cells.size()) return nullptr;
    return &state->cells[static_cast<std::size_t>(column - 1)];
}

ColumnState* OpenDialogs::FindColumn(host::DialogId dialog, std::int16_t item, std::int16_t column) {
    ItemState* state = FindItem(dialog, item);
    if (state == nullptr || column < 1 || static_cast<std::size_t>(column) > state->list.columns.size()) return nullptr;
    return &state->list.columns[static_cast<std::size_t>(column - 1)];
}

} // namespace workbench
