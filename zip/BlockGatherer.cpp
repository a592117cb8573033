#include "zip/BlockGatherer.h"

#include <algorithm>
#include <cmath>

namespace zip {

namespace {

template <std::size_t Size>
double CodedBits(const std::array<std::uint32_t, Size>& frequencies) {
    static constexpr double HeadBitsPerSymbol = 4.0;
    double total = 0;
    double bits = 0;
    for (const std::uint32_t frequency : frequencies) {
        if (frequency == 0) continue;
        total += frequency;
        const auto count = static_cast<float>(frequency);
        bits += HeadBitsPerSymbol - count * std::log2(count);
    }
    return total > 0 ? bits + total * std::log2(total) : 0;
}

// What a block with codes of its own takes, near enough to compare two ways of cutting; extra bits are the same in
// both.
double EstimatedBits(const SymbolCounts& counts) {
    static constexpr double HeadBits = 60;
    return HeadBits + CodedBits(counts.lengths) + CodedBits(counts.distances);
}

} // namespace

void BlockGatherer::EndSegment() {
    if (blockTokens > 0) {
        SymbolCounts joined = block;
        joined.Add(segment);
        const bool isCheaperApart = EstimatedBits(block) + EstimatedBits(segment) < EstimatedBits(joined);
        if (isCheaperApart) EmitBlock(BlockPosition::Inner);
    }
    JoinSegment();
    if (tokenCount == MostBlockTokens) EmitBlock(BlockPosition::Inner);
}

void BlockGatherer::JoinSegment() {
    block.Add(segment);
    segment = SymbolCounts();
    blockTokens = tokenCount;
}

void BlockGatherer::EmitBlock(BlockPosition position) {
    const std::uint8_t* const bytes = blockStart >= 0 ? input + blockStart : nullptr;
    WriteBlock(bits, {tokens.data(), blockTokens, block, bytes}, position);
    blockStart += block.inputBytes;
    std::copy(tokens.data() + blockTokens, tokens.data() + tokenCount, tokens.data());
    tokenCount -= blockTokens;
    blockTokens = 0;
    block = SymbolCounts();
}

// With the fixed codes a match is never longer than its bytes and a literal at most one bit longer. So a block that has
// saved more than its further tokens can lose will not be stored.
bool BlockGatherer::CanStoredWin() const {
    return FixedBlockBits(block) + (MostBlockTokens - blockTokens) > 8 * std::uint64_t{block.inputBytes};
}

void BlockGatherer::PrepareDrop(std::uint32_t bytes) {
    if (blockTokens > 0 && blockStart < bytes && CanStoredWin()) EmitBlock(BlockPosition::Inner);
    blockStart -= bytes;
}

void BlockGatherer::Finish() {
    if (tokenCount > blockTokens) EndSegment();
    EmitBlock(BlockPosition::Last);
}

} // namespace zip
