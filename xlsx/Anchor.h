// Where something placed on a sheet sits. Lengths are in EMU: 914,400 to the inch, 12,700 to the point.
#pragma once

#include <cstdint>
#include <variant>

namespace Xlsx {

constexpr std::int64_t EmuPerInch = 914400;
constexpr std::int64_t EmuPerPoint = 12700;

/// A cell, counted from 0, and the offset from its upper left corner.
struct AnchorPoint {
    unsigned column = 0;
    unsigned row = 0;
    std::int64_t columnOffset = 0;
    std::int64_t rowOffset = 0;
};

struct AnchorSize {
    std::int64_t width = 0;
    std::int64_t height = 0;
};

/// Moves and grows with the cells.
struct TwoCellAnchor {
    AnchorPoint from;
    AnchorPoint to;
};

/// Moves with the cell and keeps its size.
struct OneCellAnchor {
    AnchorPoint from;
    AnchorSize size;
};

/// Stays where it is on the sheet.
struct AbsoluteAnchor {
    std::int64_t x = 0;
    std::int64_t y = 0;
    AnchorSize size;
};

using Anchor = std::variant<TwoCellAnchor, OneCellAnchor, AbsoluteAnchor>;

} // namespace Xlsx
