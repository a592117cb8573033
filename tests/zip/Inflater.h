// A plain reader of raw deflate streams that also weighs every block: what it took, and what it would have taken in the
// two forms that need no code of their own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace inflate {

struct BlockWeight {
    unsigned form = 0; ///< 0 stored, 1 fixed, 2 dynamic
    std::size_t bits = 0;
    std::size_t fixedBits = 0;
    std::size_t storedBits = 0;
};

struct Inflated {
    std::string bytes;
    std::vector<BlockWeight> blocks;
    unsigned farthestMatch = 0;
    unsigned farthestShortestMatch = 0; ///< of length 3
};

/// None when the stream is not a well-formed one that ends with its last byte.
[[nodiscard]] std::optional<Inflated> Inflate(const std::string& stream);

} // namespace inflate
