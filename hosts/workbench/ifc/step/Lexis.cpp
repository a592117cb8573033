#include "workbench/ifc/step/Lexis.h"

#include <algorithm>
#include <array>

namespace workbench::step {
namespace {

enum class CharKind : std::uint8_t { Noise, Plain, Blank, Slash, Open, Close, Apostrophe };

using KindTable = std::array<CharKind, 256>;

constexpr void Mark(KindTable& table, std::string_view characters, CharKind kind) {
    for (const char c : characters)
        table[static_cast<unsigned char>(c)] = kind;
}

/// Of the characters outside strings; the semicolon is noise within a list.
constexpr KindTable OutsideKinds() {
    KindTable table{};
    Mark(table, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_$.,+-#*=\"", CharKind::Plain);
    Mark(table, " \t\r\n\f\v", CharKind::Blank);
    Mark(table, "/", CharKind::Slash);
    Mark(table, "(", CharKind::Open);
    Mark(table, ")", CharKind::Close);
    Mark(table, "'", CharKind::Apostrophe);
    return table;
}

constexpr KindTable Outside = OutsideKinds();

/// Characters of a string that need no look.
constexpr std::array<bool, 256> QuietInString = [] {
    std::array<bool, 256> quiet{};
    for (std::size_t c = 0; c < 0x80; ++c)
        quiet[c] = c != '\'' && c != '\\';
    return quiet;
}();

bool IsQuiet(char c) {
    return QuietInString[static_cast<unsigned char>(c)];
}

/// True where a string may end at AT, the place behind its last apostrophe.
bool MayFollowString(std::string_view text, std::size_t at) {
    at = SkipBlanks(text, at);
    return at < text.size() && (text[at] == ',' || text[at] == ')');
}

/// True at the "#" of "#12=" where a statement may begin.
bool IsStatementStart(std::string_view text, std::size_t at) {
    if (at == 0 || (text[at - 1] != '\n' && text[at - 1] != '\r' && text[at - 1] != ';')) return false;
    const auto digits = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at) + 1, text.end(), IsDigit);
    const auto end = static_cast<std::size_t>(digits - text.begin());
    const std::size_t equals = SkipBlanks(text, end);
    return end > at + 1 && equals < text.size() && text[equals] == '=';
}

/// A string goes on from AT to an apostrophe behind which a string may end, and does not run into another statement.
bool GoesOnProperly(std::string_view text, std::size_t at) {
    for (; at < text.size(); ++at) {
        if (text[at] == '#' && IsStatementStart(text, at)) return false;
        if (text[at] != '\'') continue;
        if (text.substr(at, 2) != "''") return MayFollowString(text, at + 1);
        ++at;
    }
    return false;
}

/// AT is an apostrophe that follows "\S\". Behind what belongs to the escape: nothing, one apostrophe or two.
std::size_t SkipShiftedApostrophe(std::string_view text, std::size_t at) {
    if (text.substr(at, 2) == "''") return MayFollowString(text, at + 2) ? at + 1 : at + 2;
    const bool isDoubtful = MayFollowString(text, at + 1);
    return !isDoubtful || GoesOnProperly(text, at + 1) ? at + 1 : at;
}

/// AT is a backslash in a string. Behind the escape, as far as an apostrophe could be taken for the string's end in it.
std::size_t SkipEscape(std::string_view text, std::size_t at) {
    if (text.substr(at, 2) == "\\\\") return at + 2;
    if (text.substr(at, 3) != "\\S\\" || at + 3 >= text.size()) return at + 1;
    return text[at + 3] == '\'' ? SkipShiftedApostrophe(text, at + 3) : at + 4;
}

} // namespace

bool IsBlank(char c) {
    return Outside[static_cast<unsigned char>(c)] == CharKind::Blank;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsInWord(char c) {
    return (UpperCase(c) >= 'A' && UpperCase(c) <= 'Z') || IsDigit(c) || c == '_';
}

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) { return UpperCase(c); });
    return upper;
}

std::size_t SkipWhiteSpace(std::string_view text, std::size_t at) {
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    return at;
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
    at = SkipWhiteSpace(text, at);
    while (at < text.size() && text[at] == '/' && text.substr(at, 2) == "/*") {
        const std::size_t end = text.find("*/", at + 2);
        if (end == std::string_view::npos) return end;
        at = SkipWhiteSpace(text, end + 2);
    }
    return at;
}

std::size_t SkipWord(std::string_view text, std::size_t at) {
    while (at < text.size() && IsInWord(text[at]))
        ++at;
    return at;
}

ScannedString ScanString(std::string_view text, std::size_t at) {
    ScannedString scanned;
    for (++at; at < text.size();) {
        if (IsQuiet(text[at])) {
            ++at;
        } else if (text[at] == '\'' && text.substr(at, 2) != "''") {
            scanned.end = at + 1;
            break;
        } else {
            scanned.isPlain = false;
            at = text[at] == '\\' ? SkipEscape(text, at) : at + (text[at] == '\'' ? 2 : 1);
        }
    }
    return scanned;
}

Balance SkipList(std::string_view text, std::size_t& at, StringListener* listener) {
    for (std::size_t depth = 0; at < text.size();) {
        switch (Outside[static_cast<unsigned char>(text[at])]) {
        case CharKind::Plain:
        case CharKind::Blank:
            ++at;
            break;
        case CharKind::Open:
            if (++depth > DeepestNesting) return Balance::Noise;
            ++at;
            break;
        case CharKind::Close:
            ++at;
            if (--depth == 0) return Balance::Closed;
            break;
        case CharKind::Apostrophe: {
            const ScannedString scanned = ScanString(text, at);
            if (scanned.end == std::string_view::npos) return Balance::CutOff;
            if (listener && !scanned.isPlain) listener->TakeString(text.substr(at + 1, scanned.end - at - 2));
            at = scanned.end;
            break;
        }
        case CharKind::Slash: {
            const std::size_t end = SkipBlanks(text, at);
            if (end == at) return Balance::Noise;
            if (end == std::string_view::npos) return Balance::CutOff;
            at = end;
            break;
        }
        case CharKind::Noise:
            return Balance::Noise;
        }
    }
    return Balance::CutOff;
}

} // namespace workbench::step
