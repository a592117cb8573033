#include "platform/Text.h"

#include <cstddef>

namespace platform {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t lastCharacter = 0x10FFFF;
constexpr bool wideIsUtf16 = sizeof(wchar_t) == 2;

bool IsSurrogate(char32_t value) {
    return value >= 0xD800 && value <= 0xDFFF;
}
bool IsHighSurrogate(char32_t value) {
    return value >= 0xD800 && value <= 0xDBFF;
}
bool IsLowSurrogate(char32_t value) {
    return value >= 0xDC00 && value <= 0xDFFF;
}

char32_t NextCharacter(const std::wstring& text, std::size_t& at) {
    const char32_t first = static_cast<char32_t>(text[at++]) & (wideIsUtf16 ? 0xFFFF : 0xFFFFFFFF);
    if (wideIsUtf16 && IsHighSurrogate(first) && at < text.size()) {
        const char32_t second = static_cast<char32_t>(text[at]) & 0xFFFF;
        if (IsLowSurrogate(second)) {
            ++at;
            return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
        }
    }
    return IsSurrogate(first) || first > lastCharacter ? replacement : first;
}

void AppendUtf8(std::string& text, char32_t value) {
    const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (value < 0x80) return append(value);
    if (value < 0x800) {
        append(0xC0 | (value >> 6));
    } else {
        if (value < 0x10000) {
            append(0xE0 | (value >> 12));
        } else {
            append(0xF0 | (value >> 18));
            append(0x80 | ((value >> 12) & 0x3F));
        }
        append(0x80 | ((value >> 6) & 0x3F));
    }
    append(0x80 | (value & 0x3F));
}

std::size_t SequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    if (first >= 0xF0 && first < 0xF5) return 4;
    return 0;
}

// One character from at on, which it passes over; the replacement, passing one byte, where there is none.
char32_t NextCharacter(const std::string& text, std::size_t& at) {
    static constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const unsigned char first = static_cast<unsigned char>(text[at++]);
    const std::size_t length = SequenceLength(first);
    if (length == 1) return first;
    if (length == 0 || text.size() - at < length - 1) return replacement;
    char32_t value = first & (0x7FU >> length);
    for (std::size_t i = 0; i + 1 < length; ++i) {
        const unsigned char next = static_cast<unsigned char>(text[at + i]);
        if ((next & 0xC0) != 0x80) return replacement;
        value = (value << 6) | (next & 0x3F);
    }
    if (value < smallest[length] || value > lastCharacter || IsSurrogate(value)) return replacement;
    at += length - 1;
    return value;
}

template <typename Unit>
void AppendUnits(std::basic_string<Unit>& text, char32_t value) {
    if (sizeof(Unit) == 2 && value >= 0x10000) {
        text.push_back(static_cast<Unit>(0xD800 + ((value - 0x10000) >> 10)));
        text.push_back(static_cast<Unit>(0xDC00 + ((value - 0x10000) & 0x3FF)));
    } else {
        text.push_back(static_cast<Unit>(value));
    }
}

template <typename Unit>
std::basic_string<Unit> UnitsFromUtf8(const std::string& text) {
    std::basic_string<Unit> result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        AppendUnits(result, NextCharacter(text, at));
    }
    return result;
}

} // namespace

std::string Utf8FromWide(const std::wstring& text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        AppendUtf8(result, NextCharacter(text, at));
    }
    return result;
}

std::wstring WideFromUtf8(const std::string& text) {
    return UnitsFromUtf8<wchar_t>(text);
}

std::u16string Utf16FromUtf8(const std::string& text) {
    return UnitsFromUtf8<char16_t>(text);
}

} // namespace platform
