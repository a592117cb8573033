#include "lca/RecordEncodings.h"

#include "lca/Numbers.h"

#include <algorithm>

namespace lca {

namespace {

constexpr std::string_view ContributionSuffix = "_contribution";
constexpr std::string_view GWPSuffix = "_gwp";

void AppendEntry(std::string& text, std::string_view key, std::string_view value) {
    if (!text.empty()) text += ';';
    text.append(key).append("=").append(value);
}

std::string_view WriteFlag(bool flag) {
    return flag ? "1" : "0";
}
bool ReadFlag(std::string_view text) {
    return text == "1";
}

bool TakeSuffix(std::string_view& key, std::string_view suffix) {
    if (key.size() < suffix.size() || key.substr(key.size() - suffix.size()) != suffix) return false;
    key.remove_suffix(suffix.size());
    return true;
}

/// Calls `take(key, value)` for every entry that has both.
template <typename Take>
void ForEachEntry(std::string_view text, Take take) {
    for (std::string_view entry : SplitEntries(text))
        if (const auto parts = SplitEntry(entry)) take(parts->first, parts->second);
}

std::optional<std::uint32_t> DecodeColour(std::string_view text) {
    std::uint32_t colour = 0xFFU;
    int channels = 0;
    while (true) {
        const std::size_t comma = text.find(',');
        const std::optional<std::int32_t> channel = ParseWholeNumber(text.substr(0, comma));
        if (!channel || *channel < 0 || *channel > 255) return std::nullopt;
        colour = (colour << 8U) | static_cast<std::uint32_t>(*channel);
        ++channels;
        if (comma == std::string_view::npos) break;
        text.remove_prefix(comma + 1);
    }
    return channels == 3 ? std::optional(colour) : std::nullopt;
}

std::string EncodeColour(std::uint32_t argb) {
    return std::to_string((argb >> 16U) & 255U) + "," + std::to_string((argb >> 8U) & 255U) + "," +
           std::to_string(argb & 255U);
}

} // namespace

std::vector<std::string_view> SplitEntries(std::string_view text) {
    std::vector<std::string_view> entries;
    while (!text.empty()) {
        const std::size_t end = text.find(';');
        entries.push_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return entries;
}

std::optional<std::pair<std::string_view, std::string_view>> SplitEntry(std::string_view entry) {
    const std::size_t equals = entry.rfind('=');
    if (equals == std::string_view::npos) return std::nullopt;
    return std::pair(entry.substr(0, equals), entry.substr(equals + 1));
}

std::string EncodeStandards(const std::vector<Standard>& standards) {
    std::string text;
    for (const Standard& standard : standards) {
        std::string name = standard.name;
        std::replace(name.begin(), name.end(), ';', ','); // the form has no way to hold a semicolon
        AppendEntry(text, name, WriteDecimal(standard.limit));
    }
    return text;
}

std::vector<Standard> DecodeStandards(std::string_view text) {
    std::vector<Standard> standards;
    ForEachEntry(text, [&](std::string_view name, std::string_view value) {
        if (const std::optional<double> limit = ParseDecimal(value)) standards.push_back({std::string(name), *limit});
    });
    return standards;
}

std::string EncodePhases(const std::vector<std::string>& phases) {
    std::string text;
    for (const std::string& phase : phases) {
        if (!text.empty()) text += ';';
        text += phase;
    }
    return text;
}

std::vector<std::string> DecodePhases(std::string_view text) {
    std::vector<std::string> phases;
    for (std::string_view phase : SplitEntries(text))
        phases.emplace_back(phase);
    return phases;
}

std::string EncodeContribution(const LCAProjectData& record) {
    std::string text;
    for (const auto& [category, enabled] : record.contributionEnabled)
        AppendEntry(text, std::string(GetKeyText(category)).append(ContributionSuffix), WriteFlag(enabled));
    for (const auto& [category, share] : record.contributionShare)
        AppendEntry(text, GetKeyText(category), WriteDecimal(share));
    for (const auto& [category, gwp] : record.contributionGWP)
        AppendEntry(text, std::string(GetKeyText(category)).append(GWPSuffix), WriteDecimal(gwp));
    return text;
}

void DecodeContribution(std::string_view text, LCAProjectData& record) {
    record.contributionEnabled.clear();
    record.contributionShare.clear();
    record.contributionGWP.clear();
    ForEachEntry(text, [&](std::string_view key, std::string_view value) {
        const bool isFlag = TakeSuffix(key, ContributionSuffix);
        const bool isGWP = !isFlag && TakeSuffix(key, GWPSuffix);
        const std::optional<ElementCategory> category = FindCategory(key);
        if (!category) return;
        if (isFlag) {
            record.contributionEnabled[*category] = ReadFlag(value);
            return;
        }
        if (const std::optional<double> number = ParseDecimal(value))
            (isGWP ? record.contributionGWP : record.contributionShare)[*category] = *number;
    });
}

std::string EncodeElementLives(const std::map<ElementCategory, std::int32_t>& lives) {
    std::string text;
    for (const auto& [category, years] : lives)
        AppendEntry(text, GetKeyText(category), std::to_string(years));
    return text;
}

std::map<ElementCategory, std::int32_t> DecodeElementLives(std::string_view text) {
    std::map<ElementCategory, std::int32_t> lives;
    ForEachEntry(text, [&](std::string_view key, std::string_view value) {
        const std::optional<ElementCategory> category = FindCategory(key);
        const std::optional<std::int32_t> years = ParseWholeNumber(value);
        if (category && years) lives[*category] = *years;
    });
    return lives;
}

std::string EncodeElementColours(const std::map<ElementCategory, std::uint32_t>& colours) {
    std::string text;
    for (const auto& [category, argb] : colours)
        AppendEntry(text, GetKeyText(category), EncodeColour(argb));
    return text;
}

std::map<ElementCategory, std::uint32_t> DecodeElementColours(std::string_view text) {
    std::map<ElementCategory, std::uint32_t> colours;
    ForEachEntry(text, [&](std::string_view key, std::string_view value) {
        const std::optional<ElementCategory> category = FindCategory(key);
        const std::optional<std::uint32_t> argb = DecodeColour(value);
        if (category && argb) colours[*category] = *argb;
    });
    return colours;
}

std::string EncodeFloorSettings(const LCAProjectData& record) {
    std::string text;
    const auto append = [&](FloorQuantity quantity, std::string_view suffix, std::string_view value) {
        AppendEntry(text, std::string(GetKeyText(quantity)).append(suffix), value);
    };
    for (const auto& [quantity, value] : record.evaluatedFloorValues)
        append(quantity, "_E", WriteDecimal(value));
    for (const auto& [quantity, value] : record.enteredFloorValues)
        append(quantity, "_M", WriteDecimal(value));
    for (const auto& [quantity, flag] : record.floorChoice)
        append(quantity, "_C", WriteFlag(flag));
    return text;
}

void DecodeFloorSettings(std::string_view text, LCAProjectData& record) {
    ForEachEntry(text, [&](std::string_view key, std::string_view value) {
        if (key.size() < 2 || key[key.size() - 2] != '_') return;
        const char kind = key.back();
        const std::optional<FloorQuantity> quantity = FindFloorQuantity(key.substr(0, key.size() - 2));
        if (!quantity) return;
        if (kind == 'C') record.floorChoice[*quantity] = ReadFlag(value);
        const std::optional<double> number = ParseDecimal(value);
        if (kind == 'M' && number) record.enteredFloorValues[*quantity] = *number;
        if (kind == 'E' && number) record.evaluatedFloorValues[*quantity] = *number;
    });
}

StoredKind GetStoredKind(PropertyKey projectKey) {
    if (projectKey == PropertyKey::ServiceLife) return StoredKind::Integer;
    return GetFloorQuantity(projectKey) ? StoredKind::Real : StoredKind::Text;
}

void BeginLoad(LCAProjectData& record) {
    record.floorChoice.clear();
    record.evaluatedFloorValues.clear();
    record.enteredFloorValues.clear();
}

void ReadStoredValue(PropertyKey key, const StoredValue& stored, LCAProjectData& record) {
    switch (key) {
    case PropertyKey::GWPStandards:
        record.standardsUnit = ReadUnitMarker(stored.description);
        record.standards = DecodeStandards(stored.text);
        return;
    case PropertyKey::Phases:
        record.usedPhases = DecodePhases(stored.text);
        return;
    case PropertyKey::ServiceLife:
        record.consideredServiceLifeYears = static_cast<std::uint32_t>(std::max(stored.integer, 0));
        return;
    case PropertyKey::Contribution:
        DecodeContribution(stored.text, record);
        return;
    case PropertyKey::ElementLives:
        record.elementLives = DecodeElementLives(stored.text);
        return;
    case PropertyKey::ElementColours:
        record.elementColours = DecodeElementColours(stored.text);
        return;
    case PropertyKey::FloorSettings:
        DecodeFloorSettings(stored.text, record);
        return;
    default:
        break;
    }
    const std::optional<FloorQuantity> quantity = GetFloorQuantity(key);
    if (!quantity) return;
    record.SetPlainValue(*quantity, stored.real);
    record.enteredFloorValues.emplace(*quantity, stored.real);
    if (*quantity != FloorQuantity::ReferenceFloorArea) record.evaluatedFloorValues.emplace(*quantity, stored.real);
}

void WriteStoredValue(PropertyKey key, const LCAProjectData& record, StoredValue& stored) {
    switch (key) {
    case PropertyKey::GWPStandards:
        stored.text = EncodeStandards(record.standards);
        stored.description = WriteUnitMarker(stored.description, record.standardsUnit);
        return;
    case PropertyKey::Phases:
        stored.text = EncodePhases(record.usedPhases);
        return;
    case PropertyKey::ServiceLife:
        stored.integer =
            static_cast<std::int32_t>(std::min<std::uint32_t>(record.consideredServiceLifeYears, INT32_MAX));
        return;
    case PropertyKey::Contribution:
        stored.text = EncodeContribution(record);
        return;
    case PropertyKey::ElementLives:
        stored.text = EncodeElementLives(record.elementLives);
        return;
    case PropertyKey::ElementColours:
        stored.text = EncodeElementColours(record.elementColours);
        return;
    case PropertyKey::FloorSettings:
        stored.text = EncodeFloorSettings(record);
        return;
    default:
        break;
    }
    if (const std::optional<FloorQuantity> quantity = GetFloorQuantity(key))
        stored.real = record.GetPlainValue(*quantity);
}

} // namespace lca
