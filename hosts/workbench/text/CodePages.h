// Bytes of other encodings as UTF-8, by the names that the C library has for them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace workbench {

bool IsKnownCodePage(const std::string& name);

/// None where the encoding is unknown or some of the bytes are no text in it.
std::optional<std::string> DecodeText(const std::string& codePage, std::string_view bytes);

/// What is no text in the encoding becomes U+FFFD, a byte each; all of it where the encoding is unknown.
std::string DecodeTextSomehow(const std::string& codePage, std::string_view bytes);

} // namespace workbench
