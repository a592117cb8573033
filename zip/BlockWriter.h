// Writes deflate blocks, each in the smallest of its three forms.
#pragma once

#include "zip/BitWriter.h"
#include "zip/BlockTokens.h"

#include <cstddef>
#include <cstdint>

namespace zip {

enum class BlockPosition { Inner, Last };

/// One block's content.
struct Block {
    const Token* tokens = nullptr;
    std::size_t tokenCount = 0;
    SymbolCounts counts;                 ///< of the tokens, without the end of the block
    const std::uint8_t* input = nullptr; ///< the bytes that the tokens stand for; null when they are gone
};

/// Writes the block stored, with the fixed codes, or with codes of its own, whichever takes the fewest bits.
void WriteBlock(BitWriter& bits, const Block& block, BlockPosition position);

/// Bits of the tokens with the fixed codes, the block's head included.
[[nodiscard]] std::uint64_t FixedBlockBits(const SymbolCounts& counts);

} // namespace zip
