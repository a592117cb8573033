#include "archicad/windows/XmlPreparation.h"

#include "archicad/windows/WideText.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace archicad {

namespace {

constexpr wchar_t Mark = 0xFEFF;

bool IsBlank(wchar_t letter) {
    return letter == L' ' || letter == L'\t' || letter == L'\n' || letter == L'\r';
}

bool IsNameStart(wchar_t letter) {
    return letter >= 0x80 || (letter >= L'a' && letter <= L'z') || (letter >= L'A' && letter <= L'Z') ||
           letter == L'_' || letter == L':';
}

bool IsNameLetter(wchar_t letter) {
    return IsNameStart(letter) || (letter >= L'0' && letter <= L'9') || letter == L'-' || letter == L'.';
}

/// Pairs of surrogates are sound by now.
bool IsXmlLetter(wchar_t letter) {
    return letter >= 0x20 ? letter < 0xFFFE : IsBlank(letter);
}

/// The character that "#..." or "#x..." stands for; none where it is no number or no character of XML.
std::optional<char32_t> ReadNumber(std::wstring_view reference) {
    const bool isHexadecimal = reference.size() > 1 && reference[1] == L'x';
    const std::wstring_view digits = reference.substr(isHexadecimal ? 2 : 1);
    char32_t letter = 0;
    for (const wchar_t digit : digits) {
        const char32_t lower = digit | 0x20U;
        const bool isLetter = isHexadecimal && lower >= U'a' && lower <= U'f';
        if (!isLetter && (digit < L'0' || digit > L'9')) return std::nullopt;
        letter = letter * (isHexadecimal ? 16 : 10) + (isLetter ? lower - U'a' + 10 : digit - L'0');
        if (letter > 0x10FFFF) return std::nullopt;
    }
    const bool isSurrogate = letter >= 0xD800 && letter <= 0xDFFF;
    if (digits.empty() || isSurrogate || (letter < 0x10000 && !IsXmlLetter(static_cast<wchar_t>(letter))))
        return std::nullopt;
    return letter;
}

/// Goes over a document once and writes the one for the system's reader.
class Preparation {
public:
    explicit Preparation(std::wstring_view document) : rest(document) {}

    bool Run() {
        if (IsNext(L"<?xml") && !TakeDeclaration()) return false;
        while (!rest.empty()) {
            if (IsNext(L"<!--")) {
                if (!CopyThrough(L"-->", 4)) return false;
            } else if (IsNext(L"<![CDATA[")) {
                if (!CopyThrough(L"]]>", 9)) return false;
            } else if (IsNext(L"<?")) {
                if (!CopyThrough(L"?>", 2)) return false;
            } else if (IsNext(L"<!DOCTYPE") && !hasType && !hasRoot) {
                if (!DropDocumentType()) return false;
            } else if (rest.front() == L'&') {
                if (!TakeReference()) return false;
            } else if (rest.front() == L'<') {
                hasRoot = true;
                if (!CopyTag()) return false;
            } else {
                Copy(1);
            }
        }
        return hasRoot && depth == 0;
    }

    std::wstring prepared;

private:
    bool IsNext(std::wstring_view text) const { return rest.substr(0, text.size()) == text; }
    void Copy(std::size_t letters) {
        prepared += rest.substr(0, letters);
        rest.remove_prefix(letters);
    }
    bool CopyThrough(std::wstring_view end, std::size_t beginning) {
        const std::size_t place = rest.find(end, beginning);
        if (place == std::wstring_view::npos) return false;
        Copy(place + end.size());
        return true;
    }

    /// What it says of the encoding is about bytes that were others before.
    bool TakeDeclaration() {
        const std::size_t end = rest.find(L"?>");
        if (end == std::wstring_view::npos) return false;
        const std::size_t name = rest.substr(0, end).find(L"encoding");
        if (name == std::wstring_view::npos) {
            Copy(end + 2);
            return true;
        }
        Copy(name + 8);
        while (!rest.empty() && (IsBlank(rest.front()) || rest.front() == L'='))
            Copy(1);
        const wchar_t quote = rest.empty() ? L'?' : rest.front();
        if (quote != L'"' && quote != L'\'') return false;
        const std::size_t length = rest.find(quote, 1);
        if (length == std::wstring_view::npos || length == 1) return false;
        const std::wstring_view value = rest.substr(1, length - 1);
        if (!IsNameStart(value.front()) || !std::all_of(value.begin(), value.end(), IsNameLetter)) return false;
        prepared.append(1, quote).append(L"UTF-8").append(1, quote);
        rest.remove_prefix(length + 1);
        return CopyThrough(L"?>", 0);
    }

    /// The system's own reader knows no numbers of more than 16 bits in all of its versions.
    bool TakeReference() {
        const std::size_t end = rest.find(L';');
        if (end == std::wstring_view::npos) return false;
        const std::wstring name(rest.substr(1, end - 1));
        if (name.rfind(L'#', 0) == 0) {
            const std::optional<char32_t> letter = ReadNumber(name);
            if (!letter) return false;
            if (*letter < 0x10000) {
                Copy(end + 1);
                return true;
            }
            prepared += static_cast<wchar_t>(0xD7C0 + (*letter >> 10U));
            prepared += static_cast<wchar_t>(0xDC00 + (*letter & 0x3FFU));
            rest.remove_prefix(end + 1);
            return true;
        }
        Copy(1);
        if (entities.count(name) != 0)
            prepared += L"amp;";
        else if (name != L"amp" && name != L"lt" && name != L"gt" && name != L"quot" && name != L"apos")
            return false;
        return true;
    }

