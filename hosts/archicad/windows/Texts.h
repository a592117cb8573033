// Numbers, times and letters as the add-on shows them.
#pragma once

#include <string>

namespace archicad {

/// Two decimals and a point, whatever the system's language is; no grouping, no sign on a zero.
std::string WriteTwoDecimals(double value);

/// Date and time of here and now, "2026-07-15 09:05:00".
std::string WriteLocalTime();

/// Lower case of every letter that has one. text is UTF-8; of a text that is none only ASCII letters are changed.
std::string ToLowerCase(const std::string& text);

} // namespace archicad
