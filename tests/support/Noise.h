// Bytes that look like chance and are the same everywhere.
#pragma once

#include <random>
#include <string>

namespace support {

/// kinds  how many different bytes there are, from 0 on
inline std::string RandomBytes(std::size_t size, unsigned seed, unsigned kinds = 256) {
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() % kinds);
    return bytes;
}

inline void FlipBit(std::string& bytes, std::size_t at, unsigned long bit) {
    bytes[at] = static_cast<char>(static_cast<unsigned char>(bytes[at]) ^ (1U << bit));
}

} // namespace support
