#include "src/LCAProperties.h"

#include "src/LCASchema.h"

#include "General/HostReport.h"
#include "src/Texts.h"

#include <algorithm>
#include <map>

namespace {

using host::ValueType;

ValueType GetValueType(lca::StoredKind kind) {
    switch (kind) {
    case lca::StoredKind::Integer:
        return ValueType::Integer;
    case lca::StoredKind::Real:
        return ValueType::Real;
    case lca::StoredKind::Boolean:
        return ValueType::Boolean;
    case lca::StoredKind::Text:
        break;
    }
    return ValueType::String;
}

constexpr std::array<const char*, 3> UnitTexts = {"m3", "m2", "kg"};

void AddUnitOptions(host::PropertyDefinition& definition) {
    definition.collection = host::CollectionType::SingleChoice;
    for (const char* text : UnitTexts)
        definition.options.push_back({host::CreateGuid(), text});
    definition.defaultValue = host::Variant::OfGuid(definition.options.front().key);
}

/// What a material or element has that was never given a value.
host::Variant GetUnsetValue(lca::PropertyKey key) {
    switch (key) {
    case lca::PropertyKey::GWPPerUnit:
        return host::Variant::OfText("0");
    case lca::PropertyKey::ServiceYear:
        return host::Variant::OfInteger(0);
    case lca::PropertyKey::GWP:
        return host::Variant::OfReal(lca::ElementValues().gwp);
    case lca::PropertyKey::Include:
        return host::Variant::OfBoolean(lca::ElementValues().include);
    case lca::PropertyKey::GWPPercentage:
        return host::Variant::OfReal(lca::ElementValues().percentage);
    default:
        return {};
    }
}

bool IsClassifiedIn(const std::vector<host::Classification>& classifications, const host::Guid& system) {
    return std::any_of(classifications.begin(), classifications.end(),
                       [&](const host::Classification& one) { return one.system == system; });
}

} // namespace

host::PropertyDefinition BuildDefinition(host::Host& host, std::size_t index) {
    host::PropertyDefinition definition;
    if (index >= lca::PropertyKeyCount) return definition;
    const auto key = static_cast<lca::PropertyKey>(index);
    definition.valueType = GetValueType(lca::GetRow(key).kind);
    definition.name = ReadText(host, ResourceIds::Schema::FirstPropertyName + static_cast<int>(index));
    definition.description = lca::WriteMarker(key);
    if (key == lca::PropertyKey::UnitType)
        AddUnitOptions(definition);
    else
        definition.defaultValue = GetUnsetValue(key);
    return definition;
}

host::ErrorCode WalkDefinitions(host::Host& host, const DefinitionTaker& take) {
    std::vector<host::PropertyGroup> groups;
    if (const host::ErrorCode error = host.GetProperties().ListGroups(groups)) return error;
    for (const host::PropertyGroup& group : groups) {
        std::vector<host::PropertyDefinition> found;
        if (const host::ErrorCode error = host.GetProperties().ListDefinitions(group.guid, found)) return error;
        for (host::PropertyDefinition& definition : found) {
            const std::optional<lca::PropertyKey> key = lca::FindMarker(definition.description);
            if (key) take(*key, definition, group);
        }
    }
    return host::NoError;
}

host::ErrorCode FindDefinitions(host::Host& host, LCADefinitions& definitions) {
    definitions = {};
    return WalkDefinitions(
        host, [&](lca::PropertyKey key, host::PropertyDefinition& definition, const auto& /*group*/) {
            std::optional<host::PropertyDefinition>& slot = definitions[static_cast<std::size_t>(key)];
            if (!slot) slot = std::move(definition);
        });
}

void WarnOfDoubledDefinitions(host::Host& host) {
    constexpr char Task[] = "looking for the LCA properties";
    const std::string projectGroup = ReadText(host, ResourceIds::Schema::ProjectGroup);
    struct Stored {
        std::string name;
        bool isInProjectGroup;
    };
    std::map<lca::PropertyKey, Stored> storedByKey;
    std::string doubled;
    const host::ErrorCode error = WalkDefinitions(
        host, [&](lca::PropertyKey key, const host::PropertyDefinition& definition, const host::PropertyGroup& group) {
            Stored found{group.name + " / " + definition.name, group.name == projectGroup};
            const auto [stored, isFirst] = storedByKey.try_emplace(key, found);
            if (isFirst) return;
            // Settings are stored in the add-on's own group alone.
            if (lca::IsProjectKey(key) && found.isInProjectGroup && !stored->second.isInProjectGroup)
                std::swap(stored->second, found);
            doubled += (doubled.empty() ? "" : ", ") + found.name;
        });
    General::ReportHostError(host, Task, error);
    if (doubled.empty()) return;
    const std::string line = "these carry the marker of another definition, which alone is stored; delete one: ";
    General::ReportFailure(&host, Task, (line + doubled).c_str());
}

std::string GetOptionText(const host::PropertyDefinition& definition, const host::Guid& key) {
    for (const host::PropertyOption& option : definition.options)
        if (option.key == key) return option.text;
    return {};
}

host::ErrorCode StoreMaterialValues(host::Host& host, host::AttributeIndex material,
                                    const std::vector<host::PropertyValue>& values) {
    MaterialClassification own;
    if (const host::ErrorCode error = FindMaterialClassification(host, own)) return error;
    std::vector<host::Classification> present;
    if (const host::ErrorCode error = host.GetClassifications().ReadMaterialClassifications(material, present))
        return error;
    if (!own.item.IsNull() && !IsClassifiedIn(present, own.system))
        if (const host::ErrorCode error = host.GetClassifications().ClassifyMaterial(material, own.item)) return error;
    return host.GetProperties().WriteMaterialValues(material, values);
}
