// Files that are either whole or not there.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ResourceCompiler {

/// Writes `text` beside `file` and renames it into place, so that a failure leaves an existing file as it was.
/// returns what went wrong, or nothing
[[nodiscard]] std::optional<std::string> ReplaceFile(const std::filesystem::path& file, const std::string& text);

} // namespace ResourceCompiler
