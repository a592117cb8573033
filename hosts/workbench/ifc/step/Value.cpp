#include "workbench/ifc/step/Value.h"

#include <algorithm>
#include <charconv>

#include "workbench/ifc/step/Lexis.h"
#include "workbench/ifc/step/TextDecoder.h"

namespace workbench::step {
namespace {

template <class Number>
std::optional<Number> Parse(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// What is too small for a number is 0; some programs write such rests of their arithmetic.
std::optional<double> ParseReal(std::string_view text) {
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (end != text.data() + text.size()) return std::nullopt;
    if (error == std::errc()) return number;
    const bool isTooSmall = text.find("E-") != std::string_view::npos || text.find("e-") != std::string_view::npos;
    return isTooSmall ? std::optional(0.0) : std::nullopt;
}

/// The conversion knows no plus sign before a number.
std::string_view WithoutPlus(std::string_view text) {
    return text.starts_with('+') && !text.starts_with("+-") ? text.substr(1) : text;
}

ValueKind KindOfNumber(std::string_view token) {
    return token.find_first_of(".eE") == std::string_view::npos ? ValueKind::Integer : ValueKind::Real;
}

std::string_view Between(std::string_view token, char last) {
    return token.size() >= 2 && token.back() == last ? token.substr(1, token.size() - 2) : std::string_view();
}

/// Behind the characters of a value that has neither text nor parentheses.
std::size_t SkipSimple(std::string_view text, std::size_t at) {
    while (at < text.size() && text[at] != ',' && text[at] != ')' && text[at] != '(' && text[at] != '/' &&
           !IsBlank(text[at]))
        ++at;
    return at;
}

/// Behind the list at AT, or the end of a text in which it does not end.
std::size_t SkipInnerList(std::string_view text, std::size_t at) {
    return SkipList(text, at, nullptr) == Balance::Closed ? at : text.size();
}

std::size_t SkipTyped(std::string_view text, std::size_t at) {
    const std::size_t end = SkipWord(text, at);
    const std::size_t open = SkipBlanks(text, end);
    return open < text.size() && text[open] == '(' ? SkipInnerList(text, open) : SkipSimple(text, end);
}

/// AT is the first character of a value.
std::size_t SkipValue(std::string_view text, std::size_t at) {
    if (text[at] == '\'') return std::min(ScanString(text, at).end, text.size());
    if (text[at] == '(') return SkipInnerList(text, at);
    return IsInWord(text[at]) && !IsDigit(text[at]) ? SkipTyped(text, at) : SkipSimple(text, at);
}

} // namespace

ValueKind Value::GetKind() const {
    if (token.empty()) return ValueKind::Missing;
    switch (token.front()) {
    case '*':
        return ValueKind::Derived;
    case '\'':
        return ValueKind::Text;
    case '#':
        return ValueKind::Reference;
    case '(':
        return ValueKind::List;
    case '"':
        return ValueKind::Binary;
    case '+':
    case '-':
        return KindOfNumber(token);
    case '.':
        return token.size() > 1 && IsDigit(token[1]) ? ValueKind::Real : ValueKind::Enumeration;
    default:
        if (IsDigit(token.front())) return KindOfNumber(token);
        return IsInWord(token.front()) && token.back() == ')' ? ValueKind::Typed : ValueKind::Missing;
    }
}

bool Value::IsMissing() const {
    const ValueKind kind = GetKind();
    return kind == ValueKind::Missing || kind == ValueKind::Derived;
}

/// Without the type that may be written around it.
Value Value::Bare() const {
    return GetKind() == ValueKind::Typed ? GetContent() : *this;
}

std::optional<double> Value::GetNumber() const {
    const Value bare = Bare();
    const ValueKind kind = bare.GetKind();
    if (kind != ValueKind::Integer && kind != ValueKind::Real) return std::nullopt;
    return ParseReal(WithoutPlus(bare.token));
}

std::optional<std::int64_t> Value::GetInteger() const {
    const Value bare = Bare();
    if (bare.GetKind() != ValueKind::Integer) return std::nullopt;
    return Parse<std::int64_t>(WithoutPlus(bare.token));
}

std::string Value::GetText() const {
    const Value bare = Bare();
    return bare.GetKind() == ValueKind::Text ? decoder->Decode(Between(bare.token, '\'')) : std::string();
}

std::string_view Value::GetEnumeration() const {
    const Value bare = Bare();
    return bare.GetKind() == ValueKind::Enumeration ? Between(bare.token, '.') : std::string_view();
}

std::optional<bool> Value::GetLogical() const {
    const std::string_view word = GetEnumeration();
    if (word == "T" || word == "t") return true;
    if (word == "F" || word == "f") return false;
    return std::nullopt;
}

std::optional<EntityNumber> Value::GetReference() const {
    return GetKind() == ValueKind::Reference ? Parse<EntityNumber>(token.substr(1)) : std::nullopt;
}

std::string_view Value::GetBinary() const {
    return GetKind() == ValueKind::Binary ? Between(token, '"') : std::string_view();
}

std::string_view Value::GetTypeName() const {
    return GetKind() == ValueKind::Typed ? token.substr(0, SkipWord(token, 0)) : std::string_view();
}

Value Value::GetContent() const {
    if (GetKind() != ValueKind::Typed) return {};
    const std::size_t open = SkipBlanks(token, SkipWord(token, 0));
    const Iterator content(token.substr(std::min(open, token.size())), *decoder);
    return content == end() ? Value() : *content;
}

Value::Iterator Value::begin() const {
    return GetKind() == ValueKind::List ? Iterator(token, *decoder) : Iterator();
}

Value Value::GetItem(std::size_t index) const {
    for (const Value& item : *this) {
        if (index-- == 0) return item;
    }
    return {};
}

std::size_t Value::CountItems() const {
    std::size_t count = 0;
    for (Iterator item = begin(); item != end(); ++item)
        ++count;
    return count;
}

Value::Iterator::Iterator(std::string_view text, const TextDecoder& decoder) : text(text), decoder(&decoder) {
    at = SkipBlanks(text, 1);
    isAtEnd = at >= text.size() || text[at] == ')';
    if (!isAtEnd) TakeItem();
}

Value::Iterator& Value::Iterator::operator++() {
    at = SkipBlanks(text, at);
    isAtEnd = at >= text.size() || text[at] != ',';
    if (!isAtEnd) {
        at = SkipBlanks(text, at + 1);
        isAtEnd = at >= text.size();
    }
    if (!isAtEnd) TakeItem();
    return *this;
}

void Value::Iterator::TakeItem() {
    const std::size_t start = at;
    at = SkipValue(text, start);
    current = Value(text.substr(start, at - start), *decoder);
}

} // namespace workbench::step
