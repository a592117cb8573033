// Numbers as stored texts, independent of the locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lca {

/// Reads a decimal number with point or comma; blanks around it are allowed. None for anything else, and for values
/// that are not finite.
std::optional<double> ParseDecimal(std::string_view text);

/// As ParseDecimal, cut to a whole number; none outside 32 bits.
std::optional<std::int32_t> ParseWholeNumber(std::string_view text);

/// Shortest plain form (no exponent) that ParseDecimal reads back to the same value. value must be finite.
std::string WriteDecimal(double value);

/// With so many decimals, rounded; a value that rounds to zero has no sign.
std::string WriteFixed(double value, int decimals);

} // namespace lca
