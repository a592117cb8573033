// Text conversions at the border to the operating system. "Narrow" is what its narrow-character calls expect: the
// active code page on Windows, UTF-8 on POSIX whatever the locale. Wide text is UTF-16 on Windows, UTF-32 on POSIX.
#pragma once

#include <optional>
#include <string>

namespace platform {

/// None when a letter has no place in the code page, so that no file of a similar name is written instead.
[[nodiscard]] std::optional<std::string> NarrowFromWide(const std::wstring& text);
/// None when the bytes are no text in the narrow encoding.
[[nodiscard]] std::optional<std::wstring> WideFromNarrow(const std::string& text);

/// Unpaired surrogates and values beyond U+10FFFF become U+FFFD.
[[nodiscard]] std::string Utf8FromWide(const std::wstring& text);
/// Bytes that are no UTF-8 become U+FFFD, one for each byte.
[[nodiscard]] std::wstring WideFromUtf8(const std::string& text);
[[nodiscard]] std::u16string Utf16FromUtf8(const std::string& text);

} // namespace platform
