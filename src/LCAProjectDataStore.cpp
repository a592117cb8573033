#include "src/LCAProjectDataStore.h"

#include "src/LCAProperties.h"

#include "General/HostReport.h"
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

/// A default of another kind, none at all, or a number that is none.
bool HasUsableDefault(lca::PropertyKey key, const host::PropertyDefinition& definition) {
    return definition.defaultValue.type == ToVariant(key, {}).type && std::isfinite(definition.defaultValue.real);
}

/// Takes the model's state into the record, and the definitions in which changes of it are stored: of each key the
/// first that stands in the project group. One walk does both; an edit in the palette costs no second one.
host::ErrorCode ReadRecord(host::Host& host, lca::LCAProjectData& record, LCADefinitions& stored) {
    lca::LCAProjectData loaded = record;
    lca::BeginLoad(loaded);
    std::string unusable;
    const std::string projectGroup = ReadText(host, ResourceIds::Schema::ProjectGroup);
    const auto take = [&](lca::PropertyKey key, host::PropertyDefinition& definition,
                          const host::PropertyGroup& group) {
        if (!lca::IsProjectKey(key)) return;
        if (HasUsableDefault(key, definition))
            lca::ReadStoredValue(key, ToStored(definition), loaded);
        else
            unusable += (unusable.empty() ? "" : ", ") + definition.name;
        std::optional<host::PropertyDefinition>& slot = stored[static_cast<std::size_t>(key)];
        if (!slot && group.name == projectGroup) slot = std::move(definition);
    };
    if (const host::ErrorCode error = WalkDefinitions(host, take)) return error;
    if (!unusable.empty())
        General::ReportFailure(&host, "loading the project settings",
                               ("no usable default value, the former one stays: " + unusable).c_str());
    record = std::move(loaded);
    return host::NoError;
}

host::ErrorCode StoreChanges(host::Host& host, const lca::LCAProjectData& before, const lca::LCAProjectData& after,
                             LCADefinitions& stored) {
    std::vector<host::PropertyDefinition> changed;
    for (std::size_t i = lca::FirstProjectKey; i < lca::PropertyKeyCount; ++i)
        if (stored[i] && TakeChange(static_cast<lca::PropertyKey>(i), before, after, *stored[i]))
            changed.push_back(*stored[i]);
    if (changed.empty()) return host::NoError;
    const std::string undoName = ReadText(host, ResourceIds::OwnTexts::RecordUndoName);
    return host.GetUndoableCommands().Call(undoName, [&] {
        for (const host::PropertyDefinition& definition : changed)
            if (const host::ErrorCode error = host.GetProperties().ChangeDefinition(definition)) return error;
        return host::NoError;
    });
}

} // namespace

host::Variant GetStoredDefault(lca::PropertyKey key, const lca::LCAProjectData& record) {
    lca::StoredValue stored;
    lca::WriteStoredValue(key, record, stored);
    return ToVariant(key, stored);
}

host::ErrorCode LoadProjectData(host::Host& host, lca::LCAProjectData& record) {
    LCADefinitions stored;
    return ReadRecord(host, record, stored);
}

host::ErrorCode ChangeProjectData(host::Host& host, lca::LCAProjectData& record,
                                  const std::function<void(lca::LCAProjectData&)>& change) {
    lca::LCAProjectData present = record;
    LCADefinitions stored;
    if (const host::ErrorCode error = ReadRecord(host, present, stored)) return error;
    lca::LCAProjectData changed = present;
    change(changed);
    if (!lca::IsFinite(changed)) return host::Errors::BadValue;
    if (const host::ErrorCode error = StoreChanges(host, present, changed, stored)) return error;
    record = std::move(changed);
    return host::NoError;
}
