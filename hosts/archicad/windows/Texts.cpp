#include "archicad/windows/Texts.h"

#include "archicad/windows/WideText.h"

#include <charconv>
#include <cstdio>

namespace archicad {

std::string WriteTwoDecimals(double value) {
    constexpr int Decimals = 2;
    char buffer[400]; // the largest number has 309 digits
    const std::to_chars_result result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, Decimals);
    std::string text(buffer, result.ptr);
    return text == "-0.00" ? "0.00" : text;
}

std::string WriteLocalTime() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    char text[64];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u", now.wYear, now.wMonth, now.wDay, now.wHour,
                  now.wMinute, now.wSecond);
    return text;
}

std::string ToLowerCase(const std::string& text) {
    const std::optional<std::wstring> wide = StrictlyWideFromUtf8(text);
    if (wide && !wide->empty()) {
        std::wstring lower(wide->size(), L'\0');
        const int size = static_cast<int>(wide->size());
        if (LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_LOWERCASE, wide->data(), size, lower.data(), size, nullptr,
                          nullptr, 0) == size)
            return Utf8FromWide(lower);
    }
    std::string lower = text;
    for (char& letter : lower)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return lower;
}

} // namespace archicad
