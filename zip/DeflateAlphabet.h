// The symbols of RFC 1951: literal/length, distance and code-length alphabets with their extra bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zip {

constexpr std::size_t LengthSymbolCount = 288; // literals 0-255, end of block, lengths 257-285; two take part in the
                                               // fixed code only and never occur
constexpr std::size_t DistanceSymbolCount = 30;
constexpr std::size_t CodeLengthSymbolCount = 19;
constexpr unsigned EndOfBlock = 256;
constexpr unsigned LongestCode = 15;
constexpr unsigned LongestCodeLengthCode = 7;

/// A value's symbol and the bits that tell it from the symbol's other values.
struct SymbolExtra {
    std::uint16_t symbol;
    std::uint8_t extraBits;
    std::uint16_t extra;
};

namespace detail {

// Symbols come in groups of `groupSize` with the same number of extra bits, one more in each group after the second.
constexpr SymbolExtra SymbolOf(unsigned value, unsigned groupSize) {
    unsigned extraBits = 0;
    unsigned symbol = 0;
    unsigned first = 0;
    while (value >= first + (1U << extraBits)) {
        first += 1U << extraBits;
        ++symbol;
        if (symbol >= 2 * groupSize && symbol % groupSize == 0) ++extraBits;
    }
    return {static_cast<std::uint16_t>(symbol), static_cast<std::uint8_t>(extraBits),
            static_cast<std::uint16_t>(value - first)};
}

constexpr std::array<SymbolExtra, 259> MakeLengths() {
    std::array<SymbolExtra, 259> lengths{};
    for (unsigned length = 3; length < 258; ++length) {
        lengths[length] = SymbolOf(length - 3, 4);
        lengths[length].symbol = static_cast<std::uint16_t>(lengths[length].symbol + 257);
    }
    lengths[258] = {285, 0, 0};
    return lengths;
}

// Distances up to 256 by themselves, farther ones by their 128s.
constexpr std::array<std::uint8_t, 512> MakeDistanceSymbols() {
    std::array<std::uint8_t, 512> symbols{};
    for (unsigned i = 0; i < 256; ++i) {
        symbols[i] = static_cast<std::uint8_t>(SymbolOf(i, 2).symbol);
        symbols[256 + i] = static_cast<std::uint8_t>(SymbolOf(i << 7, 2).symbol);
    }
    return symbols;
}

constexpr std::array<std::uint16_t, DistanceSymbolCount> MakeDistanceBases() {
    std::array<std::uint16_t, DistanceSymbolCount> bases{};
    unsigned base = 1;
    for (unsigned symbol = 0; symbol < DistanceSymbolCount; ++symbol) {
        bases[symbol] = static_cast<std::uint16_t>(base);
        base += 1U << (symbol < 4 ? 0 : symbol / 2 - 1);
    }
    return bases;
}

} // namespace detail

/// By match length, 3 to 258.
inline constexpr std::array<SymbolExtra, 259> LengthSymbols = detail::MakeLengths();
inline constexpr std::array<std::uint8_t, 512> DistanceSymbols = detail::MakeDistanceSymbols();
inline constexpr std::array<std::uint16_t, DistanceSymbolCount> DistanceBases = detail::MakeDistanceBases();

inline unsigned DistanceSymbol(std::uint32_t distance) {
    const std::uint32_t value = distance - 1;
    return DistanceSymbols[value < 256 ? value : 256 + (value >> 7)];
}

constexpr unsigned DistanceExtraBits(unsigned symbol) {
    return symbol < 4 ? 0 : symbol / 2 - 1;
}

constexpr unsigned LengthExtraBits(unsigned symbol) { // of symbols 257 to 285
    return symbol < 265 || symbol == 285 ? 0 : (symbol - 261) / 4;
}

} // namespace zip
