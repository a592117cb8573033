// CRC-32 of archives: polynomial 0x04C11DB7 reflected, initial and final value 0xFFFFFFFF.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zip {

/// Checksum of the bytes before (crc, 0 for none) followed by these.
[[nodiscard]] std::uint32_t Crc32(std::uint32_t crc, const std::uint8_t* data, std::size_t sizeBytes);

} // namespace zip
