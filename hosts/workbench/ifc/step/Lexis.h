// How the characters of a STEP file make up blanks, words, strings and nested lists. Positions are offsets into the
// text that is looked at.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace workbench::step {

/// Lists within lists, typed values included; a file that goes deeper counts as damaged.
inline constexpr std::size_t DeepestNesting = 32;

[[nodiscard]] bool IsBlank(char c);
[[nodiscard]] bool IsDigit(char c);
/// Letter, digit or underscore.
[[nodiscard]] bool IsInWord(char c);
[[nodiscard]] char UpperCase(char c);
[[nodiscard]] std::string UpperCase(std::string_view text);

/// Behind the blanks from AT on, before a comment.
[[nodiscard]] std::size_t SkipWhiteSpace(std::string_view text, std::size_t at);
/// Behind the blanks and comments from AT on; npos where a comment does not end.
[[nodiscard]] std::size_t SkipBlanks(std::string_view text, std::size_t at);
/// Behind the letters, digits and underscores from AT on.
[[nodiscard]] std::size_t SkipWord(std::string_view text, std::size_t at);

struct ScannedString {
    std::size_t end = std::string_view::npos; ///< behind the closing apostrophe; npos where there is none
    bool isPlain = true;                      ///< without escapes, apostrophes and bytes beyond ASCII
};
/// AT is the opening apostrophe. A doubled apostrophe belongs to the string, and so does one that is the character of
/// an escape "\S\", although some programs do not double it there.
[[nodiscard]] ScannedString ScanString(std::string_view text, std::size_t at);

enum class Balance : std::uint8_t { Closed, CutOff, Noise };

/// Is told of every string that has escapes or bytes beyond ASCII, without its apostrophes.
class StringListener {
public:
    virtual ~StringListener() = default;
    virtual void TakeString(std::string_view coded) = 0;
};

/// AT is an opening parenthesis and comes to stand behind the one that closes it. LISTENER may be null.
[[nodiscard]] Balance SkipList(std::string_view text, std::size_t& at, StringListener* listener);

} // namespace workbench::step
