// The system's header, and text on the way to its functions.
#pragma once

#include "platform/Text.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <climits>
#include <optional>
#include <string>

namespace archicad {

using platform::Utf8FromWide;
using platform::WideFromUtf8;

/// None where the bytes are no UTF-8.
inline std::optional<std::wstring> StrictlyWideFromUtf8(const std::string& text) {
    if (text.empty()) return std::wstring();
    if (text.size() > INT_MAX) return std::nullopt;
    const int bytes = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), bytes, nullptr, 0);
    if (size <= 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), bytes, wide.data(), size);
    return wide;
}

} // namespace archicad
