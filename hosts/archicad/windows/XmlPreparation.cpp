#include "archicad/windows/XmlPreparation.h"

#include "archicad/windows/WideText.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace archicad {

namespace {

constexpr char16_t Mark = 0xFEFF;

bool IsBlank(char16_t letter) {
    return letter == u' ' || letter == u'\t' || letter == u'\n' || letter == u'\r';
}

bool IsNameStart(char16_t letter) {
    return letter >= 0x80 || (letter >= u'a' && letter <= u'z') || (letter >= u'A' && letter <= u'Z') ||
           letter == u'_' || letter == u':';
}

bool IsNameLetter(char16_t letter) {
    return IsNameStart(letter) || (letter >= u'0' && letter <= u'9') || letter == u'-' || letter == u'.';
}

/// Pairs of surrogates are sound by now.
bool IsXmlLetter(char16_t letter) {
    return letter >= 0x20 ? letter < 0xFFFE : IsBlank(letter);
}

/// The character that "#..." or "#x..." stands for; none where it is no number or no character of XML.
std::optional<char32_t> ReadNumber(std::u16string_view reference) {
    const bool isHexadecimal = reference.size() > 1 && reference[1] == u'x';
    const std::u16string_view digits = reference.substr(isHexadecimal ? 2 : 1);
    char32_t letter = 0;
    for (const char16_t digit : digits) {
        const char32_t lower = digit | 0x20U;
        const bool isLetter = isHexadecimal && lower >= U'a' && lower <= U'f';
        if (!isLetter && (digit < u'0' || digit > u'9')) return std::nullopt;
        letter = letter * (isHexadecimal ? 16 : 10) + (isLetter ? lower - U'a' + 10 : digit - u'0');
        if (letter > 0x10FFFF) return std::nullopt;
    }
    const bool isSurrogate = letter >= 0xD800 && letter <= 0xDFFF;
    if (digits.empty() || isSurrogate || (letter < 0x10000 && !IsXmlLetter(static_cast<char16_t>(letter))))
        return std::nullopt;
    return letter;
}

/// Goes over a document once and writes the one for the system's reader.
class Preparation {
public:
    explicit Preparation(std::u16string_view document) : rest(document) {}

    bool Run() {
        if (IsNext(u"<?xml") && !TakeDeclaration()) return false;
        while (!rest.empty()) {
            if (IsNext(u"<!--")) {
                if (!CopyThrough(u"-->", 4)) return false;
            } else if (IsNext(u"<![CDATA[")) {
                if (!CopyThrough(u"]]>", 9)) return false;
            } else if (IsNext(u"<?")) {
                if (!CopyThrough(u"?>", 2)) return false;
            } else if (IsNext(u"<!DOCTYPE") && !hasType && !hasRoot) {
                if (!DropDocumentType()) return false;
            } else if (rest.front() == u'&') {
                if (!TakeReference()) return false;
            } else if (rest.front() == u'<') {
                hasRoot = true;
                if (!CopyTag()) return false;
            } else {
                Copy(1);
            }
        }
        return hasRoot && depth == 0;
    }

    std::u16string prepared;

private:
    bool IsNext(std::u16string_view text) const { return rest.substr(0, text.size()) == text; }
    void Copy(std::size_t letters) {
        prepared += rest.substr(0, letters);
        rest.remove_prefix(letters);
    }
    bool CopyThrough(std::u16string_view end, std::size_t beginning) {
        const std::size_t place = rest.find(end, beginning);
        if (place == std::u16string_view::npos) return false;
        Copy(place + end.size());
        return true;
    }

    /// What it says of the encoding is about bytes that were others before.
    bool TakeDeclaration() {
        const std::size_t end = rest.find(u"?>");
        if (end == std::u16string_view::npos) return false;
        const std::size_t name = rest.substr(0, end).find(u"encoding");
        if (name == std::u16string_view::npos) {
            Copy(end + 2);
            return true;
        }
        Copy(name + 8);
        while (!rest.empty() && (IsBlank(rest.front()) || rest.front() == u'='))
            Copy(1);
        const char16_t quote = rest.empty() ? u'?' : rest.front();
        if (quote != u'"' && quote != u'\'') return false;
        const std::size_t length = rest.find(quote, 1);
        if (length == std::u16string_view::npos || length == 1) return false;
        const std::u16string_view value = rest.substr(1, length - 1);
        if (!IsNameStart(value.front()) || !std::all_of(value.begin(), value.end(), IsNameLetter)) return false;
        prepared.append(1, quote).append(u"UTF-8").append(1, quote);
        rest.remove_prefix(length + 1);
        return CopyThrough(u"?>", 0);
    }

    /// The system's own reader knows no numbers of more than 16 bits in all of its versions.
    bool TakeReference() {
        const std::size_t end = rest.find(u';');
        if (end == std::u16string_view::npos) return false;
        const std::u16string name(rest.substr(1, end - 1));
        if (name.rfind(u'#', 0) == 0) {
            const std::optional<char32_t> letter = ReadNumber(name);
            if (!letter) return false;
            if (*letter < 0x10000) {
                Copy(end + 1);
                return true;
            }
            prepared += static_cast<char16_t>(0xD7C0 + (*letter >> 10U));
            prepared += static_cast<char16_t>(0xDC00 + (*letter & 0x3FFU));
            rest.remove_prefix(end + 1);
            return true;
        }
        Copy(1);
        if (entities.count(name) != 0)
            prepared += u"amp;";
        else if (name != u"amp" && name != u"lt" && name != u"gt" && name != u"quot" && name != u"apos")
            return false;
        return true;
    }

