#include "workbench/app/SchemaView.h"

#include "lca/Numbers.h"

namespace workbench {

const host::PropertyDefinition* FindLCADefinition(const Model& model, lca::PropertyKey key) {
    for (const host::PropertyDefinition& definition : model.GetDefinitions())
        if (lca::FindMarker(definition.description) == key) return &definition;
    return nullptr;
}

host::Guid FindOption(const host::PropertyDefinition& definition, const std::string& text) {
    for (const host::PropertyOption& option : definition.options)
        if (option.text == text) return option.key;
    return {};
}

lca::StoredValue GetStoredValue(const host::PropertyDefinition& definition) {
    const host::Variant& value = definition.defaultValue;
    return {value.integer, value.real, value.text, definition.description};
}

std::string WriteStoredText(lca::PropertyKey key, const host::PropertyDefinition& definition) {
    switch (lca::GetStoredKind(key)) {
    case lca::StoredKind::Integer:
        return std::to_string(definition.defaultValue.integer);
    case lca::StoredKind::Real:
        return lca::WriteDecimal(definition.defaultValue.real);
    case lca::StoredKind::Text:
        break;
    }
    return definition.defaultValue.text;
}

lca::LCAProjectData ReadRecord(const Model& model) {
    lca::LCAProjectData record;
    lca::BeginLoad(record);
    for (const host::PropertyDefinition& definition : model.GetDefinitions()) {
        const std::optional<lca::PropertyKey> key = lca::FindMarker(definition.description);
        if (key && lca::IsProjectKey(*key)) lca::ReadStoredValue(*key, GetStoredValue(definition), record);
    }
    return record;
}

std::string GetMaterialGWPText(const Model& model, host::AttributeIndex material) {
    const host::PropertyDefinition* definition = FindLCADefinition(model, lca::PropertyKey::GWPPerUnit);
    const Model::Values* values = model.FindMaterialValues(material);
    if (definition == nullptr || values == nullptr) return {};
    const auto found = values->find(definition->guid);
    return found == values->end() ? std::string() : found->second.text;
}

std::string GetMaterialUnit(const Model& model, host::AttributeIndex material) {
    const host::PropertyDefinition* definition = FindLCADefinition(model, lca::PropertyKey::UnitType);
    const Model::Values* values = model.FindMaterialValues(material);
    if (definition == nullptr || values == nullptr) return "m3";
    const auto found = values->find(definition->guid);
    if (found == values->end()) return "m3";
    for (const host::PropertyOption& option : definition->options)
        if (option.key == found->second.guid) return option.text;
    return "m3";
}

} // namespace workbench
