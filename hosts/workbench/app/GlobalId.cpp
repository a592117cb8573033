#include "workbench/app/GlobalId.h"

namespace workbench {

namespace {

constexpr std::string_view Letters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";

} // namespace

// 132 bits hold 128: the first letter carries two bits, every other one six.
std::optional<host::Guid> ReadGlobalId(std::string_view text) {
    if (text.size() != 22) return std::nullopt;
    host::Guid guid;
    std::size_t bit = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t value = Letters.find(text[i]);
        const int bits = i == 0 ? 2 : 6;
        if (value == std::string_view::npos || value >> bits != 0) return std::nullopt;
        for (int b = bits - 1; b >= 0; --b, ++bit)
            if ((value >> b) & 1U) guid.bytes[bit / 8] |= static_cast<std::uint8_t>(0x80U >> (bit % 8));
    }
    return guid;
}

std::string WriteGlobalId(const host::Guid& guid) {
    std::string text;
    std::size_t bit = 0;
    for (std::size_t i = 0; i < 22; ++i) {
        std::size_t value = 0;
        for (int b = i == 0 ? 2 : 6; b > 0; --b, ++bit)
            value = (value << 1) | ((guid.bytes[bit / 8] >> (7 - bit % 8)) & 1U);
        text += Letters[value];
    }
    return text;
}

} // namespace workbench
