// An opaque colour.
#pragma once

#include <cstdint>

namespace lca {

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend constexpr bool operator==(Colour a, Colour b) {
        return a.red == b.red && a.green == b.green && a.blue == b.blue;
    }
    friend constexpr bool operator!=(Colour a, Colour b) { return !(a == b); }
};

} // namespace lca
