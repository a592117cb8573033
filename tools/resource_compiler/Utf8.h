// Validity of UTF-8 text.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace ResourceCompiler {

inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// Offset of the first byte that is not part of a well-formed character (RFC 3629), or nothing.
[[nodiscard]] std::optional<std::size_t> FindInvalidUtf8(std::string_view text);

} // namespace ResourceCompiler
