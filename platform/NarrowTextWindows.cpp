#include "platform/Text.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace platform {

std::optional<std::string> NarrowFromWide(const std::wstring& text) {
    if (text.empty()) return std::string();
    // A UTF-8 code page knows neither the flag nor the question for a default letter.
    const bool isUtf8 = GetACP() == CP_UTF8;
    const DWORD flags = isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    const int letters = static_cast<int>(text.size());
    BOOL isReplaced = FALSE;
    BOOL* replaced = isUtf8 ? nullptr : &isReplaced;
    const int size = WideCharToMultiByte(CP_ACP, flags, text.data(), letters, nullptr, 0, nullptr, replaced);
    if (size <= 0 || isReplaced) return std::nullopt;
    std::string narrow(static_cast<std::size_t>(size), '\0');
    if (WideCharToMultiByte(CP_ACP, flags, text.data(), letters, narrow.data(), size, nullptr, nullptr) != size)
        return std::nullopt;
    return narrow;
}

std::optional<std::wstring> WideFromNarrow(const std::string& text) {
    if (text.empty()) return std::wstring();
    const int bytes = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), bytes, nullptr, 0);
    if (size <= 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    if (MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), bytes, wide.data(), size) != size)
        return std::nullopt;
    return wide;
}

} // namespace platform
