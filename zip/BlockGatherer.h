// Gathers tokens into blocks and decides where one block ends and the next begins: tokens come in segments, and a
// segment starts a new block when codes of its own save more than their head costs.
#pragma once

#include "zip/BitWriter.h"
#include "zip/BlockTokens.h"
#include "zip/BlockWriter.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zip {

constexpr std::size_t SegmentTokens = 4096;
constexpr std::size_t MostBlockTokens = 16 * SegmentTokens;

/// Positions are those of the match finder's buffer.
class BlockGatherer {
public:
    /// tokens  room for MostBlockTokens
    /// input   the match finder's buffer
    BlockGatherer(BitWriter& bits, std::vector<Token>& tokens, const std::uint8_t* input)
        : bits(bits), tokens(tokens), input(input) {}

    void AddLiteral(std::uint8_t byte) {
        segment.CountLiteral(byte);
        Add(byte);
    }
    void AddMatch(std::uint32_t length, std::uint32_t distance) {
        segment.CountMatch(length, distance);
        Add(MatchToken(length, distance));
    }

    /// To be called before the buffer drops its first bytes, which a stored block can be written from no more.
    void PrepareDrop(std::uint32_t bytes);

    /// Writes what is left, as the stream's last block.
    void Finish();

private:
    void Add(Token token) {
        tokens[tokenCount++] = token;
        if (tokenCount - blockTokens == SegmentTokens) EndSegment();
    }
    void EndSegment();
    void JoinSegment();
    void EmitBlock(BlockPosition position);
    [[nodiscard]] bool CanStoredWin() const;

    BitWriter& bits;
    std::vector<Token>& tokens;
    const std::uint8_t* input;
    std::size_t tokenCount = 0;
    std::size_t blockTokens = 0; // of the block as decided so far; the segment's follow
    SymbolCounts block;
    SymbolCounts segment;
    std::int64_t blockStart = 0; // negative: dropped
};

} // namespace zip
