#include "src/LCASchema.h"

#include "src/LCAProjectDataStore.h"
#include "src/LCAProperties.h"
#include "src/TeamworkRights.h"

#include "host/Commands.h"

#include "src/Texts.h"

#include <algorithm>
#include <ctime>
#include <map>

namespace {

constexpr char SystemVersion[] = "26";

host::Date GetToday() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (const std::tm* time = std::localtime(&now)) local = *time;
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

/// Identifier of the group of this name; null where there is none.
host::ErrorCode FindPropertyGroup(host::Host& host, const std::string& name, host::Guid& guid) {
    guid = {};
    std::vector<host::PropertyGroup> groups;
    if (const host::ErrorCode error = host.GetProperties().ListGroups(groups)) return error;
    for (const host::PropertyGroup& group : groups)
        if (guid.IsNull() && group.name == name) guid = group.guid;
    return host::NoError;
}

/// One run over the schema. Each step answers the host's first error.
class SchemaBuilder {
public:
    explicit SchemaBuilder(host::Host& host) : host(host) {}

    host::ErrorCode Run() {
        if (const host::ErrorCode error = EnsureMaterialClassification()) return error;
        if (const host::ErrorCode error = CollectElementClassifications()) return error;
        if (const host::ErrorCode error = FindDefinitions(host, existing)) return error;
        for (const lca::PropertyKeyRow& row : lca::GetPropertyKeys())
            if (const host::ErrorCode error = RegisterDefinition(row.key)) return error;
        return host::NoError;
    }

private:
    host::ErrorCode EnsureMaterialClassification() {
        if (const host::ErrorCode error = FindMaterialClassification(host, material)) return error;
        host::Classifications& classifications = host.GetClassifications();
        if (material.system.IsNull()) {
            host::ClassificationSystem system{
                {}, ReadText(host, ResourceIds::Schema::ClassificationSystem), SystemVersion, GetToday()};
            if (const host::ErrorCode error = classifications.CreateSystem(system)) return error;
            material.system = system.guid;
        }
        if (!material.item.IsNull()) return host::NoError;
        const std::string name = ReadText(host, ResourceIds::Schema::BuildingMaterialsClass);
        host::ClassificationItem item{{}, name, name};
        const host::ErrorCode error = classifications.CreateRootItem(material.system, item);
        material.item = item.guid;
        return error;
    }

    /// Every item of every system but the add-on's own: whatever an element is classified as.
    host::ErrorCode CollectElementClassifications() {
        std::vector<host::ClassificationSystem> systems;
        if (const host::ErrorCode error = host.GetClassifications().ListSystems(systems)) return error;
        for (const host::ClassificationSystem& system : systems) {
            if (system.guid == material.system) continue;
            std::vector<host::ClassificationItem> items;
            if (const host::ErrorCode error = host.GetClassifications().ListRootItems(system.guid, items)) return error;
            if (const host::ErrorCode error = CollectWithChildren(items)) return error;
        }
        return host::NoError;
    }

    host::ErrorCode CollectWithChildren(std::vector<host::ClassificationItem> items) {
        while (!items.empty()) {
            const host::Guid item = items.back().guid;
            items.pop_back();
            elementItems.push_back(item);
            std::vector<host::ClassificationItem> children;
            if (const host::ErrorCode error = host.GetClassifications().ListChildItems(item, children)) return error;
            items.insert(items.end(), children.begin(), children.end());
        }
        return host::NoError;
    }

    host::ErrorCode RegisterDefinition(lca::PropertyKey key) {
        const std::vector<host::Guid> availability = GetAvailability(key);
        if (std::optional<host::PropertyDefinition>& marked = existing[static_cast<std::size_t>(key)])
            return MakeAvailable(*marked, availability);
        host::PropertyDefinition definition = BuildDefinition(host, static_cast<std::size_t>(key));
        if (lca::IsProjectKey(key)) definition.defaultValue = GetStoredDefault(key, lca::LCAProjectData());
        if (const host::ErrorCode error = EnsureGroup(key, definition.group)) return error;
        definition.availability = availability;
        bool isTakenOver = false;
        if (const host::ErrorCode error = TakeOverByName(definition, isTakenOver)) return error;
        return isTakenOver ? host.GetProperties().ChangeDefinition(definition)
                           : host.GetProperties().CreateDefinition(definition);
    }

    std::vector<host::Guid> GetAvailability(lca::PropertyKey key) const {
        const lca::KeyOwner owner = lca::GetRow(key).owner;
        if (owner == lca::KeyOwner::BuildingMaterial) return {material.item};
        return owner == lca::KeyOwner::Element ? elementItems : std::vector<host::Guid>();
    }

