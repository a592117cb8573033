// The stored texts of the project record, both ways. A text is entries joined by ";", an entry is key "=" value (the
// last "=" separates), numbers are plain decimals with point or comma, booleans are "1" or "0". What cannot be read is
// left out; the rest of the text still counts. docs/data-in-the-model.md shows each form.
#pragma once

#include "lca/LCAProjectData.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lca {

/// The parts of a text between ";"; an empty text has none.
std::vector<std::string_view> SplitEntries(std::string_view text);
/// Key and value of an entry; none without "=".
std::optional<std::pair<std::string_view, std::string_view>> SplitEntry(std::string_view entry);

// Each decoding replaces what the record held of it.

std::string EncodeStandards(const LCAProjectData& record);
void DecodeStandards(std::string_view text, LCAProjectData& record);

std::string EncodePhases(const LCAProjectData& record);
void DecodePhases(std::string_view text, LCAProjectData& record);

/// The three contribution maps of the record.
std::string EncodeContribution(const LCAProjectData& record);
void DecodeContribution(std::string_view text, LCAProjectData& record);

std::string EncodeElementLives(const LCAProjectData& record);
void DecodeElementLives(std::string_view text, LCAProjectData& record);

std::string EncodeElementColours(const LCAProjectData& record);
void DecodeElementColours(std::string_view text, LCAProjectData& record);

/// The three floor maps; other than above, decoding adds to them and overwrites entries of the same quantity.
std::string EncodeFloorSettings(const LCAProjectData& record);
void DecodeFloorSettings(std::string_view text, LCAProjectData& record);

/// Clears what a load fills step by step: the three floor maps. What else is read replaces what was there.
void BeginLoad(LCAProjectData& record);

} // namespace lca
