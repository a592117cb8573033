#include "TokenStream.h"

#include <algorithm>

namespace ResourceCompiler {
namespace {

[[noreturn]] void Refuse(const Token& token, const std::string& expected) {
    throw SourceError(token.position, "expected " + expected + ", found " + Describe(token));
}

} // namespace

bool TokenStream::IsMark(std::string_view mark) const {
    return Peek().kind == TokenKind::Mark && Peek().text == mark;
}

bool TokenStream::IsWord(std::string_view word) const {
    return Peek().kind == TokenKind::Word && Peek().text == word;
}

Token TokenStream::Advance() {
    Token token = tokens[index];
    if (index + 1 < tokens.size()) ++index;
    return token;
}

Token TokenStream::Take(TokenKind kind, std::string_view expected) {
    if (Peek().kind != kind) Refuse(Peek(), std::string(expected));
    return Advance();
}

void TokenStream::TakeMark(std::string_view mark) {
    if (!SkipMark(mark)) Refuse(Peek(), "\"" + std::string(mark) + "\"");
}

std::int64_t TokenStream::TakeNumber(std::string_view role, std::int64_t smallest, std::int64_t largest) {
    const Token token = Take(TokenKind::Number, role);
    if (token.number < smallest || token.number > largest)
        Refuse(token, std::string(role) + " from " + std::to_string(smallest) + " to " + std::to_string(largest));
    return token.number;
}

std::string TokenStream::TakeText(std::string_view role) {
    return Take(TokenKind::Text, std::string(role) + " in double quotes").text;
}

Rectangle TokenStream::TakeRectangle() {
    const auto take = [&](std::string_view role, int smallest) {
        return static_cast<int>(TakeNumber(role, smallest, 32767));
    };
    Rectangle rectangle;
    rectangle.left = take("the left position", -32768);
    rectangle.top = take("the top position", -32768);
    rectangle.width = take("the width", 0);
    rectangle.height = take("the height", 0);
    return rectangle;
}

bool TokenStream::SkipMark(std::string_view mark) {
    if (!IsMark(mark)) return false;
    Advance();
    return true;
}

std::optional<std::string> TokenStream::SkipOneOf(std::initializer_list<std::string_view> words) {
    const bool known = std::any_of(words.begin(), words.end(), [&](std::string_view word) { return IsWord(word); });
    return known ? std::optional<std::string>(Advance().text) : std::nullopt;
}

std::string TokenStream::TakeOneOf(std::initializer_list<std::string_view> words) {
    if (auto word = SkipOneOf(words)) return *word;
    std::string list;
    for (std::string_view word : words)
        list += (list.empty() ? "" : ", ") + std::string(word);
    Refuse(Peek(), (words.size() > 1 ? "one of " : "") + list);
}

} // namespace ResourceCompiler
