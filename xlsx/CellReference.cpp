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

} // namespace Xlsx
