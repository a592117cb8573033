// Characters of UTF-8 texts: taking them apart and putting them together, counting, cutting, trimming.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace utf8 {

/// Stands for bytes that are no text.
inline constexpr char32_t Replacement = 0xFFFD;

/// The character at the position, which moves behind it. None, and the position moves by one byte, where the bytes are
/// no UTF-8: overlong forms, surrogates, values beyond U+10FFFF and what is cut off are none.
std::optional<char32_t> TakeCharacter(std::string_view text, std::size_t& position);
/// A surrogate or what lies beyond U+10FFFF becomes the replacement.
void AppendCharacter(std::string& text, char32_t character);

bool IsUtf8(std::string_view text);
/// A byte that is no UTF-8 counts as one character.
std::size_t CountCharacters(std::string_view text);
/// The first characters, at most so many.
std::string_view CutToCharacters(std::string_view text, std::size_t most);
/// Without blanks, tabs and line ends around it.
std::string Trim(std::string_view text);

} // namespace utf8
