// The line that each printed page of a worksheet bears above or below the cells.
#pragma once

#include <string>

namespace Xlsx {

constexpr unsigned MostPageTextLetters = 80; ///< UTF-16 units of one place; a whole line may have 255
constexpr unsigned PageSizeLetters = 2;      ///< fewer where the size of the letters is told

/// Plain UTF-8 text for the line's three places; an empty one stays free.
struct PageLine {
    std::string left;
    std::string centre;
    std::string right;
    /// Of the letters, up to 99; they shrink with a scaled page as the cells do. 0: the reader's own size.
    unsigned sizePoints = 0;
};

/// The line as a sheet holds it: each place's text behind its code, every "&" doubled, so that no text is taken for a
/// code. A text of more letters than a place takes, "&" counted twice, is cut and ends with an ellipsis.
/// returns  empty for a line without texts
[[nodiscard]] std::string PageLineCode(const PageLine& line);

} // namespace Xlsx
