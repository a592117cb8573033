// Unaligned words read from and written to bytes, lowest byte first whatever the machine's own order is; compilers make
// single loads and stores of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zip {

inline std::uint32_t Load32(const std::uint8_t* bytes) {
    return bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8U | static_cast<std::uint32_t>(bytes[2]) << 16U |
           static_cast<std::uint32_t>(bytes[3]) << 24U;
}

inline std::uint64_t Load64(const std::uint8_t* bytes) {
    return Load32(bytes) | static_cast<std::uint64_t>(Load32(bytes + 4)) << 32U;
}

inline void Store64(std::uint8_t* bytes, std::uint64_t value) {
    for (unsigned i = 0; i < 8; ++i)
        bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

/// A power of two times this number has its exponent's own six bits on top.
inline constexpr std::uint64_t ExponentMark = 0x03F79D71B4CB0A89U;

/// By those six bits, how many whole bytes lie below the power's bit.
constexpr std::array<std::uint8_t, 64> CountBytesBelow() {
    std::array<std::uint8_t, 64> bytes{};
    for (unsigned exponent = 0; exponent < 64; ++exponent)
        bytes[(ExponentMark << exponent) >> 58U] = static_cast<std::uint8_t>(exponent / 8);
    return bytes;
}
inline constexpr std::array<std::uint8_t, 64> BytesBelow = CountBytesBelow();

/// Number of equal bytes from the start of two words that differ.
inline unsigned EqualBytes(std::uint64_t difference) {
    const std::uint64_t lowestBit = difference & (0 - difference);
    return BytesBelow[(lowestBit * ExponentMark) >> 58U];
}

} // namespace zip
