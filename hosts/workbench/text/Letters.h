// Letters of UTF-8 texts: validity, count and lower case.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

bool IsUtf8(std::string_view text);
/// Number of code points, which is what a terminal column holds of the names at hand.
std::size_t CountLetters(std::string_view text);
/// Lower case of every letter that has one; bytes that are no UTF-8 stay as they are.
std::string FoldCase(std::string_view text);

} // namespace workbench
