#include "workbench/ifc/StepString.h"

#include "text/Utf8.h"

#include <cstdint>
#include <iconv.h>
#include <optional>

namespace workbench::ifc {
namespace {

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
    // NOLINTNEXTLINE(performance-no-int-to-ptr): how the C library says that it has no such page
    if (converter == reinterpret_cast<iconv_t>(-1)) return utf8::Replacement;
    char in = static_cast<char>(byte);
    unsigned char out[4] = {};
    char* inPlace = &in;
    char* outPlace = reinterpret_cast<char*>(out);
    std::size_t inLeft = 1;
    std::size_t outLeft = sizeof out;
    const bool converted = iconv(converter, &inPlace, &inLeft, &outPlace, &outLeft) != static_cast<std::size_t>(-1);
    iconv_close(converter);
    if (!converted) return utf8::Replacement;
    return out[0] | char32_t(out[1]) << 8 | char32_t(out[2]) << 16 | char32_t(out[3]) << 24;
}

class Decoder {
public:
    explicit Decoder(std::string_view coded) : rest(coded), isUtf8(utf8::IsUtf8(coded)) {}

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
        if (byte < 0x80 || isUtf8) {
            out += static_cast<char>(byte);
        } else {
            utf8::AppendCharacter(out, byte);
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
        utf8::AppendCharacter(out, FromPage(page, static_cast<unsigned char>(rest[3] + 0x80)));
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
        utf8::AppendCharacter(out, *code);
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
            utf8::AppendCharacter(run, *code);
        }
        out += run;
        rest.remove_prefix(end + 4);
        return true;
    }

    std::string_view rest;
    bool isUtf8;
    char page = '1';
    std::string out;
};

} // namespace

std::string DecodeStepString(std::string_view coded) {
    return Decoder(coded).Run();
}

} // namespace workbench::ifc