    void CopyBlanks() {
        while (!rest.empty() && IsBlank(rest.front()))
            Copy(1);
    }
    std::wstring CopyName() {
        std::wstring name = TakeName();
        prepared += name;
        return name;
    }

    /// Attributes stand apart and each once, and every element has an end: not every version of the system's reader
    /// asks for the one or comes to an end without the other.
    bool CopyTag() {
        Copy(1);
        const bool isEnd = IsNext(L"/");
        if (isEnd) Copy(1);
        if (CopyName().empty()) return false;
        if (!isEnd) return CopyAttributes();
        CopyBlanks();
        return IsNext(L">") && depth-- > 0;
    }

    bool CopyAttributes() {
        std::set<std::wstring> attributes;
        while (!rest.empty() && IsBlank(rest.front())) {
            CopyBlanks();
            if (rest.empty() || !IsNameStart(rest.front())) break;
            if (!attributes.insert(CopyName()).second || !CopyAttributeValue()) return false;
        }
        if (IsNext(L"/>")) return true;
        ++depth;
        return IsNext(L">");
    }

    bool CopyAttributeValue() {
        CopyBlanks();
        if (!IsNext(L"=")) return false;
        Copy(1);
        CopyBlanks();
        const wchar_t quote = rest.empty() ? L'?' : rest.front();
        if (quote != L'"' && quote != L'\'') return false;
        for (Copy(1); !rest.empty() && rest.front() != quote;) {
            if (rest.front() == L'<') return false;
            if (rest.front() != L'&')
                Copy(1);
            else if (!TakeReference())
                return false;
        }
        if (rest.empty()) return false;
        Copy(1);
        return true;
    }

    // The document type is read over and left out; of its declarations only the names of entities count.

    void SkipBlanks() {
        while (!rest.empty() && IsBlank(rest.front()))
            rest.remove_prefix(1);
    }
    bool SkipThrough(std::wstring_view end) {
        const std::size_t place = rest.find(end);
        if (place == std::wstring_view::npos) return false;
        rest.remove_prefix(place + end.size());
        return true;
    }
    std::wstring TakeName() {
        std::size_t length = 0;
        while (length < rest.size() && (length == 0 ? IsNameStart(rest[0]) : IsNameLetter(rest[length])))
            ++length;
        std::wstring name(rest.substr(0, length));
        rest.remove_prefix(length);
        return name;
    }
    /// Up to one of the letters outside of quotes, which stays; answers how many quoted texts there were.
    std::optional<int> SkipTo(std::wstring_view ends) {
        for (int quoted = 0; !rest.empty();) {
            const wchar_t letter = rest.front();
            if (ends.find(letter) != std::wstring_view::npos) return quoted;
            rest.remove_prefix(1);
            if (letter == L'<') return std::nullopt;
            if (letter != L'"' && letter != L'\'') continue;
            if (!SkipThrough(std::wstring_view(&letter, 1))) return std::nullopt;
            ++quoted;
        }
        return std::nullopt;
    }

    bool DropDocumentType() {
        hasType = true;
        rest.remove_prefix(9);
        SkipBlanks();
        if (TakeName().empty() || !SkipTo(L"[>")) return false;
        if (rest.front() == L'[') {
            rest.remove_prefix(1);
            if (!SkipDeclarations()) return false;
            SkipBlanks();
        }
        if (rest.empty() || rest.front() != L'>') return false;
        rest.remove_prefix(1);
        return true;
    }

    /// To the bracket that ends them, and over it.
    bool SkipDeclarations() {
        for (SkipBlanks(); !rest.empty(); SkipBlanks()) {
            if (rest.front() == L']') {
                rest.remove_prefix(1);
                return true;
            }
            if (!SkipDeclaration()) return false;
        }
        return false;
    }

    bool SkipDeclaration() {
        if (IsNext(L"<!--")) return SkipThrough(L"-->");
        if (IsNext(L"<?")) return SkipThrough(L"?>");
        if (rest.front() == L'%') {
            rest.remove_prefix(1);
            return !TakeName().empty() && IsNext(L";") && SkipThrough(L";");
        }
        if (IsNext(L"<!ENTITY")) return TakeEntity();
        for (const std::wstring_view kind : {L"<!ELEMENT", L"<!ATTLIST", L"<!NOTATION"})
            if (IsNext(kind)) return rest.remove_prefix(kind.size()), SkipTo(L">") && SkipThrough(L">");
        return false;
    }

    bool TakeEntity() {
        rest.remove_prefix(8);
        SkipBlanks();
        const bool isForDeclarations = IsNext(L"%");
        if (isForDeclarations) rest.remove_prefix(1);
        SkipBlanks();
        std::wstring name = TakeName();
        const std::optional<int> quoted = SkipTo(L">");
        if (name.empty() || quoted.value_or(0) == 0) return false;
        if (!isForDeclarations) entities.insert(std::move(name));
        return SkipThrough(L">");
    }

    std::wstring_view rest;
    std::set<std::wstring> entities;
    bool hasType = false;
    bool hasRoot = false;
    std::size_t depth = 0; ///< of elements that have begun and not ended
};

} // namespace

std::optional<std::string> PrepareXml(const std::string& document) {
    const std::optional<std::wstring> wide = StrictlyWideFromUtf8(document);
    if (!wide || !std::all_of(wide->begin(), wide->end(), IsXmlLetter)) return std::nullopt;
    const std::wstring_view text = *wide;
    Preparation preparation(text.substr(!text.empty() && text.front() == Mark ? 1 : 0));
    if (!preparation.Run()) return std::nullopt;
    return Utf8FromWide(preparation.prepared);
}

} // namespace archicad
