#include "workbench/text/Letters.h"

#include <array>
#include <optional>
#include <utility>

namespace workbench {

namespace {

/// The code point at the position, which moves behind it; none where the bytes are no UTF-8.
std::optional<char32_t> TakeCodePoint(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position]);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    if (length == 0 || lead > 0xF4 || position + length > text.size()) return std::nullopt;
    static constexpr std::array<unsigned char, 5> leadBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t point = lead & leadBits[length];
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[position + i]);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        point = (point << 6) | (next & 0x3FU);
    }
    static constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    if (point < smallest[length] || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) return std::nullopt;
    position += length;
    return point;
}

void AppendCodePoint(std::string& text, char32_t point) {
    if (point < 0x80) {
        text += static_cast<char>(point);
    } else if (point < 0x800) {
        text += static_cast<char>(0xC0 | (point >> 6));
        text += static_cast<char>(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        text += static_cast<char>(0xE0 | (point >> 12));
        text += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (point & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | (point >> 18));
        text += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
        text += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (point & 0x3F));
    }
}

/// Where upper and lower case alternate, beginning with an upper case letter.
struct Alternating {
    char32_t first;
    char32_t last;
};
constexpr Alternating AlternatingLetters[] = {
    {0x100, 0x12F}, {0x132, 0x137}, {0x139, 0x148}, {0x14A, 0x177}, {0x179, 0x17E}, {0x1CD, 0x1DC},   {0x1DE, 0x1EF},
    {0x1F8, 0x21F}, {0x222, 0x233}, {0x460, 0x481}, {0x48A, 0x4BF}, {0x4D0, 0x52F}, {0x1E00, 0x1E95}, {0x1EA0, 0x1EFF}};

/// Letters whose lower case stands elsewhere.
constexpr std::pair<char32_t, char32_t> SingleLetters[] = {
    {0x178, 0xFF},  {0x1A0, 0x1A1}, {0x1AF, 0x1B0}, {0x386, 0x3AC}, {0x388, 0x3AD}, {0x389, 0x3AE}, {0x38A, 0x3AF},
    {0x38C, 0x3CC}, {0x38E, 0x3CD}, {0x38F, 0x3CE}, {0x3C2, 0x3C3}, {0x4C0, 0x4CF}, {0x1E9E, 0xDF}};

/// Simple case folding of Latin, Greek and Cyrillic letters, where building materials are named.
char32_t FoldLetter(char32_t c) {
    if (c >= 'A' && c <= 'Z') return c + 32;
    if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3AB) || (c >= 0x410 && c <= 0x42F))
        return c + 32;
    if (c >= 0x400 && c <= 0x40F) return c + 80;
    for (const auto& [upper, lower] : SingleLetters)
        if (c == upper) return lower;
    for (const Alternating& range : AlternatingLetters)
        if (c >= range.first && c <= range.last) return (c - range.first) % 2 == 0 ? c + 1 : c;
    return c;
}

} // namespace

bool IsUtf8(std::string_view text) {
    for (std::size_t position = 0; position < text.size();)
        if (!TakeCodePoint(text, position)) return false;
    return true;
}

std::size_t CountLetters(std::string_view text) {
    std::size_t letters = 0;
    for (const char byte : text)
        letters += (static_cast<unsigned char>(byte) & 0xC0) != 0x80 ? 1 : 0;
    return letters;
}

std::string FoldCase(std::string_view text) {
    std::string folded;
    for (std::size_t position = 0; position < text.size();) {
        const std::optional<char32_t> point = TakeCodePoint(text, position);
        if (point)
            AppendCodePoint(folded, FoldLetter(*point));
        else
            folded += text[position++];
    }
    return folded;
}

} // namespace workbench
