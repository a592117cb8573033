#include "xlsx/CellReference.h"

#include <algorithm>

namespace Xlsx {

std::string CellReference(CellPlace place) {
    std::string reference;
    for (unsigned left = place.column + 1; left > 0; left = (left - 1) / 26) {
        reference += static_cast<char>('A' + (left - 1) % 26);
    }
    std::reverse(reference.begin(), reference.end());
    return reference += std::to_string(place.row + 1);
}

std::string RangeReference(CellPlace first, CellPlace last) {
    return CellReference(first) + ":" + CellReference(last);
}

std::optional<CellPlace> CellOf(std::string_view reference) {
    constexpr std::size_t MostLetters = 3, MostDigits = 7;
    unsigned column = 0, row = 0; // from 1
    std::size_t at = 0;
    for (; at < reference.size() && at <= MostLetters; ++at) {
        const int letter = (reference[at] | 0x20) - 'a';
        if (letter < 0 || letter >= 26) break;
        column = column * 26 + static_cast<unsigned>(letter) + 1;
    }
    const std::size_t digits = reference.size() - at;
    if (at == 0 || at > MostLetters || digits == 0 || digits > MostDigits || reference[at] == '0') return std::nullopt;
    for (; at < reference.size(); ++at) {
        if (reference[at] < '0' || reference[at] > '9') return std::nullopt;
        row = row * 10 + static_cast<unsigned>(reference[at] - '0');
    }
    const CellPlace place{row - 1, column - 1};
    return IsInSheet(place) ? std::optional(place) : std::nullopt;
}

std::optional<CellRange> RangeOf(std::string_view reference) {
    const std::size_t colon = reference.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    const std::optional<CellPlace> first = CellOf(reference.substr(0, colon));
    const std::optional<CellPlace> last = CellOf(reference.substr(colon + 1));
    if (!first || !last || first->row > last->row || first->column > last->column) return std::nullopt;
    return CellRange{*first, *last};
}

bool IsInSheet(CellPlace place) {
    return place.row < MostRows && place.column < MostColumns;
}

bool DoOverlap(const CellRange& one, const CellRange& other) {
    return one.first.row <= other.last.row && other.first.row <= one.last.row &&
           one.first.column <= other.last.column && other.first.column <= one.last.column;
}

} // namespace Xlsx
