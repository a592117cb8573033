#include "workbench/host/PropertyRoles.h"

#include "workbench/model/NewProject.h"

#include <algorithm>

namespace workbench {

namespace {

template <typename List, typename Matches>
auto FindIn(const List& list, Matches matches) -> decltype(list.data()) {
    const auto found = std::find_if(list.begin(), list.end(), matches);
    return found == list.end() ? nullptr : &*found;
}

bool HasItem(const std::vector<host::Guid>& availability, const host::Guid& item) {
    return std::find(availability.begin(), availability.end(), item) != availability.end();
}

/// What a thing without an own value has.
host::Variant GetUnset(const host::PropertyDefinition& definition) {
    if (definition.defaultValue.type != host::ValueType::None) return definition.defaultValue;
    if (definition.collection == host::CollectionType::SingleChoice && !definition.options.empty())
        return host::Variant::OfGuid(definition.options.front().key);
    return {}; // there is a value, and it is none
}

bool FitsDefinition(const host::Variant& value, const host::PropertyDefinition& definition) {
    if (definition.collection != host::CollectionType::SingleChoice) return value.type == definition.valueType;
    return value.type == host::ValueType::Guid &&
           FindIn(definition.options, [&](const host::PropertyOption& option) { return option.key == value.guid; });
}

host::PropertyValue MakeValue(const host::PropertyDefinition& definition, const host::Variant& unset,
                              const Model::Values* own) {
    host::PropertyValue value{definition.guid, host::PropertyStatus::HasValue, true, {}};
    if (own != nullptr)
        if (const auto found = own->find(definition.guid); found != own->end()) {
            value.isDefault = false;
            value.value = found->second;
            return value;
        }
    value.value = unset;
    return value;
}

} // namespace

host::ErrorCode PropertiesRole::ListGroups(std::vector<host::PropertyGroup>& groups) {
    if (project == nullptr) return host::Errors::NoProject;
    groups = project->model.GetGroups();
    return host::NoError;
}

host::ErrorCode PropertiesRole::CreateGroup(host::PropertyGroup& group) {
    if (const host::ErrorCode error = access.Check(host::ClassificationsAndPropertiesSet)) return error;
    if (group.name.empty()) return host::Errors::BadName;
    if (FindIn(project->model.GetGroups(), [&](const host::PropertyGroup& other) { return other.name == group.name; }))
        return host::Errors::NameAlreadyUsed;
    group.guid = host::CreateGuid();
    project->Record({{}, group});
    return host::NoError;
}

host::ErrorCode PropertiesRole::ListDefinitions(const host::Guid& group,
                                                std::vector<host::PropertyDefinition>& definitions) {
    if (project == nullptr) return host::Errors::NoProject;
    definitions.clear();
    for (const host::PropertyDefinition& definition : project->model.GetDefinitions())
        if (definition.group == group) definitions.push_back(definition);
    return host::NoError;
}

host::ErrorCode PropertiesRole::CreateDefinition(host::PropertyDefinition& definition) {
    if (const host::ErrorCode error = access.Check(host::ClassificationsAndPropertiesSet)) return error;
    definition.guid = host::CreateGuid();
    if (const host::ErrorCode error = CheckDefinition(definition)) return error;
    project->Record({{}, definition});
    return host::NoError;
}

host::ErrorCode PropertiesRole::ChangeDefinition(const host::PropertyDefinition& definition) {
    if (const host::ErrorCode error = access.Check(host::ClassificationsAndPropertiesSet)) return error;
    const host::PropertyDefinition* old = project->model.FindDefinition(definition.guid);
    if (old == nullptr) return host::Errors::BadId;
    if (const host::ErrorCode error = CheckDefinition(definition)) return error;
    if (!(*old == definition)) project->Record({*old, definition});
    return host::NoError;
}

host::ErrorCode PropertiesRole::CheckDefinition(const host::PropertyDefinition& definition) const {
    const Model& model = project->model;
    if (definition.name.empty()) return host::Errors::BadName;
    if (definition.valueType == host::ValueType::None) return host::Errors::BadParameters;
    if (!FindIn(model.GetGroups(), [&](const host::PropertyGroup& group) { return group.guid == definition.group; }))
        return host::Errors::BadId;
    for (const host::PropertyDefinition& other : model.GetDefinitions())
        if (other.guid != definition.guid && other.group == definition.group && other.name == definition.name)
            return host::Errors::NameAlreadyUsed;
    for (const host::Guid& item : definition.availability)
        if (!FindIn(model.GetItems(), [&](const ClassificationItem& one) { return one.item.guid == item; }))
            return host::Errors::BadId;
    const bool isChoice = definition.collection == host::CollectionType::SingleChoice;
    if (isChoice == definition.options.empty()) return host::Errors::BadParameters;
    if (definition.defaultValue.type != host::ValueType::None && !FitsDefinition(definition.defaultValue, definition))
        return host::Errors::BadValue;
    return host::NoError;
}

void PropertiesRole::LookUp(const std::vector<host::Guid>& definitions) {
    const std::uint64_t revision = project->model.GetSchemaRevision();
    if (askedRevision == revision && askedGuids == definitions) return;
    askedRevision = revision;
    askedGuids = definitions;
    asked.clear();
    hasLastAvailable = false;
    for (const host::Guid& guid : definitions) {
        Asked one{project->model.FindDefinition(guid), {}};
        if (one.definition != nullptr) one.unset = GetUnset(*one.definition);
        asked.push_back(std::move(one));
    }
}

bool PropertiesRole::IsAvailable(std::size_t position, const host::Guid& classification) {
    if (!hasLastAvailable || lastClassification != classification) {
        lastAvailable.clear();
        for (const Asked& one : asked)
            lastAvailable.push_back(one.definition != nullptr && HasItem(one.definition->availability, classification));
        lastClassification = classification;
        hasLastAvailable = true;
    }
    return lastAvailable[position];
}

host::ErrorCode PropertiesRole::ReadElementValues(const host::Guid& element, const std::vector<host::Guid>& definitions,
                                                  std::vector<host::PropertyValue>& values) {
    if (project == nullptr) return host::Errors::NoProject;
    const Model& model = project->model;
    const std::uint32_t position = model.FindElement(element);
    if (position == ElementIndex::NotFound) return host::Errors::BadId;
    LookUp(definitions);
    if (std::any_of(asked.begin(), asked.end(), [](const Asked& one) { return one.definition == nullptr; }))
        return host::Errors::General;
    const Model::Values* own = model.FindElementValues(position);
    values.resize(definitions.size());
    for (std::size_t i = 0; i < asked.size(); ++i)
        if (IsAvailable(i, model.GetElements()[position].classification))
            values[i] = MakeValue(*asked[i].definition, asked[i].unset, own);
        else
            values[i] = {definitions[i], host::PropertyStatus::NotAvailable, true, {}};
    return host::NoError;
}

bool PropertiesRole::IsAvailableToMaterial(const host::PropertyDefinition& definition,
                                           host::AttributeIndex material) const {
    for (const MaterialClassification& one : project->model.GetMaterialClassifications())
        if (one.material == material && HasItem(definition.availability, one.item)) return true;
    return false;
}

host::ErrorCode PropertiesRole::ReadMaterialValues(host::AttributeIndex material,
                                                   const std::vector<host::Guid>& definitions,
                                                   std::vector<host::PropertyValue>& values) {
    if (project == nullptr) return host::Errors::NoProject;
    if (project->model.FindBuildingMaterial(material) == nullptr) return host::Errors::BadIndex;
    values.clear();
    const Model::Values* own = project->model.FindMaterialValues(material);
    for (const host::Guid& guid : definitions) {
        const host::PropertyDefinition* definition = project->model.FindDefinition(guid);
        if (definition == nullptr) return host::Errors::General;
        if (!IsAvailableToMaterial(*definition, material))
            values.push_back({guid, host::PropertyStatus::NotAvailable, true, {}});
        else
            values.push_back(MakeValue(*definition, GetUnset(*definition), own));
    }
    return host::NoError;
}

host::ErrorCode PropertiesRole::WriteMaterialValues(host::AttributeIndex material,
                                                    const std::vector<host::PropertyValue>& values) {
    if (const host::ErrorCode error = access.Check(host::BuildingMaterialsSet)) return error;
    if (project->model.FindBuildingMaterial(material) == nullptr) return host::Errors::BadIndex;
    for (const host::PropertyValue& value : values) {
        const host::PropertyDefinition* definition = project->model.FindDefinition(value.definition);
        if (definition == nullptr || !IsAvailableToMaterial(*definition, material)) return host::Errors::BadProperty;
        if (!value.isDefault && !FitsDefinition(value.value, *definition)) return host::Errors::BadValue;
    }
    for (const host::PropertyValue& value : values) {
        Change change;
        const Model::Values* own = project->model.FindMaterialValues(material);
        if (own != nullptr && own->count(value.definition) > 0)
            change.before = MaterialValue{material, value.definition, own->at(value.definition)};
        if (!value.isDefault) change.after = MaterialValue{material, value.definition, value.value};
        const bool isSame =
            change.before && change.after &&
            std::get<MaterialValue>(*change.before).value == std::get<MaterialValue>(*change.after).value;
        if (!isSame && (change.before || change.after)) project->Record(std::move(change));
    }
    return host::NoError;
}

host::ErrorCode PropertiesRole::WriteElementValues(const host::Guid& element,
                                                   const std::vector<host::PropertyValue>& values) {
    if (project == nullptr) return host::Errors::NoProject;
    if (!project->IsInCommand()) return host::Errors::NeedsUndoScope;
    const std::uint32_t position = project->model.FindElement(element);
    if (position == ElementIndex::NotFound) return host::Errors::BadId;
    const host::Guid classification = project->model.GetElements()[position].classification;
    for (const host::PropertyValue& value : values) {
        const host::PropertyDefinition* definition = project->model.FindDefinition(value.definition);
        if (definition == nullptr || !HasItem(definition->availability, classification))
            return host::Errors::BadProperty;
        if (!FitsDefinition(value.value, *definition)) return host::Errors::BadValue;
    }
    for (const host::PropertyValue& value : values) {
        Change change{{}, ElementValue{element, value.definition, value.value}};
        const Model::Values* own = project->model.FindElementValues(position);
        if (own != nullptr && own->count(value.definition) > 0)
            change.before = ElementValue{element, value.definition, own->at(value.definition)};
        project->Record(std::move(change));
    }
    return host::NoError;
}

host::ErrorCode ClassificationsRole::ListSystems(std::vector<host::ClassificationSystem>& systems) {
    if (project == nullptr) return host::Errors::NoProject;
    systems = project->model.GetSystems();
    return host::NoError;
}

host::ErrorCode ClassificationsRole::CreateSystem(host::ClassificationSystem& system) {
    if (const host::ErrorCode error = access.Check(host::ClassificationsAndPropertiesSet)) return error;
    if (system.name.empty()) return host::Errors::BadName;
    if (FindIn(project->model.GetSystems(), [&](const host::ClassificationSystem& other) {
            return other.name == system.name && other.version == system.version;
        }))
        return host::Errors::NameAlreadyUsed;
    system.guid = host::CreateGuid();
    project->Record({{}, system});
    return host::NoError;
}

host::ErrorCode ClassificationsRole::ListRootItems(const host::Guid& system,
                                                   std::vector<host::ClassificationItem>& items) {
    if (project == nullptr) return host::Errors::NoProject;
    items.clear();
    for (const ClassificationItem& item : project->model.GetItems())
        if (item.system == system && item.parent.IsNull()) items.push_back(item.item);
    return host::NoError;
}

host::ErrorCode ClassificationsRole::ListChildItems(const host::Guid& item,
                                                    std::vector<host::ClassificationItem>& items) {
    if (project == nullptr) return host::Errors::NoProject;
    items.clear();
    for (const ClassificationItem& one : project->model.GetItems())
        if (one.parent == item && !item.IsNull()) items.push_back(one.item);
    return host::NoError;
}

host::ErrorCode ClassificationsRole::CreateRootItem(const host::Guid& system, host::ClassificationItem& item) {
    if (const host::ErrorCode error = access.Check(host::ClassificationsAndPropertiesSet)) return error;
    if (!FindIn(project->model.GetSystems(), [&](const host::ClassificationSystem& one) { return one.guid == system; }))
        return host::Errors::BadId;
    if (item.id.empty()) return host::Errors::BadName;
    for (const ClassificationItem& other : project->model.GetItems())
        if (other.system == system && other.item.id == item.id) return host::Errors::NameAlreadyUsed;
    item.guid = host::CreateGuid();
    project->Record({{}, ClassificationItem{item, system, {}}});
    return host::NoError;
}

host::ErrorCode ClassificationsRole::ReadMaterialClassifications(host::AttributeIndex material,
                                                                 std::vector<host::Classification>& list) {
    if (project == nullptr) return host::Errors::NoProject;
    if (project->model.FindBuildingMaterial(material) == nullptr) return host::Errors::BadIndex;
    list.clear();
    for (const MaterialClassification& one : project->model.GetMaterialClassifications()) {
        if (one.material != material) continue;
        const ClassificationItem* item = FindIn(
            project->model.GetItems(), [&](const ClassificationItem& other) { return other.item.guid == one.item; });
        if (item != nullptr) list.push_back({item->system, item->item.guid});
    }
    return host::NoError;
}

host::ErrorCode ClassificationsRole::ClassifyMaterial(host::AttributeIndex material, const host::Guid& item) {
    if (const host::ErrorCode error = access.Check(host::BuildingMaterialsSet)) return error;
    if (project->model.FindBuildingMaterial(material) == nullptr) return host::Errors::BadIndex;
    const ClassificationItem* found =
        FindIn(project->model.GetItems(), [&](const ClassificationItem& one) { return one.item.guid == item; });
    if (found == nullptr) return host::Errors::BadId;
    std::vector<host::Classification> present;
    if (const host::ErrorCode error = ReadMaterialClassifications(material, present)) return error;
    for (const host::Classification& one : present)
        if (one.system == found->system) return host::Errors::NameAlreadyUsed; // one item a system
    project->Record({{}, MaterialClassification{material, item}});
    return host::NoError;
}

} // namespace workbench
