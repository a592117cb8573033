// Decodes the strings of a STEP file to UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace workbench::ifc {

/// CODED is what stands between the apostrophes. Understands doubled apostrophes and backslashes, \S\ with its code
/// pages \PA\ to \PI\ (ISO 8859-1 to -9), \X\, \X2\ (with surrogate pairs) and \X4\. A malformed escape is kept as it
/// is written. Raw bytes beyond ASCII are taken as UTF-8 where the string is valid UTF-8, else as ISO 8859-1. Code
/// points that are no character become U+FFFD; so the result is always valid UTF-8.
[[nodiscard]] std::string DecodeStepString(std::string_view coded);

} // namespace workbench::ifc
