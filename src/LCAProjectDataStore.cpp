#include "src/LCAProjectDataStore.h"

#include "src/LCAProperties.h"

#include "General/HostReport.h"
#include "host/Commands.h"

#include "lca/RecordChanges.h"
#include "lca/RecordEncodings.h"
#include "src/Texts.h"

namespace {

/// Sets default and unit marker where they differ between the two records; answers whether they do.
bool TakeChange(const lca::PropertyKeyRow& row, const lca::LCAProjectData& before, const lca::LCAProjectData& after,
                host::PropertyDefinition& definition) {
    const lca::StoredValue stored = row.encode(after);
    const std::string description = lca::WriteDescription(row.key, after, definition.description);
    if (row.encode(before) == stored && lca::WriteDescription(row.key, before, definition.description) == description)
        return false;
    definition.defaultValue = host::Variant::OfPlain(stored);
    definition.description = description;
    return true;
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
        const std::optional<lca::StoredValue> value = definition.defaultValue.GetPlain();
        if (!value || !lca::ReadStoredValue(key, *value, definition.description, loaded))
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
    for (const lca::PropertyKeyRow& row : lca::GetPropertyKeys()) {
        std::optional<host::PropertyDefinition>& definition = stored[static_cast<std::size_t>(row.key)];
        if (definition && TakeChange(row, before, after, *definition)) changed.push_back(*definition);
    }
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
    return host::Variant::OfPlain(lca::GetRow(key).encode(record));
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
