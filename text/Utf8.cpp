#include "text/Utf8.h"

namespace utf8 {

namespace {

bool IsCharacter(char32_t value) {
    return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

std::size_t SequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    if (first >= 0xF0 && first < 0xF5) return 4;
    return 0;
}

std::optional<char32_t> ReadSequence(std::string_view bytes) {
    constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const std::size_t length = bytes.size();
    char32_t value = static_cast<unsigned char>(bytes[0]) & (length == 1 ? 0x7FU : 0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        if ((next & 0xC0U) != 0x80U) return std::nullopt;
        value = (value << 6U) | (next & 0x3FU);
    }
    return value >= Smallest[length] && IsCharacter(value) ? std::optional(value) : std::nullopt;
}

} // namespace

std::optional<char32_t> TakeCharacter(std::string_view text, std::size_t& position) {
    const std::size_t length = SequenceLength(static_cast<unsigned char>(text[position]));
    std::optional<char32_t> character;
    if (length > 0 && text.size() - position >= length) character = ReadSequence(text.substr(position, length));
    position += character ? length : 1;
    return character;
}

void AppendCharacter(std::string& text, char32_t character) {
    const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (!IsCharacter(character)) character = Replacement;
    if (character < 0x80) return append(character);
    if (character < 0x800) {
        append(0xC0U | (character >> 6U));
    } else {
        if (character < 0x10000) {
            append(0xE0U | (character >> 12U));
        } else {
            append(0xF0U | (character >> 18U));
            append(0x80U | ((character >> 12U) & 0x3FU));
        }
        append(0x80U | ((character >> 6U) & 0x3FU));
    }
    append(0x80U | (character & 0x3FU));
}

bool IsUtf8(std::string_view text) {
    for (std::size_t position = 0; position < text.size();)
        if (!TakeCharacter(text, position)) return false;
    return true;
}

std::size_t CountCharacters(std::string_view text) {
    std::size_t characters = 0;
    for (std::size_t position = 0; position < text.size(); ++characters)
        TakeCharacter(text, position);
    return characters;
}

std::string_view CutToCharacters(std::string_view text, std::size_t most) {
    std::size_t position = 0;
    for (std::size_t characters = 0; characters < most && position < text.size(); ++characters)
        TakeCharacter(text, position);
    return text.substr(0, position);
}

std::string Trim(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(Blanks) - first + 1));
}

} // namespace utf8
