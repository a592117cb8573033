// Takes the escapes of a STEP string apart, whatever its bytes beyond ASCII may mean.
#pragma once

#include <cstdint>
#include <string_view>

namespace workbench::step {

/// How a byte is written.
enum class ByteForm : std::uint8_t {
    Raw,
    Shifted,    ///< "\S\" and the character 128 below it
    Hexadecimal ///< "\X\" and two digits
};

/// Is told of the pieces of a string in their order.
class TextPieces {
public:
    virtual ~TextPieces() = default;
    virtual void TakeByte(unsigned char byte, ByteForm form) = 0;
    /// Of the escapes "\X2\" and "\X4\"; may be no character of Unicode.
    virtual void TakeCharacter(char32_t character) = 0;
    /// "\PA\" to "\PI\" ask for ISO 8859-1 to -9, PAGE '1' to '9'.
    virtual void TakePage(char page) = 0;
};

/// CODED is what stands between the apostrophes. An escape that is malformed comes as the bytes that it is written in.
/// Of "\X2\" and "\X4\" the whole units count: an incomplete rest goes, and so does a byte order mark in front.
void TakeApart(std::string_view coded, TextPieces& pieces);

} // namespace workbench::step
