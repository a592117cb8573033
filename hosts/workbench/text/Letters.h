// Case of UTF-8 texts. Bytes that are no UTF-8 stay as they are.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// Lower case of every letter that has one.
std::string ToLowerCase(std::string_view text);
/// What is equal but for case becomes one, by full case folding: "STRASSE" and "straße".
std::string FoldCase(std::string_view text);

} // namespace workbench
