#include "zip/Crc32.h"

#include "zip/Words.h"

#include <array>

namespace zip {

namespace {

constexpr std::uint32_t ReflectedPolynomial = 0xEDB88320;
constexpr std::size_t Stride = 16;

using Tables = std::array<std::array<std::uint32_t, 256>, Stride>;

// Table k tells what a byte does to the checksum when k more bytes follow it.
constexpr Tables MakeTables() {
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? ReflectedPolynomial : 0);
        }
        tables[0][byte] = crc;
    }
    for (std::size_t k = 1; k < Stride; ++k) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables[k - 1][byte];
            tables[k][byte] = (before >> 8) ^ tables[0][before & 0xFF];
        }
    }
    return tables;
}

constexpr Tables CrcTables = MakeTables();

std::uint32_t Word(std::size_t bytesAfter, std::uint32_t word) {
    return CrcTables[bytesAfter + 3][word & 0xFF] ^ CrcTables[bytesAfter + 2][(word >> 8) & 0xFF] ^
           CrcTables[bytesAfter + 1][(word >> 16) & 0xFF] ^ CrcTables[bytesAfter][word >> 24];
}

} // namespace

std::uint32_t Crc32(std::uint32_t crc, const std::uint8_t* data, std::size_t sizeBytes) {
    crc = ~crc;
    for (; sizeBytes >= Stride; sizeBytes -= Stride, data += Stride) {
        crc = Word(12, Load32(data) ^ crc) ^ Word(8, Load32(data + 4)) ^ Word(4, Load32(data + 8)) ^
              Word(0, Load32(data + 12));
    }
    for (; sizeBytes > 0; --sizeBytes, ++data) {
        crc = (crc >> 8) ^ CrcTables[0][(crc ^ *data) & 0xFF];
    }
    return ~crc;
}

} // namespace zip
