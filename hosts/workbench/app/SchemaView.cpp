#include "workbench/app/SchemaView.h"

#include "lca/RecordEncodings.h"

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

lca::LCAProjectData ReadRecord(const Model& model) {
    lca::LCAProjectData record;
    lca::BeginLoad(record);
    for (const host::PropertyDefinition& definition : model.GetDefinitions()) {
        const std::optional<lca::PropertyKey> key = lca::FindMarker(definition.description);
        const std::optional<lca::StoredValue> value = definition.defaultValue.GetPlain();
        if (key && value) lca::ReadStoredValue(*key, *value, definition.description, record);
    }
    return record;
}

const host::Variant* FindMaterialValue(const Model& model, host::AttributeIndex material, lca::PropertyKey key) {
    const host::PropertyDefinition* definition = FindLCADefinition(model, key);
    const Model::Values* values = model.FindMaterialValues(material);
    if (definition == nullptr || values == nullptr) return nullptr;
    const auto found = values->find(definition->guid);
    return found == values->end() ? nullptr : &found->second;
}

std::string GetMaterialGWPText(const Model& model, host::AttributeIndex material) {
    const host::Variant* value = FindMaterialValue(model, material, lca::PropertyKey::GWPPerUnit);
    return value == nullptr ? std::string() : value->text;
}

std::string GetMaterialUnit(const Model& model, host::AttributeIndex material) {
    const host::Variant* value = FindMaterialValue(model, material, lca::PropertyKey::UnitType);
    if (value == nullptr) return "m3";
    for (const host::PropertyOption& option : FindLCADefinition(model, lca::PropertyKey::UnitType)->options)
        if (option.key == value->guid) return option.text;
    return "m3";
}

} // namespace workbench
