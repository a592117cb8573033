// Words as XML text: escaping, the number form of every decimal value, and letters counted as spreadsheets count them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Xlsx {

/// Token: a name, reference or number of the writer's own, written as it is. Prose: anything a caller gave; a text that
/// looks like the escape "_xHHHH_" is escaped itself, so that it survives.
enum class TextKind { Token, Prose };
enum class TextPlace { Content, Attribute };

/// Appends the text so that any XML reader gives it back. Tab and line feed stay (as references in an attribute, where
/// they would become blanks); other control characters and U+FFFE, U+FFFF become "_xHHHH_"; each byte that is no UTF-8
/// becomes U+FFFD.
void AppendXmlText(std::string& out, std::string_view text, TextKind kind, TextPlace place);

/// Whether a reader could take blanks, tabs or line feeds at either end for layout.
[[nodiscard]] bool HasBlankEnd(std::string_view text);

/// Number of UTF-16 units of a UTF-8 text, in which spreadsheets measure a cell's length; each byte that is no UTF-8 is
/// one, as it will be written.
[[nodiscard]] std::size_t LetterCount(std::string_view text);

/// The general form with 6 significant digits, as "%g" prints it in the "C" locale: 0.25, 1.23457e+06. Infinities and
/// not-a-number, which no attribute may hold, become 0.
[[nodiscard]] std::string NumberText(double value);

} // namespace Xlsx
