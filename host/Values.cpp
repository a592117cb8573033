#include "host/Values.h"

#include <cstdio>
#include <random>
#include <string_view>

namespace host {

namespace {

int HexDigit(char letter) {
    if (letter >= '0' && letter <= '9') return letter - '0';
    if (letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
    if (letter >= 'A' && letter <= 'F') return letter - 'A' + 10;
    return -1;
}

constexpr bool IsDashPosition(std::size_t position) {
    return position == 8 || position == 13 || position == 18 || position == 23;
}

} // namespace

std::string WriteErrorCode(ErrorCode code) {
    char text[11];
    std::snprintf(text, sizeof text, "0x%08lX",
                  static_cast<unsigned long>(static_cast<std::uint32_t>(code.GetValue())));
    return text;
}

Guid ParseGuid(const std::string& text) {
    std::string_view body = text;
    if (body.size() == 38 && body.front() == '{' && body.back() == '}') body = body.substr(1, 36);
    if (body.size() != 36) return {};
    Guid guid;
    std::size_t digits = 0;
    for (std::size_t i = 0; i < body.size(); ++i) {
        if (IsDashPosition(i)) {
            if (body[i] != '-') return {};
            continue;
        }
        const int digit = HexDigit(body[i]);
        if (digit < 0) return {};
        std::uint8_t& byte = guid.bytes[digits / 2];
        byte = static_cast<std::uint8_t>((byte << 4) | digit);
        ++digits;
    }
    return guid;
}

std::string WriteGuid(const Guid& guid) {
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string text = "{";
    for (std::uint8_t byte : guid.bytes) {
        if (IsDashPosition(text.size() - 1)) text += '-';
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
    }
    return text + "}";
}

Guid CreateGuid() {
    static thread_local std::mt19937_64 generator{std::random_device{}()};
    Guid guid;
    for (std::uint8_t& byte : guid.bytes)
        byte = static_cast<std::uint8_t>(generator() & 255U);
    guid.bytes[6] = static_cast<std::uint8_t>((guid.bytes[6] & 0x0FU) | 0x40U); // version 4: random
    guid.bytes[8] = static_cast<std::uint8_t>((guid.bytes[8] & 0x3FU) | 0x80U);
    return guid;
}

} // namespace host
