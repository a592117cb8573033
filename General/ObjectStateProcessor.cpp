#include "General/ObjectStateProcessor.h"

namespace Extensions::Utilities {

// NOLINTNEXTLINE(performance-unnecessary-value-param): try_emplace moves it, which the check does not see
void ObjectStateProcessor::AddOverride(const std::string& container, const std::string& field, Value value) {
    Presets& presets = overrides[field][value.index()];
    presets.try_emplace(container, std::move(value));
    openDepths[container];
}

void ObjectStateProcessor::BeginObject(const std::string& name) {
    builder.Open(name);
    Enter(name);
}

void ObjectStateProcessor::BeginList(const std::string& name) {
    builder.OpenList(name);
    Enter(name);
}

void ObjectStateProcessor::Enter(const std::string& name) {
    ++depth;
    if (const auto open = openDepths.find(name); open != openDepths.end()) open->second.push_back(depth);
}

void ObjectStateProcessor::EndContainer(const std::string& name) {
    if (const auto open = openDepths.find(name); open != openDepths.end()) open->second.pop_back();
    --depth;
    Place(name, builder.Close());
}

void ObjectStateProcessor::Place(const std::string& name, Value value) {
    if (const Value* preset = FindOverride(name, value)) value = *preset;
    builder.Add(name, std::move(value));
}

const ObjectStateProcessor::Value* ObjectStateProcessor::FindOverride(const std::string& name,
                                                                      const Value& value) const {
    const auto found = overrides.find(name);
    if (found == overrides.end()) return nullptr;
    const Value* nearest = nullptr;
    std::size_t nearestDepth = 0;
    for (const auto& [container, preset] : found->second[value.index()]) {
        const std::vector<std::size_t>& open = openDepths.at(container);
        if (open.empty() || open.back() <= nearestDepth) continue;
        nearest = &preset;
        nearestDepth = open.back();
    }
    return nearest;
}

} // namespace Extensions::Utilities