    void CopyBlanks() {
        while (!rest.empty() && IsBlank(rest.front()))
            Copy(1);
    }
    std::u16string CopyName() {
        std::u16string name = TakeName();
        prepared += name;
        return name;
    }

    /// Attributes stand apart and each once, and every element has an end: not every version of the system's reader
    /// asks for the one or comes to an end without the other.
    bool CopyTag() {
        Copy(1);
        const bool isEnd = IsNext(u"/");
        if (isEnd) Copy(1);
        if (CopyName().empty()) return false;
        if (!isEnd) return CopyAttributes();
        CopyBlanks();
        return IsNext(u">") && depth-- > 0;
    }

    bool CopyAttributes() {
        std::set<std::u16string> attributes;
        while (!rest.empty() && IsBlank(rest.front())) {
            CopyBlanks();
            if (rest.empty() || !IsNameStart(rest.front())) break;
            if (!attributes.insert(CopyName()).second || !CopyAttributeValue()) return false;
        }
        if (IsNext(u"/>")) return true;
        ++depth;
        return IsNext(u">");
    }

    bool CopyAttributeValue() {
        CopyBlanks();
        if (!IsNext(u"=")) return false;
        Copy(1);
        CopyBlanks();
        const char16_t quote = rest.empty() ? u'?' : rest.front();
        if (quote != u'"' && quote != u'\'') return false;
        for (Copy(1); !rest.empty() && rest.front() != quote;) {
            if (rest.front() == u'<') return false;
            if (rest.front() != u'&')
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
    bool SkipThrough(std::u16string_view end) {
        const std::size_t place = rest.find(end);
        if (place == std::u16string_view::npos) return false;
        rest.remove_prefix(place + end.size());
        return true;
    }
    std::u16string TakeName() {
        std::size_t length = 0;
        while (length < rest.size() && (length == 0 ? IsNameStart(rest[0]) : IsNameLetter(rest[length])))
            ++length;
        std::u16string name(rest.substr(0, length));
        rest.remove_prefix(length);
        return name;
    }
    /// Up to one of the letters outside of quotes, which stays; answers how many quoted texts there were.
    std::optional<int> SkipTo(std::u16string_view ends) {
        for (int quoted = 0; !rest.empty();) {
            const char16_t letter = rest.front();
            if (ends.find(letter) != std::u16string_view::npos) return quoted;
            rest.remove_prefix(1);
            if (letter == u'<') return std::nullopt;
            if (letter != u'"' && letter != u'\'') continue;
            if (!SkipThrough(std::u16string_view(&letter, 1))) return std::nullopt;
            ++quoted;
        }
        return std::nullopt;
    }

    bool DropDocumentType() {
        hasType = true;
        rest.remove_prefix(9);
        SkipBlanks();
        if (TakeName().empty() || !SkipTo(u"[>")) return false;
        if (rest.front() == u'[') {
            rest.remove_prefix(1);
            if (!SkipDeclarations()) return false;
            SkipBlanks();
        }
        if (rest.empty() || rest.front() != u'>') return false;
        rest.remove_prefix(1);
        return true;
    }

    /// To the bracket that ends them, and over it.
    bool SkipDeclarations() {
        for (SkipBlanks(); !rest.empty(); SkipBlanks()) {
            if (rest.front() == u']') {
                rest.remove_prefix(1);
                return true;
            }
            if (!SkipDeclaration()) return false;
        }
        return false;
    }

    bool SkipDeclaration() {
        if (IsNext(u"<!--")) return SkipThrough(u"-->");
        if (IsNext(u"<?")) return SkipThrough(u"?>");
        if (rest.front() == u'%') {
            rest.remove_prefix(1);
            return !TakeName().empty() && IsNext(u";") && SkipThrough(u";");
        }
        if (IsNext(u"<!ENTITY")) return TakeEntity();
        for (const std::u16string_view kind : {u"<!ELEMENT", u"<!ATTLIST", u"<!NOTATION"})
            if (IsNext(kind)) return rest.remove_prefix(kind.size()), SkipTo(u">") && SkipThrough(u">");
        return false;
    }

    bool TakeEntity() {
        rest.remove_prefix(8);
        SkipBlanks();
        const bool isForDeclarations = IsNext(u"%");
        if (isForDeclarations) rest.remove_prefix(1);
        SkipBlanks();
        std::u16string name = TakeName();
        const std::optional<int> quoted = SkipTo(u">");
        if (name.empty() || quoted.value_or(0) == 0) return false;
        if (!isForDeclarations) entities.insert(std::move(name));
        return SkipThrough(u">");
    }

    std::u16string_view rest;
    std::set<std::u16string> entities;
    bool hasType = false;
    bool hasRoot = false;
    std::size_t depth = 0; ///< of elements that have begun and not ended
};

} // namespace

std::optional<std::string> PrepareXml(const std::string& document) {
    const std::optional<std::wstring> wide = StrictlyWideFromUtf8(document);
    if (!wide) return std::nullopt;
    std::u16string text(wide->begin(), wide->end());
    if (!text.empty() && text.front() == Mark) text.erase(0, 1);
    if (!std::all_of(text.begin(), text.end(), IsXmlLetter)) return std::nullopt;
    Preparation preparation(text);
    if (!preparation.Run()) return std::nullopt;
    return Utf8FromWide(std::wstring(preparation.prepared.begin(), preparation.prepared.end()));
}

} // namespace archicad
