// Prefix codes: shortest code lengths for given frequencies under a limit, and the canonical codes of given lengths.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zip {

/// Code lengths of the least total cost with no code longer than `longest`.
/// frequencies  [n], n at most 288
/// lengths      [n] out; 0 for symbols that do not occur. A symbol that is alone gets length 1.
void ShortestCodeLengths(const std::uint32_t* frequencies, std::size_t n, unsigned longest, std::uint8_t* lengths);

/// The codes that RFC 1951 assigns to the lengths, mirrored so that their first bit is the lowest.
/// lengths  [n], at most 15
/// codes    [n] out; 0 where the length is 0
void CanonicalCodes(const std::uint8_t* lengths, std::size_t n, std::uint16_t* codes);

} // namespace zip
