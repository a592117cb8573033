// Texts as people write and read them: patterns, files, numbers.
#pragma once

#include "workbench/text/Letters.h"

#include <string>
#include <string_view>

namespace workbench {

/// Whole-text match where "*" stands for any run of letters. Both texts folded by the caller.
bool MatchesPattern(std::string_view text, std::string_view pattern);

/// A file's bytes; none when it cannot be read.
bool ReadFile(const std::string& path, std::string& content);
/// Writes beside the target and renames, so that an older file stays whole; devices and pipes are written as they are.
/// False when it cannot be written.
bool WriteFile(const std::string& path, const std::string& content);

/// A number for people: at most `decimals` places, no trailing zeros.
std::string FormatShort(double value, int decimals);

} // namespace workbench
