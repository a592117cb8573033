#include "platform/Text.h"

#include "text/Utf8.h"

#include <cstddef>

namespace platform {

namespace {

constexpr bool WideIsUtf16 = sizeof(wchar_t) == 2;

bool IsHighSurrogate(char32_t value) {
    return value >= 0xD800 && value <= 0xDBFF;
}
bool IsLowSurrogate(char32_t value) {
    return value >= 0xDC00 && value <= 0xDFFF;
}

char32_t NextCharacter(const std::wstring& text, std::size_t& at) {
    const char32_t first = static_cast<char32_t>(text[at++]) & (WideIsUtf16 ? 0xFFFF : 0xFFFFFFFF);
    if (WideIsUtf16 && IsHighSurrogate(first) && at < text.size()) {
        const char32_t second = static_cast<char32_t>(text[at]) & 0xFFFF;
        if (IsLowSurrogate(second)) {
            ++at;
            return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
        }
    }
    return first;
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
        AppendUnits(result, utf8::TakeCharacter(text, at).value_or(utf8::Replacement));
    }
    return result;
}

} // namespace

std::string Utf8FromWide(const std::wstring& text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        utf8::AppendCharacter(result, NextCharacter(text, at));
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
