#include "workbench/ifc/step/TextEscapes.h"

#include <charconv>
#include <cstddef>
#include <optional>

namespace workbench::step {
namespace {

constexpr char32_t ByteOrderMark = 0xFEFF;

std::optional<std::uint32_t> HexNumber(std::string_view digits) {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return value;
}

bool AreHexDigits(std::string_view digits) {
    return digits.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

bool IsHighSurrogate(std::uint32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(std::uint32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

class Reader {
public:
    Reader(std::string_view coded, TextPieces& pieces) : rest(coded), pieces(pieces) {}

    void Run() {
        while (!rest.empty()) {
            if (rest.front() == '\\' && TakeEscape()) continue;
            const std::size_t width = rest.starts_with("''") ? 2 : 1;
            TakeByte(rest.front(), ByteForm::Raw, width);
        }
    }

private:
    void TakeByte(char byte, ByteForm form, std::size_t width) {
        pieces.TakeByte(static_cast<unsigned char>(byte), form);
        rest.remove_prefix(width);
    }

    bool TakeEscape() {
        return TakeBackslash() || TakeShift() || TakePage() || TakeHexByte() || TakeUnits("\\X2\\", 4) ||
               TakeUnits("\\X4\\", 8);
    }

    bool TakeBackslash() {
        if (!rest.starts_with("\\\\")) return false;
        TakeByte('\\', ByteForm::Raw, 2);
        return true;
    }

    bool TakeShift() {
        if (!rest.starts_with("\\S\\") || rest.size() < 4 || static_cast<unsigned char>(rest[3]) >= 0x80) return false;
        const std::size_t width = rest.substr(3).starts_with("''") ? 5 : 4;
        TakeByte(static_cast<char>(rest[3] | 0x80), ByteForm::Shifted, width);
        return true;
    }

    bool TakePage() {
        if (rest.size() < 4 || !rest.starts_with("\\P") || rest[3] != '\\' || rest[2] < 'A' || rest[2] > 'I')
            return false;
        pieces.TakePage(static_cast<char>('1' + (rest[2] - 'A')));
        rest.remove_prefix(4);
        return true;
    }

    bool TakeHexByte() {
        if (!rest.starts_with("\\X\\") || rest.size() < 5) return false;
        const auto byte = HexNumber(rest.substr(3, 2));
        if (!byte) return false;
        TakeByte(static_cast<char>(*byte), ByteForm::Hexadecimal, 5);
        return true;
    }

    bool TakeUnits(std::string_view opening, std::size_t width) {
        if (!rest.starts_with(opening)) return false;
        const std::size_t end = rest.find("\\X0\\", opening.size());
        if (end == std::string_view::npos) return false;
        const std::string_view digits = rest.substr(opening.size(), end - opening.size());
        if (!AreHexDigits(digits)) return false;
        TellUnits(digits, width);
        rest.remove_prefix(end + 4);
        return true;
    }

    void TellUnits(std::string_view digits, std::size_t width) {
        for (std::size_t at = 0; at + width <= digits.size(); at += width) {
            std::uint32_t unit = HexNumber(digits.substr(at, width)).value_or(0);
            if (at == 0 && unit == ByteOrderMark) continue;
            if (width == 4 && IsHighSurrogate(unit) && at + 2 * width <= digits.size()) {
                const std::uint32_t low = HexNumber(digits.substr(at + width, width)).value_or(0);
                if (IsLowSurrogate(low)) {
                    unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
                    at += width;
                }
            }
            pieces.TakeCharacter(unit);
        }
    }

    std::string_view rest;
    TextPieces& pieces;
};

} // namespace

void TakeApart(std::string_view coded, TextPieces& pieces) {
    Reader(coded, pieces).Run();
}

} // namespace workbench::step
