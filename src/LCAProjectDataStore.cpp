#include "src/LCAProjectDataStore.h"

#include "src/LCAProperties.h"

#include "host/Commands.h"

#include "lca/RecordEncodings.h"
#include "src/Texts.h"

namespace {

lca::StoredValue ToStored(const host::PropertyDefinition& definition) {
    const host::Variant& value = definition.defaultValue;
    return {value.integer, value.real, value.text, definition.description};
}

host::Variant ToVariant(lca::PropertyKey key, const lca::StoredValue& stored) {
    switch (lca::GetStoredKind(key)) {
    case lca::StoredKind::Integer:
        return host::Variant::OfInteger(stored.integer);
    case lca::StoredKind::Real:
        return host::Variant::OfReal(stored.real);
    case lca::StoredKind::Text:
        break;
    }
    return host::Variant::OfText(stored.text);
}

/// Sets default and unit marker; answers whether anything differs.
bool TakeRecord(lca::PropertyKey key, const lca::LCAProjectData& record, host::PropertyDefinition& definition) {
    lca::StoredValue stored = ToStored(definition);
    lca::WriteStoredValue(key, record, stored);
    const host::Variant value = ToVariant(key, stored);
    if (value == definition.defaultValue && stored.description == definition.description) return false;
    definition.defaultValue = value;
    definition.description = stored.description;
    return true;
}

host::ErrorCode CollectChanges(host::Host& host, const lca::LCAProjectData& record,
                               std::vector<host::PropertyDefinition>& changed) {
    LCADefinitions definitions;
    if (const host::ErrorCode error = FindDefinitions(host, definitions)) return error;
    host::Guid group;
    const std::string name = ReadText(host, ResourceIds::Schema::ProjectGroup);
    if (const host::ErrorCode error = FindPropertyGroup(host, name, group)) return error;
    for (std::size_t i = lca::FirstProjectKey; i < lca::PropertyKeyCount; ++i) {
        std::optional<host::PropertyDefinition>& definition = definitions[i];
        if (!definition || group.IsNull() || definition->group != group) continue;
        if (TakeRecord(static_cast<lca::PropertyKey>(i), record, *definition)) changed.push_back(*definition);
    }
    return host::NoError;
}

} // namespace

host::Variant GetStoredDefault(lca::PropertyKey key, const lca::LCAProjectData& record) {
    lca::StoredValue stored;
    lca::WriteStoredValue(key, record, stored);
    return ToVariant(key, stored);
}

host::ErrorCode FindPropertyGroup(host::Host& host, const std::string& name, host::Guid& guid) {
    guid = {};
    std::vector<host::PropertyGroup> groups;
    if (const host::ErrorCode error = host.GetProperties().ListGroups(groups)) return error;
    for (const host::PropertyGroup& group : groups)
        if (guid.IsNull() && group.name == name) guid = group.guid;
    return host::NoError;
}

host::ErrorCode LoadProjectData(host::Host& host, lca::LCAProjectData& record) {
    lca::BeginLoad(record);
    std::vector<host::PropertyGroup> groups;
    if (const host::ErrorCode error = host.GetProperties().ListGroups(groups)) return error;
    for (const host::PropertyGroup& group : groups) {
        std::vector<host::PropertyDefinition> definitions;
        if (const host::ErrorCode error = host.GetProperties().ListDefinitions(group.guid, definitions)) return error;
        for (const host::PropertyDefinition& definition : definitions) {
            const std::optional<lca::PropertyKey> key = lca::FindMarker(definition.description);
            if (key && lca::IsProjectKey(*key)) lca::ReadStoredValue(*key, ToStored(definition), record);
        }
    }
    return host::NoError;
}

host::ErrorCode StoreProjectData(host::Host& host, const lca::LCAProjectData& record) {
    std::vector<host::PropertyDefinition> changed;
    if (const host::ErrorCode error = CollectChanges(host, record, changed)) return error;
    if (changed.empty()) return host::NoError;
    const std::string undoName = ReadText(host, ResourceIds::OwnTexts::RecordUndoName);
    return host.GetUndoableCommands().Call(undoName, [&] {
        for (const host::PropertyDefinition& definition : changed)
            if (const host::ErrorCode error = host.GetProperties().ChangeDefinition(definition)) return error;
        return host::NoError;
    });
}
