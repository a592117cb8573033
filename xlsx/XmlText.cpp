#include "xlsx/XmlText.h"

#include "platform/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Xlsx {

namespace {

constexpr std::size_t HexDigits = 4;
constexpr std::size_t LongestNumber = 16; // -1.23457e-308 has 13

bool IsPlain(unsigned char letter) {
    return letter >= 0x20 && letter < 0x80 && letter != '<' && letter != '>' && letter != '&' && letter != '"' &&
           letter != '_';
}

bool IsHexDigit(char letter) {
    return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'F') || (letter >= 'a' && letter <= 'f');
}

// Value of the character at this place that XML cannot hold; 0xFFFF + 1 when it can.
constexpr unsigned FitsXml = 0x10000;
unsigned UnfitAt(std::string_view text, std::size_t at) {
    const unsigned char letter = static_cast<unsigned char>(text[at]);
    if (letter < 0x20 && letter != '\t' && letter != '\n') return letter;
    if (letter == 0xEF && text.compare(at, 3, "\xEF\xBF\xBE") == 0) return 0xFFFE;
    if (letter == 0xEF && text.compare(at, 3, "\xEF\xBF\xBF") == 0) return 0xFFFF;
    return FitsXml;
}

// An underscore, "x", four digits, and then an underscore or something whose escape begins with one.
bool LooksEscaped(std::string_view text, std::size_t at) {
    const std::size_t end = at + 2 + HexDigits;
    if (end >= text.size() || text[at + 1] != 'x') return false;
    const std::string_view digits = text.substr(at + 2, HexDigits);
    return std::all_of(digits.begin(), digits.end(), IsHexDigit) && (text[end] == '_' || UnfitAt(text, end) != FitsXml);
}

void AppendEscape(std::string& out, unsigned value) {
    static constexpr char Digits[] = "0123456789ABCDEF";
    out += "_x";
    for (unsigned shift = 4 * HexDigits; shift > 0; shift -= 4) {
        out += Digits[(value >> (shift - 4)) & 0xF];
    }
    out += '_';
}

void AppendLetter(std::string& out, char letter, TextPlace place) {
    switch (letter) {
    case '<':
        out += "&lt;";
        break;
    case '>':
        out += "&gt;";
        break;
    case '&':
        out += "&amp;";
        break;
    case '"':
        out += place == TextPlace::Attribute ? "&quot;" : "\"";
        break;
    case '\t':
        out += place == TextPlace::Attribute ? "&#9;" : "\t";
        break;
    case '\n':
        out += place == TextPlace::Attribute ? "&#10;" : "\n";
        break;
    default:
        out += letter;
    }
}

bool IsBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\n';
}

} // namespace

void AppendXmlText(std::string& out, std::string_view text, TextKind kind, TextPlace place) {
    if (std::all_of(text.begin(), text.end(),
                    [](char letter) { return IsPlain(static_cast<unsigned char>(letter)); })) {
        out += text;
        return;
    }
    const std::string sound = platform::Utf8FromWide(platform::WideFromUtf8(std::string(text)));
    for (std::size_t at = 0; at < sound.size(); ++at) {
        const unsigned unfit = UnfitAt(sound, at);
        if (unfit != FitsXml) {
            AppendEscape(out, unfit);
            if (unfit >= 0x80) at += 2;
        } else if (kind == TextKind::Prose && sound[at] == '_' && LooksEscaped(sound, at)) {
            AppendEscape(out, '_');
        } else {
            AppendLetter(out, sound[at], place);
        }
    }
}

bool HasBlankEnd(std::string_view text) {
    return !text.empty() && (IsBlank(text.front()) || IsBlank(text.back()));
}

std::size_t LetterCount(std::string_view text) {
    return platform::Utf16FromUtf8(std::string(text)).size();
}

std::string NumberText(double value) {
    if (!std::isfinite(value)) return "0";
    char digits[LongestNumber];
    const std::to_chars_result end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6);
    return std::string(digits, end.ptr);
}

} // namespace Xlsx
