#include "Utf8.h"

namespace ResourceCompiler {
namespace {

struct LeadByte {
    unsigned char first, last;
    std::size_t length;
    unsigned char secondFirst,
        secondLast; // narrower second bytes refuse overlong forms, surrogates and values too large
};

constexpr LeadByte LeadBytes[] = {
    {0x00, 0x7F, 1, 0x80, 0xBF}, {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

// Length of the well-formed character at the start of `text`, 0 when there is none.
std::size_t CharacterLength(std::string_view text) {
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    for (const LeadByte& lead : LeadBytes) {
        if (byteAt(0) < lead.first || byteAt(0) > lead.last) continue;
        if (text.size() < lead.length) return 0;
        if (lead.length > 1 && (byteAt(1) < lead.secondFirst || byteAt(1) > lead.secondLast)) return 0;
        for (std::size_t index = 2; index < lead.length; ++index)
            if ((byteAt(index) & 0xC0) != 0x80) return 0;
        return lead.length;
    }
    return 0;
}

} // namespace

std::optional<std::size_t> FindInvalidUtf8(std::string_view text) {
    for (std::size_t offset = 0; offset < text.size();) {
        const std::size_t length = CharacterLength(text.substr(offset));
        if (length == 0) return offset;
        offset += length;
    }
    return std::nullopt;
}

} // namespace ResourceCompiler
