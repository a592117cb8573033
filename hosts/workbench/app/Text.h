// Texts as people write and read them: patterns, files, numbers.
#pragma once

#include "workbench/result/Result.h"
#include "workbench/text/Letters.h"

#include <string>
#include <string_view>

namespace workbench {

/// Whole-text match where "*" stands for any run of letters. Both texts folded by the caller.
bool MatchesPattern(std::string_view text, std::string_view pattern);

/// A file's bytes. The failure is the file's name with the advice.
Result<std::string> ReadFile(const std::string& path, const std::string& advice);
/// Writes beside the target and renames, so that an older file stays whole; devices and pipes are written as they are.
Outcome WriteFile(const std::string& path, const std::string& content);

/// With blanks for line breaks, which names in a model may hold and a table's cells cannot.
std::string PutOnOneLine(std::string text);

/// A number for people: at most `decimals` places, no trailing zeros.
std::string FormatShort(double value, int decimals);

} // namespace workbench
