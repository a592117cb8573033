#include "platform/Text.h"

// File names on POSIX are bytes that everybody reads as UTF-8, whatever the locale says.
namespace platform {

std::optional<std::string> NarrowFromWide(const std::wstring& text) {
    std::string narrow = Utf8FromWide(text);
    if (WideFromUtf8(narrow) != text) return std::nullopt;
    return narrow;
}

std::optional<std::wstring> WideFromNarrow(const std::string& text) {
    std::wstring wide = WideFromUtf8(text);
    if (Utf8FromWide(wide) != text) return std::nullopt;
    return wide;
}

} // namespace platform
