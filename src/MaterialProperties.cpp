#include "src/MaterialProperties.h"

#include <algorithm>
#include <iterator>

namespace {

/// Positions in a material's list of values, in the order of the property keys.
constexpr std::size_t GWPText = static_cast<std::size_t>(lca::PropertyKey::GWPPerUnit);
constexpr std::size_t Unit = static_cast<std::size_t>(lca::PropertyKey::UnitType);
constexpr std::size_t ServiceLife = static_cast<std::size_t>(lca::PropertyKey::ServiceYear);
constexpr std::size_t ValueCount = lca::FirstElementKey;
constexpr char DefaultUnit[] = "m3";

/// None where the value is of another kind, or of none, too.
const host::Variant* FindValue(const MaterialProperties::Values& values, std::size_t position, host::ValueType type) {
    if (position >= values.size() || values[position].status != host::PropertyStatus::HasValue) return nullptr;
    return values[position].value.type == type ? &values[position].value : nullptr;
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

host::ErrorCode MaterialProperties::Read(host::AttributeIndex material, Values& values) const {
    values.clear();
    std::vector<host::Guid> asked;
    std::copy_if(guids.begin(), guids.end(), std::back_inserter(asked),
                 [](const host::Guid& guid) { return !guid.IsNull(); });
    if (asked.empty()) return host::NoError;
    Values answered;
    if (const host::ErrorCode error = host.GetProperties().ReadMaterialValues(material, asked, answered)) return error;
    if (answered.size() != asked.size()) return host::Errors::General;
    values.resize(ValueCount);
    auto next = answered.begin();
    for (std::size_t i = 0; i < ValueCount; ++i)
        if (!guids[i].IsNull()) values[i] = std::move(*next++);
    return host::NoError;
}

std::string MaterialProperties::GetGWPText(const Values& values) {
    const host::Variant* value = FindValue(values, GWPText, host::ValueType::String);
    return value == nullptr ? std::string() : value->text;
}

std::string MaterialProperties::GetUnitText(const Values& values) const {
    const host::Variant* value = FindValue(values, Unit, host::ValueType::Guid);
    return value == nullptr ? std::string() : GetOptionText(unitDefinition, value->guid);
}

std::int32_t MaterialProperties::GetServiceLife(const Values& values) {
    const host::Variant* value = FindValue(values, ServiceLife, host::ValueType::Integer);
    return value == nullptr ? 0 : value->integer;
}

MaterialPhaseValues MaterialProperties::Get(const Values& values, const std::string& phase,
                                            const std::string& firstUsedPhase) const {
    const std::string unit = GetUnitText(values);
    return {lca::GetPhaseGWP(lca::DecodeMaterialGWP(GetGWPText(values)), phase, firstUsedPhase),
            unit.empty() ? DefaultUnit : unit, GetServiceLife(values)};
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

host::ErrorCode MaterialProperties::StoreChanged(host::AttributeIndex material, Values before,
                                                 const Values& after) const {
    before.resize(after.size());
    Values changed;
    for (std::size_t i = 0; i < after.size(); ++i)
        if (before[i].isDefault != after[i].isDefault || !(before[i].value == after[i].value))
            changed.push_back(after[i]);
    return changed.empty() ? host::NoError : StoreMaterialValues(host, material, changed);
}
