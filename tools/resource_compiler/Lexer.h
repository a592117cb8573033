// Cuts the text of one file into tokens; comments and white space are dropped.
#pragma once

#include "Source.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ResourceCompiler {

enum class TokenKind { Word, Number, Text, ResourceType, Mark, End };

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text; ///< word, mark or four-letter type as written; of a Text the characters it stands for, in UTF-8
    std::int64_t number = 0; ///< of a Number: -2^31 .. 2^32 - 1
    Position position;
    bool startsLine = false;      ///< first token of its line: where a '#' opens a directive
    bool touchesPrevious = false; ///< no white space in front: tells `#define F(x)` from `#define F (x)`
};

/// text    UTF-8 with or without byte order mark
/// returns the tokens with an End token last
/// errors  SourceError: invalid UTF-8, comment or string not closed, unknown escape, bad number, a character outside
///         strings and comments that is not ASCII
[[nodiscard]] std::vector<Token> Tokenize(std::string_view text, const std::string& file);

/// The token as a message names it: `word "Button"`, `end of file`.
[[nodiscard]] std::string Describe(const Token& token);

} // namespace ResourceCompiler
