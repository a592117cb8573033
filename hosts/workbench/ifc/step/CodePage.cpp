#include "workbench/ifc/step/CodePage.h"

#include <algorithm>
#include <cstddef>
#include <iconv.h>

#include "text/Utf8.h"

namespace workbench::step {
namespace {

bool IsControl(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0;
}

/// Signs of Windows-1252 in the range of the control characters; not its letters, and not the low quotation mark, the
/// florin sign and the accent, which no text needs and which begin common Japanese characters.
bool IsTypographic(unsigned char byte) {
    constexpr std::string_view Signs = "\x80\x84\x85\x86\x87\x89\x8B\x91\x92\x93\x94\x95\x96\x97\x99\x9B";
    return Signs.find(static_cast<char>(byte)) != std::string_view::npos;
}

/// What may stand beside a typographic sign: letters, digits, blanks and what ends a phrase.
bool IsBesideSigns(unsigned char byte) {
    const unsigned char lower = byte | 0x20;
    return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9') || byte >= 0xC0 ||
           std::string_view(" .,;:()-/").find(static_cast<char>(byte)) != std::string_view::npos;
}

bool IsWindowsText(std::string_view bytes) {
    const auto fits = [&](std::size_t at) {
        return at >= bytes.size() || IsBesideSigns(static_cast<unsigned char>(bytes[at]));
    };
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (IsControl(byte) && !(IsTypographic(byte) && fits(at - 1) && fits(at + 1))) return false;
    }
    return true;
}

bool IsJapaneseLead(unsigned char byte) {
    return (byte >= 0x81 && byte < 0xA0) || (byte >= 0xE0 && byte <= 0xFC);
}

bool IsJapaneseTrail(unsigned char byte) {
    return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

bool IsHalfWidthKatakana(unsigned char byte) {
    return byte >= 0xA1 && byte <= 0xDF;
}

struct JapaneseFindings {
    bool isValid = true;
    bool hasPair = false; ///< a character of two bytes beyond ASCII, the first of them a control character
};

JapaneseFindings LookForJapanese(std::string_view bytes) {
    JapaneseFindings findings;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte < 0x80 || IsHalfWidthKatakana(byte)) continue;
        const auto next = at + 1 < bytes.size() ? static_cast<unsigned char>(bytes[at + 1]) : 0;
        if (!IsJapaneseLead(byte) || !IsJapaneseTrail(next)) return {false, false};
        findings.hasPair = findings.hasPair || (IsControl(byte) && next >= 0x80);
        ++at;
    }
    return findings;
}

/// The bytes of a string, and what else is in it.
class ByteCollector : public TextPieces {
public:
    void TakeByte(unsigned char byte, ByteForm form) override {
        bytes += static_cast<char>(byte);
        hasRaw = hasRaw || (form == ByteForm::Raw && byte >= 0x80);
    }
    void TakeCharacter(char32_t) override { isPlain = false; }
    void TakePage(char) override { isPlain = false; }

    std::string bytes;
    bool hasRaw = false;
    bool isPlain = true; ///< neither page directives nor characters of Unicode
};

/// A quick look: most strings with escapes have only those of Unicode.
bool HasEightBits(std::string_view coded) {
    return coded.find("\\X\\") != std::string_view::npos || coded.find("\\S\\") != std::string_view::npos ||
           std::any_of(coded.begin(), coded.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

class Converter {
public:
    explicit Converter(const std::string& page) : converter(iconv_open("UTF-8", page.c_str())) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsOpen()) iconv_close(converter);
    }

    /// By the value that iconv answers a failure with.
    [[nodiscard]] bool IsOpen() const {
        return converter != reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)
    }

    [[nodiscard]] std::string Convert(std::string_view bytes) const {
        std::string in(bytes);
        std::string out(4 * in.size() + 16, '\0');
        char* inPlace = in.data();
        char* outPlace = out.data();
        std::size_t inLeft = in.size();
        std::size_t outLeft = out.size();
        while (inLeft > 0 && iconv(converter, &inPlace, &inLeft, &outPlace, &outLeft) == static_cast<std::size_t>(-1)) {
            if (outLeft < 4) break;
            ++inPlace;
            --inLeft;
            outPlace += std::string_view("\xEF\xBF\xBD").copy(outPlace, 3);
            outLeft -= 3;
        }
        out.resize(out.size() - outLeft);
        return out;
    }

private:
    iconv_t converter;
};

} // namespace

void CodePageEvidence::Findings::Add(std::string_view bytes) {
    for (const char byte : bytes)
        hasControls = hasControls || IsControl(static_cast<unsigned char>(byte));
    isWindows = isWindows && IsWindowsText(bytes);
    const JapaneseFindings japanese = LookForJapanese(bytes);
    isJapanese = isJapanese && japanese.isValid;
    hasJapanesePair = hasJapanesePair || japanese.hasPair;
}

void CodePageEvidence::Findings::Add(const Findings& other) {
    hasControls = hasControls || other.hasControls;
    isWindows = isWindows && other.isWindows;
    isJapanese = isJapanese && other.isJapanese;
    hasJapanesePair = hasJapanesePair || other.hasJapanesePair;
}

void CodePageEvidence::Take(std::string_view coded) {
    if (!HasEightBits(coded)) return;
    ByteCollector collector;
    TakeApart(coded, collector);
    if (!collector.isPlain) return;
    (collector.hasRaw ? raw : escaped).Add(collector.bytes);
    isRawUtf8 = isRawUtf8 && (!collector.hasRaw || utf8::IsUtf8(coded));
}

CodePage CodePageEvidence::Decide() const {
    Findings all = escaped;
    if (!isRawUtf8) all.Add(raw);
    if (!all.hasControls) return {};
    if (all.isWindows) return {.name = "WINDOWS-1252", .isRawUtf8 = isRawUtf8};
    if (all.isJapanese && all.hasJapanesePair) return {.name = "CP932", .isRawUtf8 = isRawUtf8};
    return {.isDoubtful = true};
}

std::string ConvertToUtf8(const std::string& name, std::string_view bytes) {
    const Converter converter(name);
    std::string text;
    if (converter.IsOpen()) return converter.Convert(bytes);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        utf8::AppendCharacter(text, utf8::Replacement);
    return text;
}

bool IsKnownCodePage(const std::string& name) {
    return Converter(name).IsOpen();
}

} // namespace workbench::step
