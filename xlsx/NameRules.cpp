#include "xlsx/NameRules.h"

#include "platform/Text.h"
#include "xlsx/CellReference.h"
#include "xlsx/XmlText.h"

#include <algorithm>

namespace Xlsx {

namespace {

bool IsDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool IsLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || letter == '_' || letter == '\\' ||
           static_cast<unsigned char>(letter) >= 0x80;
}

std::size_t SkipDigits(const std::string& name, std::size_t at) {
    while (at < name.size() && IsDigit(name[at])) {
        ++at;
    }
    return at;
}

// "R1C1" and its parts "R", "R1", "C", "C1".
bool ReadsAsNumberedCell(const std::string& lower) {
    std::size_t at = 0;
    if (lower[at] == 'r') at = SkipDigits(lower, at + 1);
    if (at < lower.size() && lower[at] == 'c') at = SkipDigits(lower, at + 1);
    return at == lower.size();
}

wchar_t SmallLetter(wchar_t letter) {
    const auto isIn = [letter](wchar_t first, wchar_t last) { return letter >= first && letter <= last; };
    const bool isUneven = letter % 2 != 0;
    if (isIn(L'A', L'Z') || (isIn(0xC0, 0xDE) && letter != 0xD7) || isIn(0x391, 0x3AB) || isIn(0x410, 0x42F))
        return static_cast<wchar_t>(letter + 0x20);
    if (isIn(0x400, 0x40F)) return static_cast<wchar_t>(letter + 0x50);
    if (isIn(0x100, 0x137) || isIn(0x14A, 0x177)) return isUneven ? letter : static_cast<wchar_t>(letter + 1);
    if (isIn(0x139, 0x148) || isIn(0x179, 0x17E)) return isUneven ? static_cast<wchar_t>(letter + 1) : letter;
    return letter;
}

} // namespace

bool IsSheetName(const std::string& name) {
    const std::size_t letters = LetterCount(name);
    if (letters == 0 || letters > MostSheetNameLetters || name.front() == '\'' || name.back() == '\'') return false;
    return WithoutCase(name) != "history" && std::none_of(name.begin(), name.end(), [](char letter) {
               return static_cast<unsigned char>(letter) < 0x20 ||
                      std::string(":\\/?*[]").find(letter) != std::string::npos;
           });
}

bool IsDefinedName(const std::string& name) {
    if (name.empty() || LetterCount(name) > MostDefinedNameLetters || !IsLetter(name.front())) return false;
    return !ReadsAsNumberedCell(WithoutCase(name)) && !CellOf(name) &&
           std::all_of(name.begin(), name.end(), [](char letter) {
               return IsLetter(letter) || IsDigit(letter) || letter == '.' || letter == '?';
           });
}

std::string WithoutCase(const std::string& name) {
    std::wstring wide = platform::WideFromUtf8(name);
    std::transform(wide.begin(), wide.end(), wide.begin(), SmallLetter);
    return platform::Utf8FromWide(wide);
}

} // namespace Xlsx
