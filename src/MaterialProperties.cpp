#include "src/MaterialProperties.h"

#include <algorithm>
#include <iterator>

namespace {

/// Positions in a material's list of values, in the order of the property keys.
constexpr std::size_t GWPText = static_cast<std::size_t>(lca::PropertyKey::GWPPerUnit);
constexpr std::size_t Unit = static_cast<std::size_t>(lca::PropertyKey::UnitType);
constexpr std::size_t ServiceLife = static_cast<std::size_t>(lca::PropertyKey::ServiceYear);
constexpr std::size_t ValueCount = lca::FirstElementKey;

const host::Variant* FindValue(const MaterialProperties::Values& values, std::size_t position) {
    if (position >= values.size() || values[position].status != host::PropertyStatus::HasValue) return nullptr;
    return &values[position].value;
}

} // namespace

host::ErrorCode MaterialProperties::Load() {
    LCADefinitions definitions;
    const host::ErrorCode error = FindDefinitions(host, definitions);
    Load(definitions);
    return error;
}

void MaterialProperties::Load(const LCADefinitions& definitions) {
    guids.assign(ValueCount, host::Guid());
    for (std::size_t i = 0; i < ValueCount; ++i)
        if (definitions[i]) guids[i] = definitions[i]->guid;
    unitDefinition = definitions[Unit].value_or(host::PropertyDefinition());
}

MaterialProperties::Values MaterialProperties::Read(host::AttributeIndex material) const {
    Values values;
    if (host.GetProperties().ReadMaterialValues(material, guids, values) != host::NoError ||
        values.size() != guids.size())
        values.clear();
    return values;
}

std::string MaterialProperties::GetGWPText(const Values& values) {
    const host::Variant* value = FindValue(values, GWPText);
    return value == nullptr ? std::string() : value->text;
}

std::string MaterialProperties::GetUnitText(const Values& values) const {
    const host::Variant* value = FindValue(values, Unit);
    return value == nullptr ? std::string() : GetOptionText(unitDefinition, value->guid);
}

std::int32_t MaterialProperties::GetServiceLife(const Values& values) {
    const host::Variant* value = FindValue(values, ServiceLife);
    return value == nullptr ? 0 : value->integer;
}

MaterialPhaseValues MaterialProperties::Get(const Values& values, const std::string& phase,
                                            const std::string& firstUsedPhase) const {
    return {lca::GetPhaseGWP(lca::DecodeMaterialGWP(GetGWPText(values)), phase, firstUsedPhase), GetUnitText(values),
            GetServiceLife(values)};
}

void MaterialProperties::Set(Values& values, const std::string& phase, const std::string& firstUsedPhase,
                             const MaterialPhaseChange& change) const {
    values.resize(ValueCount);
    const auto set = [&](std::size_t position, host::Variant value) {
        if (guids[position].IsNull()) return;
        values[position] = {guids[position], host::PropertyStatus::HasValue, false, std::move(value)};
    };
    if (change.gwp) {
        const std::string own = values[GWPText].isDefault ? std::string() : GetGWPText(values);
        set(GWPText, host::Variant::OfText(lca::SetPhaseGWP(own, phase, firstUsedPhase, *change.gwp)));
    }
    if (change.serviceLifeYears) set(ServiceLife, host::Variant::OfInteger(*change.serviceLifeYears));
    if (!change.unit) return;
    for (const host::PropertyOption& option : unitDefinition.options)
        if (option.text == *change.unit) set(Unit, host::Variant::OfGuid(option.key));
}

host::ErrorCode MaterialProperties::Store(host::AttributeIndex material, const Values& values) const {
    Values own;
    std::copy_if(values.begin(), values.end(), std::back_inserter(own), [](const host::PropertyValue& value) {
        return value.status == host::PropertyStatus::HasValue && !value.isDefault;
    });
    return own.empty() ? host::NoError : StoreMaterialValues(host, material, own);
}
