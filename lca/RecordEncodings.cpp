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

template <typename Value, typename Encode>
std::string EncodeCategories(const std::map<ElementCategory, Value>& values, Encode encode) {
    std::string text;
    for (const auto& [category, value] : values)
        AppendEntry(text, GetKeyText(category), encode(value));
    return text;
}

template <typename Value, typename Decode>
void DecodeCategories(std::string_view text, Decode decode, std::map<ElementCategory, Value>& values) {
    values.clear();
    ForEachEntry(text, [&](std::string_view key, std::string_view stored) {
        const std::optional<ElementCategory> category = FindCategory(key);
        const std::optional<Value> value = decode(stored);
        if (category && value) values[*category] = *value;
    });
}

std::optional<Colour> DecodeColour(std::string_view text) {
    std::vector<std::uint8_t> channels;
    while (true) {
        const std::size_t comma = text.find(',');
        const std::optional<std::int32_t> channel = ParseWholeNumber(text.substr(0, comma));
        if (!channel || *channel < 0 || *channel > 255) return std::nullopt;
        channels.push_back(static_cast<std::uint8_t>(*channel));
        if (comma == std::string_view::npos) break;
        text.remove_prefix(comma + 1);
    }
    return channels.size() == 3 ? std::optional(Colour{channels[0], channels[1], channels[2]}) : std::nullopt;
}

std::string EncodeColour(Colour colour) {
    return std::to_string(colour.red) + "," + std::to_string(colour.green) + "," + std::to_string(colour.blue);
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

std::string EncodeStandards(const LCAProjectData& record) {
    std::string text;
    for (const Standard& standard : record.standards) {
        std::string name = standard.name;
        std::replace(name.begin(), name.end(), ';', ','); // the form has no way to hold a semicolon
        AppendEntry(text, name, WriteDecimal(standard.limit));
    }
    return text;
}

void DecodeStandards(std::string_view text, LCAProjectData& record) {
    record.standards.clear();
    ForEachEntry(text, [&](std::string_view name, std::string_view value) {
        if (const std::optional<double> limit = ParseDecimal(value))
            record.standards.push_back({std::string(name), *limit});
    });
}

std::string EncodePhases(const LCAProjectData& record) {
    std::string text;
    for (const std::string& phase : record.usedPhases) {
        if (!text.empty()) text += ';';
        text += phase;
    }
    return text;
}

void DecodePhases(std::string_view text, LCAProjectData& record) {
    record.usedPhases.clear();
    for (std::string_view phase : SplitEntries(text))
        record.usedPhases.emplace_back(phase);
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

std::string EncodeElementLives(const LCAProjectData& record) {
    return EncodeCategories(record.elementLives, [](std::int32_t years) { return std::to_string(years); });
}

void DecodeElementLives(std::string_view text, LCAProjectData& record) {
    DecodeCategories(text, ParseWholeNumber, record.elementLives);
}

std::string EncodeElementColours(const LCAProjectData& record) {
    return EncodeCategories(record.elementColours, EncodeColour);
}

void DecodeElementColours(std::string_view text, LCAProjectData& record) {
    DecodeCategories(text, DecodeColour, record.elementColours);
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

void BeginLoad(LCAProjectData& record) {
    record.floorChoice.clear();
    record.evaluatedFloorValues.clear();
    record.enteredFloorValues.clear();
}

} // namespace lca
