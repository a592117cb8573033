// Unaligned words read from and written to bytes, and the one place of byte order: words in memory are little-endian
// here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zip {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the compressor compares words by their lowest byte first");

inline std::uint32_t Load32(const std::uint8_t* bytes) {
    std::uint32_t value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

inline std::uint64_t Load64(const std::uint8_t* bytes) {
    std::uint64_t value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

inline void Store64(std::uint8_t* bytes, std::uint64_t value) {
    std::memcpy(bytes, &value, sizeof value);
}

/// Number of equal bytes from the start of two words that differ.
inline unsigned EqualBytes(std::uint64_t difference) {
    return static_cast<unsigned>(__builtin_ctzll(difference)) / 8;
}

} // namespace zip
