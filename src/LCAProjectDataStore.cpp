#include "src/LCAProjectDataStore.h"

#include "src/LCAProperties.h"

#include "General/CallbackGuard.h"
#include "host/Commands.h"

#include "lca/RecordChanges.h"
#include "lca/RecordEncodings.h"
#include "src/Texts.h"

#include <cmath>

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

/// Sets default and unit marker where they differ between the two records; answers whether they do.
bool TakeChange(lca::PropertyKey key, const lca::LCAProjectData& before, const lca::LCAProjectData& after,
                host::PropertyDefinition& definition) {
    lca::StoredValue former = ToStored(definition);
    lca::StoredValue stored = former;
    lca::WriteStoredValue(key, before, former);
    lca::WriteStoredValue(key, after, stored);
    if (ToVariant(key, former) == ToVariant(key, stored) && former.description == stored.description) return false;
    definition.defaultValue = ToVariant(key, stored);
    definition.description = stored.description;
    return true;
}

host::ErrorCode StoreChanges(host::Host& host, const lca::LCAProjectData& before, const lca::LCAProjectData& after) {
    LCADefinitions definitions;
    if (const host::ErrorCode error = FindDefinitions(host, definitions)) return error;
    host::Guid group;
    const std::string name = ReadText(host, ResourceIds::Schema::ProjectGroup);
    if (const host::ErrorCode error = FindPropertyGroup(host, name, group)) return error;
    std::vector<host::PropertyDefinition> changed;
    for (std::size_t i = lca::FirstProjectKey; i < lca::PropertyKeyCount; ++i) {
        std::optional<host::PropertyDefinition>& definition = definitions[i];
        if (!definition || group.IsNull() || definition->group != group) continue;
        if (TakeChange(static_cast<lca::PropertyKey>(i), before, after, *definition)) changed.push_back(*definition);
    }
    if (changed.empty()) return host::NoError;
    const std::string undoName = ReadText(host, ResourceIds::OwnTexts::RecordUndoName);
    return host.GetUndoableCommands().Call(undoName, [&] {
        for (const host::PropertyDefinition& definition : changed)
            if (const host::ErrorCode error = host.GetProperties().ChangeDefinition(definition)) return error;
        return host::NoError;
    });
}

/// A default of another kind, none at all, or a number that is none.
bool HasUsableDefault(lca::PropertyKey key, const host::PropertyDefinition& definition) {
    return definition.defaultValue.type == ToVariant(key, {}).type && std::isfinite(definition.defaultValue.real);
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
    lca::LCAProjectData loaded = record;
    lca::BeginLoad(loaded);
    std::string unusable;
    std::vector<host::PropertyGroup> groups;
    if (const host::ErrorCode error = host.GetProperties().ListGroups(groups)) return error;
    for (const host::PropertyGroup& group : groups) {
        std::vector<host::PropertyDefinition> definitions;
        if (const host::ErrorCode error = host.GetProperties().ListDefinitions(group.guid, definitions)) return error;
        for (const host::PropertyDefinition& definition : definitions) {
            const std::optional<lca::PropertyKey> key = lca::FindMarker(definition.description);
            if (!key || !lca::IsProjectKey(*key)) continue;
            if (HasUsableDefault(*key, definition))
                lca::ReadStoredValue(*key, ToStored(definition), loaded);
            else
                unusable += (unusable.empty() ? "" : ", ") + definition.name;
        }
    }
    if (!unusable.empty())
        General::ReportFailure(&host, "loading the project settings",
                               ("no usable default value, the former one stays: " + unusable).c_str());
    record = std::move(loaded);
    return host::NoError;
}

host::ErrorCode ChangeProjectData(host::Host& host, lca::LCAProjectData& record,
                                  const std::function<void(lca::LCAProjectData&)>& change) {
    lca::LCAProjectData present = record;
    if (const host::ErrorCode error = LoadProjectData(host, present)) return error;
    lca::LCAProjectData changed = present;
    change(changed);
    if (!lca::IsFinite(changed)) return host::Errors::BadValue;
    if (const host::ErrorCode error = StoreChanges(host, present, changed)) return error;
    record = std::move(changed);
    return host::NoError;
}
