// The stored texts of the project record, both ways. A text is entries joined by ";", an entry is key "=" value (the
// last
// "=" separates), numbers are plain decimals with point or comma, booleans are "1" or "0". What cannot be read is left
// out; the rest of the text still counts. docs/data-in-the-model.md shows each form.
#pragma once

#include "lca/LCAProjectData.h"
#include "lca/PropertyKeys.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lca {

/// The parts of a text between ";"; an empty text has none.
std::vector<std::string_view> SplitEntries(std::string_view text);
/// Key and value of an entry; none without "=".
std::optional<std::pair<std::string_view, std::string_view>> SplitEntry(std::string_view entry);

std::string EncodeStandards(const std::vector<Standard>& standards);
std::vector<Standard> DecodeStandards(std::string_view text);

std::string EncodePhases(const std::vector<std::string>& phases);
std::vector<std::string> DecodePhases(std::string_view text);

/// The three contribution maps of the record, each replaced by what the text holds.
std::string EncodeContribution(const LCAProjectData& record);
void DecodeContribution(std::string_view text, LCAProjectData& record);

std::string EncodeElementLives(const std::map<ElementCategory, std::int32_t>& lives);
std::map<ElementCategory, std::int32_t> DecodeElementLives(std::string_view text);

std::string EncodeElementColours(const std::map<ElementCategory, std::uint32_t>& colours);
std::map<ElementCategory, std::uint32_t> DecodeElementColours(std::string_view text);

/// The three floor maps; decoding adds to them and overwrites entries of the same quantity.
std::string EncodeFloorSettings(const LCAProjectData& record);
void DecodeFloorSettings(std::string_view text, LCAProjectData& record);

/// What one project definition stores: the member that belongs to the key's kind, and its description, which carries
/// the standards' unit.
struct StoredValue {
    std::int32_t integer = 0;
    double real = 0.0;
    std::string text;
    std::string description;
};

enum class StoredKind { Text, Integer, Real };
StoredKind GetStoredKind(PropertyKey projectKey);

/// Clears what a load fills step by step: the three floor maps. The other containers are cleared by ReadStoredValue.
void BeginLoad(LCAProjectData& record);
/// Takes one definition's stored value into the record; a key that is no project key is ignored.
void ReadStoredValue(PropertyKey key, const StoredValue& stored, LCAProjectData& record);
/// Writes the record's value over `stored`, whose description keeps all but the unit marker.
void WriteStoredValue(PropertyKey key, const LCAProjectData& record, StoredValue& stored);

} // namespace lca
