#include "workbench/ifc/StepString.h"

#include <cstdint>
#include <iconv.h>
#include <optional>

namespace workbench::ifc {
namespace {

constexpr char32_t replacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t code) {
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) code = replacement;
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

/// Length of the UTF-8 sequence that starts TEXT, or none: overlong forms, surrogates and stray bytes are no sequence.
std::optional<std::size_t> SequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    const std::size_t length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 0 || first > 0xF4 || text.size() < length) return std::nullopt;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return std::nullopt;
    }
    if ((first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) > 0x9F)) return std::nullopt;
    if ((first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) > 0x8F)) return std::nullopt;
    return length;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const auto length = SequenceLength(text);
        if (!length) return false;
        text.remove_prefix(*length);
    }
    return true;
}

std::optional<std::uint32_t> HexNumber(std::string_view digits) {
    std::uint32_t value = 0;
    for (const char c : digits) {
        const int digit = c >= '0' && c <= '9'   ? c - '0'
                          : c >= 'A' && c <= 'F' ? c - 'A' + 10
                          : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                                 : -1;
        if (digit < 0) return std::nullopt;
        value = value * 16 + static_cast<std::uint32_t>(digit);
    }
    return value;
}

/// One byte of ISO 8859-PAGE as a code point.
char32_t FromPage(char page, unsigned char byte) {
    if (page == '1' || byte < 0xA0) return byte;
    const std::string name = std::string("ISO-8859-") + page;
    const iconv_t converter = iconv_open("UTF-32LE", name.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1)) return replacement;
    char in = static_cast<char>(byte);
    unsigned char out[4] = {};
    char* inPlace = &in;
    char* outPlace = reinterpret_cast<char*>(out);
    std::size_t inLeft = 1;
    std::size_t outLeft = sizeof out;
    const bool converted = iconv(converter, &inPlace, &inLeft, &outPlace, &outLeft) != static_cast<std::size_t>(-1);
    iconv_close(converter);
    if (!converted) return replacement;
    return out[0] | char32_t(out[1]) << 8 | char32_t(out[2]) << 16 | char32_t(out[3]) << 24;
}

class Decoder {
public:
    explicit Decoder(std::string_view coded) : rest(coded), utf8(IsUtf8(coded)) {}

    std::string Run() {
        while (!rest.empty()) {
            if (rest.front() == '\'') {
                TakeApostrophe();
            } else if (rest.front() != '\\' || !TakeEscape()) {
                TakeByte();
            }
        }
        return std::move(out);
    }

private:
    void TakeByte() {
        const auto byte = static_cast<unsigned char>(rest.front());
        rest.remove_prefix(1);
        if (byte < 0x80 || utf8) {
            out += static_cast<char>(byte);
        } else {
            AppendUtf8(out, byte);
        }
    }

    void TakeApostrophe() {
        out += '\'';
        rest.remove_prefix(rest.starts_with("''") ? 2 : 1);
    }

    bool TakeEscape() {
        if (rest.starts_with("\\\\")) {
            out += '\\';
            rest.remove_prefix(2);
            return true;
        }
        return TakeShift() || TakePage() || TakeHexByte() || TakeHexRun("\\X2\\", 4) || TakeHexRun("\\X4\\", 8);
    }

    bool TakeShift() {
        if (!rest.starts_with("\\S\\") || rest.size() < 4 || static_cast<unsigned char>(rest[3]) >= 0x80) return false;
        AppendUtf8(out, FromPage(page, static_cast<unsigned char>(rest[3] + 0x80)));
        rest.remove_prefix(4);
        return true;
    }

    bool TakePage() {
        if (rest.size() < 4 || !rest.starts_with("\\P") || rest[3] != '\\' || rest[2] < 'A' || rest[2] > 'I')
            return false;
        page = static_cast<char>('1' + (rest[2] - 'A'));
        rest.remove_prefix(4);
        return true;
    }

    bool TakeHexByte() {
        if (!rest.starts_with("\\X\\") || rest.size() < 5) return false;
        const auto code = HexNumber(rest.substr(3, 2));
        if (!code) return false;
        AppendUtf8(out, *code);
        rest.remove_prefix(5);
        return true;
    }

    bool TakeHexRun(std::string_view opening, std::size_t width) {
        if (!rest.starts_with(opening)) return false;
        const std::size_t end = rest.find("\\X0\\", opening.size());
        if (end == std::string_view::npos || (end - opening.size()) % width != 0) return false;
        std::string run;
        for (std::size_t at = opening.size(); at < end; at += width) {
            auto code = HexNumber(rest.substr(at, width));
            if (!code) return false;
            if (*code >= 0xD800 && *code < 0xDC00 && width == 4 && at + 2 * width <= end) {
                const auto low = HexNumber(rest.substr(at + width, width));
                if (low && *low >= 0xDC00 && *low < 0xE000) {
                    code = 0x10000 + ((*code - 0xD800) << 10) + (*low - 0xDC00);
                    at += width;
                }
            }
            AppendUtf8(run, *code);
        }
        out += run;
        rest.remove_prefix(end + 4);
        return true;
    }

    std::string_view rest;
    bool utf8;
    char page = '1';
    std::string out;
};

} // namespace

std::string DecodeStepString(std::string_view coded) {
    return Decoder(coded).Run();
}

} // namespace workbench::ifc
