#include "resources/ResourceData.h"

#include "resources/ResourceTables.h"

namespace Resources {
namespace {

template <class Element>
const Element* FindById(const ConstantList<Element>& table, int id) {
    for (const Element& element : table)
        if (element.id == id) return &element;
    return nullptr;
}

} // namespace

const StringList* FindStringList(int id) {
    return FindById(StringListsTable, id);
}

const DialogLayout* FindDialog(int id) {
    return FindById(DialogsTable, id);
}

const Icon* FindIcon(int id) {
    return FindById(IconsTable, id);
}

std::string_view String(int list, int entry) {
    const StringList* strings = FindStringList(list);
    const bool present = strings != nullptr && entry >= 1 && static_cast<std::size_t>(entry) <= strings->entries.size();
    return present ? strings->entries[static_cast<std::size_t>(entry) - 1] : std::string_view();
}

std::string_view String(ResourceIds::StringId id) {
    return String(id.list, id.entry);
}

ModuleId OwnModuleId() {
    return StoredModuleId;
}

ConstantList<StringList> AllStringLists() {
    return StringListsTable;
}

ConstantList<DialogLayout> AllDialogs() {
    return DialogsTable;
}

ConstantList<Icon> AllIcons() {
    return IconsTable;
}

} // namespace Resources
