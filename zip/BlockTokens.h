// What the match search found, on its way into a block: literals and matches in order, with their frequencies.
#pragma once

#include "zip/DeflateAlphabet.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zip {

/// A literal is its byte; a match is its length plus its distance times 512.
using Token = std::uint32_t;

constexpr Token MatchToken(std::uint32_t length, std::uint32_t distance) {
    return (distance << 9) | length;
}
constexpr std::uint32_t TokenLength(Token token) {
    return token & 511;
}
constexpr std::uint32_t TokenDistance(Token token) {
    return token >> 9;
} // 0: a literal

/// How often each symbol occurs in a run of tokens, and how many bytes of input they stand for.
struct SymbolCounts {
    std::array<std::uint32_t, LengthSymbolCount> lengths{};
    std::array<std::uint32_t, DistanceSymbolCount> distances{};
    std::uint32_t inputBytes = 0;

    void CountLiteral(std::uint8_t byte) {
        ++lengths[byte];
        ++inputBytes;
    }
    void CountMatch(std::uint32_t length, std::uint32_t distance) {
        ++lengths[LengthSymbols[length].symbol];
        ++distances[DistanceSymbol(distance)];
        inputBytes += length;
    }
    void Add(const SymbolCounts& other);
};

} // namespace zip