    host::ErrorCode MakeAvailable(host::PropertyDefinition& definition, const std::vector<host::Guid>& items) {
        const std::size_t before = definition.availability.size();
        for (const host::Guid& item : items)
            if (std::find(definition.availability.begin(), definition.availability.end(), item) ==
                definition.availability.end())
                definition.availability.push_back(item);
        return definition.availability.size() == before ? host::NoError
                                                        : host.GetProperties().ChangeDefinition(definition);
    }

    host::ErrorCode EnsureGroup(lca::PropertyKey key, host::Guid& guid) {
        constexpr ResourceIds::StringId Groups[] = {ResourceIds::Schema::MaterialGroup,
                                                    ResourceIds::Schema::ElementGroup,
                                                    ResourceIds::Schema::ProjectGroup}; // by owner
        const ResourceIds::StringId entry = Groups[static_cast<std::size_t>(lca::GetRow(key).owner)];
        host::Guid& known = groups[entry.entry];
        if (known.IsNull())
            if (const host::ErrorCode error = FindOrCreateGroup(ReadText(host, entry), known)) return error;
        guid = known;
        return host::NoError;
    }

    host::ErrorCode FindOrCreateGroup(const std::string& name, host::Guid& guid) {
        if (const host::ErrorCode error = FindPropertyGroup(host, name, guid)) return error;
        if (!guid.IsNull()) return host::NoError;
        host::PropertyGroup group{{}, name};
        const host::ErrorCode error = host.GetProperties().CreateGroup(group);
        guid = group.guid;
        return error;
    }

    /// A definition of the same name in the group is changed instead of copied; options of equal text keep their keys.
    host::ErrorCode TakeOverByName(host::PropertyDefinition& definition, bool& isTakenOver) {
        std::vector<host::PropertyDefinition> inGroup;
        if (const host::ErrorCode error = host.GetProperties().ListDefinitions(definition.group, inGroup)) return error;
        for (const host::PropertyDefinition& other : inGroup) {
            if (other.name != definition.name) continue;
            isTakenOver = true;
            definition.guid = other.guid;
            KeepOptionKeys(other, definition);
            KeepDefault(other, definition);
            return host::NoError;
        }
        return host::NoError;
    }

    static void KeepOptionKeys(const host::PropertyDefinition& from, host::PropertyDefinition& definition) {
        for (host::PropertyOption& option : definition.options)
            for (const host::PropertyOption& old : from.options)
                if (old.text == option.text) option.key = old.key;
        if (!definition.options.empty())
            definition.defaultValue = host::Variant::OfGuid(definition.options.front().key);
    }

    /// The project's settings are default values: what a definition says is the user's, whoever has lost its marker.
    static void KeepDefault(const host::PropertyDefinition& from, host::PropertyDefinition& definition) {
        const bool isOption =
            std::any_of(definition.options.begin(), definition.options.end(),
                        [&](const host::PropertyOption& option) { return option.key == from.defaultValue.guid; });
        if (from.defaultValue.type == definition.defaultValue.type && (definition.options.empty() || isOption))
            definition.defaultValue = from.defaultValue;
    }

    host::Host& host;
    MaterialClassification material;
    std::vector<host::Guid> elementItems;
    LCADefinitions existing;
    std::map<std::int16_t, host::Guid> groups;
};

} // namespace

host::ErrorCode FindMaterialClassification(host::Host& host, MaterialClassification& classification) {
    classification = {};
    std::vector<host::ClassificationSystem> systems;
    if (const host::ErrorCode error = host.GetClassifications().ListSystems(systems)) return error;
    const std::string systemName = ReadText(host, ResourceIds::Schema::ClassificationSystem);
    for (const host::ClassificationSystem& system : systems)
        if (classification.system.IsNull() && system.name == systemName) classification.system = system.guid;
    if (classification.system.IsNull()) return host::NoError;
    std::vector<host::ClassificationItem> items;
    if (const host::ErrorCode error = host.GetClassifications().ListRootItems(classification.system, items))
        return error;
    const std::string itemName = ReadText(host, ResourceIds::Schema::BuildingMaterialsClass);
    for (const host::ClassificationItem& item : items)
        if (classification.item.IsNull() && item.name == itemName) classification.item = item.guid;
    return host::NoError;
}

host::ErrorCode EnsureSchema(host::Host& host) {
    if (!CanChangeProperties(host)) return host::NoError;
    const std::string undoName = ReadText(host, ResourceIds::OwnTexts::SchemaUndoName);
    const host::ErrorCode error = host.GetUndoableCommands().Call(undoName, [&] { return SchemaBuilder(host).Run(); });
    return error == host::Errors::UndoEmpty ? host::NoError : error;
}
