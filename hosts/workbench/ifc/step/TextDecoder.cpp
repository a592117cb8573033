#include "workbench/ifc/step/TextDecoder.h"

#include <algorithm>

#include "text/Utf8.h"
#include "workbench/text/CodePages.h"

namespace workbench::step {
namespace {

constexpr std::string_view Standard = "ISO-8859-1";

bool IsPlain(std::string_view coded) {
    return std::all_of(coded.begin(), coded.end(),
                       [](char c) { return c != '\\' && c != '\'' && static_cast<unsigned char>(c) < 0x80; });
}

/// Puts the pieces of one string together by the standard: bytes are ISO 8859-1, or of the page that a directive names.
class StandardText : public TextPieces {
public:
    explicit StandardText(bool isUtf8) : isUtf8(isUtf8) {}

    void TakeByte(unsigned char byte, ByteForm form) override {
        if (form == ByteForm::Raw && isUtf8) {
            out += static_cast<char>(byte);
        } else if (form == ByteForm::Shifted && directive != '1' && byte >= 0xA0) {
            out += DecodeTextSomehow(std::string("ISO-8859-") + directive, std::string(1, static_cast<char>(byte)));
        } else {
            utf8::AppendCharacter(out, byte);
        }
    }
    void TakeCharacter(char32_t character) override { utf8::AppendCharacter(out, character); }
    void TakePage(char page) override {
        directive = page;
        hasDirective = true;
    }

    std::string out;
    bool hasDirective = false;

private:
    bool isUtf8;
    char directive = '1';
};

/// Puts them together by a page of the file, in which several bytes may be one character.
class PagedText : public TextPieces {
public:
    explicit PagedText(const std::string& page) : page(page) {}

    void TakeByte(unsigned char byte, ByteForm) override { bytes += static_cast<char>(byte); }
    void TakeCharacter(char32_t character) override {
        Convert();
        utf8::AppendCharacter(out, character);
    }
    void TakePage(char) override {}

    std::string Finish() {
        Convert();
        return std::move(out);
    }

private:
    void Convert() {
        if (!bytes.empty()) out += DecodeTextSomehow(page, bytes);
        bytes.clear();
    }

    const std::string& page;
    std::string bytes;
    std::string out;
};

bool HasRawBytes(std::string_view coded) {
    return std::any_of(coded.begin(), coded.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

} // namespace

std::string TextDecoder::Decode(std::string_view coded) const {
    if (IsPlain(coded)) return std::string(coded);
    StandardText standard(utf8::IsUtf8(coded));
    TakeApart(coded, standard);
    const bool isStandard = page.isRawUtf8 && (page.name == Standard || HasRawBytes(coded));
    if (isStandard || standard.hasDirective) return std::move(standard.out);
    PagedText paged(page.name);
    TakeApart(coded, paged);
    return paged.Finish();
}

} // namespace workbench::step
