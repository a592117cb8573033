#include "lca/RecordChanges.h"

#include <algorithm>
#include <cmath>

namespace lca {

namespace {

template <typename Value>
void Apply(const Value& before, const Value& edited, Value& onto) {
    if (!(before == edited)) onto = edited;
}

template <typename Key, typename Value>
void ApplyEntries(const std::map<Key, Value>& before, const std::map<Key, Value>& edited, std::map<Key, Value>& onto) {
    for (const auto& [key, value] : edited) {
        const auto old = before.find(key);
        if (old == before.end() || old->second != value) onto[key] = value;
    }
    for (const auto& entry : before)
        if (edited.count(entry.first) == 0) onto.erase(entry.first);
}

/// What `from` holds more of than `other`, in its order.
std::vector<Standard> Subtract(std::vector<Standard> from, const std::vector<Standard>& other) {
    for (const Standard& standard : other) {
        const auto found = std::find(from.begin(), from.end(), standard);
        if (found != from.end()) from.erase(found);
    }
    return from;
}

/// A changed standard takes the old one's place; added ones go to the end.
void ApplyStandards(const std::vector<Standard>& before, const std::vector<Standard>& edited,
                    std::vector<Standard>& onto) {
    if (onto == before) {
        onto = edited;
        return;
    }
    const std::vector<Standard> removed = Subtract(before, edited);
    const std::vector<Standard> added = Subtract(edited, before);
    for (std::size_t i = 0; i < std::max(removed.size(), added.size()); ++i) {
        const auto place = i < removed.size() ? std::find(onto.begin(), onto.end(), removed[i]) : onto.end();
        if (i < added.size() && place != onto.end())
            *place = added[i];
        else if (i < added.size())
            onto.push_back(added[i]);
        else if (place != onto.end())
            onto.erase(place);
    }
}

template <typename Key>
bool AreFinite(const std::map<Key, double>& values) {
    return std::all_of(values.begin(), values.end(), [](const auto& entry) { return std::isfinite(entry.second); });
}

} // namespace

bool IsFinite(const LCAProjectData& record) {
    return std::all_of(AllFloorQuantities.begin(), AllFloorQuantities.end(),
                       [&](FloorQuantity quantity) { return std::isfinite(record.GetPlainValue(quantity)); }) &&
           std::all_of(record.standards.begin(), record.standards.end(),
                       [](const Standard& standard) { return std::isfinite(standard.limit); }) &&
           AreFinite(record.evaluatedFloorValues) && AreFinite(record.enteredFloorValues) &&
           AreFinite(record.contributionShare) && AreFinite(record.contributionGWP);
}

LCAProjectData ApplyChanges(const LCAProjectData& before, const LCAProjectData& edited, LCAProjectData onto) {
    for (const FloorQuantity quantity : AllFloorQuantities)
        if (before.GetPlainValue(quantity) != edited.GetPlainValue(quantity))
            onto.SetPlainValue(quantity, edited.GetPlainValue(quantity));
    Apply(before.consideredServiceLifeYears, edited.consideredServiceLifeYears, onto.consideredServiceLifeYears);
    Apply(before.standardsUnit, edited.standardsUnit, onto.standardsUnit);
    ApplyStandards(before.standards, edited.standards, onto.standards);
    for (const std::string& phase : before.usedPhases)
        if (!edited.IsPhaseUsed(phase)) onto.SetPhaseUsed(phase, false);
    for (const std::string& phase : edited.usedPhases)
        if (!before.IsPhaseUsed(phase)) onto.SetPhaseUsed(phase, true);
    ApplyEntries(before.floorChoice, edited.floorChoice, onto.floorChoice);
    ApplyEntries(before.evaluatedFloorValues, edited.evaluatedFloorValues, onto.evaluatedFloorValues);
    ApplyEntries(before.enteredFloorValues, edited.enteredFloorValues, onto.enteredFloorValues);
    ApplyEntries(before.contributionEnabled, edited.contributionEnabled, onto.contributionEnabled);
    ApplyEntries(before.contributionShare, edited.contributionShare, onto.contributionShare);
    ApplyEntries(before.contributionGWP, edited.contributionGWP, onto.contributionGWP);
    ApplyEntries(before.elementLives, edited.elementLives, onto.elementLives);
    ApplyEntries(before.elementColours, edited.elementColours, onto.elementColours);
    return onto;
}

} // namespace lca
