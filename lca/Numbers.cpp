#include "lca/Numbers.h"

#include "text/Utf8.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace lca {

std::optional<double> ParseDecimal(std::string_view text) {
    std::string number(utf8::Trim(text));
    std::replace(number.begin(), number.end(), ',', '.');
    const bool hasPlus = number.size() > 1 && number[0] == '+' && number[1] != '-';
    const char* first = number.data() + (hasPlus ? 1 : 0);
    const char* last = number.data() + number.size();
    double value = 0.0;
    const auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last || first == last || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<std::int32_t> ParseWholeNumber(std::string_view text) {
    const std::optional<double> value = ParseDecimal(text);
    if (!value) return std::nullopt;
    const double whole = std::trunc(*value);
    if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(whole);
}

std::string WriteDecimal(double value) {
    if (value == 0.0) return "0"; // also for a negative zero
    char buffer[512]; // the longest plain forms, of the largest and the smallest values, have some 350 letters
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return std::string(buffer, result.ptr);
}

std::string WriteFixed(double value, int decimals) {
    char buffer[400];
    const std::to_chars_result result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
    std::string text(buffer, result.ptr);
    const bool isZero = text.find_first_not_of("-0.") == std::string::npos;
    return isZero && text.front() == '-' ? text.substr(1) : text;
}

} // namespace lca
