// Which names of sheets and formulas spreadsheet programs take. Text is UTF-8.
#pragma once

#include <string>

namespace Xlsx {

constexpr unsigned MostSheetNameLetters = 31;    ///< UTF-16 units
constexpr unsigned MostDefinedNameLetters = 255; ///< UTF-16 units

/// 1 to 31 letters, none of them a control character or one of : \ / ? * [ ], no apostrophe at an end, and not
/// "History".
[[nodiscard]] bool IsSheetName(const std::string& name);

/// Letters, digits and "_", ".", "\", "?", the first one a letter, "_" or "\"; nothing that reads as a cell ("A1",
/// "R1C1"). Whatever is not ASCII counts as a letter.
[[nodiscard]] bool IsDefinedName(const std::string& name);

/// Names that differ in case only have the same one. Knows the letters of ASCII, Latin-1, Latin Extended-A, and plain
/// Greek and Cyrillic ones.
[[nodiscard]] std::string WithoutCase(const std::string& name);

} // namespace Xlsx
