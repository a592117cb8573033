// Reads tokens one after another and says what was expected where they do not fit.
#pragma once

#include "Lexer.h"
#include "Model.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ResourceCompiler {

/// Every Take throws SourceError at the offending token, naming it and what was expected.
class TokenStream {
public:
    /// tokens  ends with an End token, which is never passed
    explicit TokenStream(std::vector<Token> tokens) : tokens(std::move(tokens)) {}

    [[nodiscard]] const Token& Peek() const { return tokens[index]; }
    [[nodiscard]] bool IsMark(std::string_view mark) const;
    [[nodiscard]] bool IsWord(std::string_view word) const;

    Token Take(TokenKind kind, std::string_view expected);
    void TakeMark(std::string_view mark);
    /// A number from `smallest` to `largest`; `role` names it in the message.
    std::int64_t TakeNumber(std::string_view role, std::int64_t smallest, std::int64_t largest);
    std::string TakeText(std::string_view role);
    /// Left, top, width, height; positions are 16-bit, sizes from 0 to 32767.
    Rectangle TakeRectangle();

    bool SkipMark(std::string_view mark);
    /// The next token when it is one of `words`; otherwise nothing is taken.
    std::optional<std::string> SkipOneOf(std::initializer_list<std::string_view> words);
    /// One of `words`, without which the source is wrong.
    std::string TakeOneOf(std::initializer_list<std::string_view> words);

private:
    std::vector<Token> tokens;
    std::size_t index = 0;

    Token Advance();
};

} // namespace ResourceCompiler
