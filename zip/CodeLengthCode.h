// The head of a block with codes of its own: the code lengths, themselves run-length and prefix coded.
#pragma once

#include "zip/BitWriter.h"
#include "zip/DeflateAlphabet.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zip {

class CodeLengthCode {
public:
    /// lengthCodes, distanceCodes  code lengths, 0 for symbols without a code
    CodeLengthCode(const std::array<std::uint8_t, LengthSymbolCount>& lengthCodes,
                   const std::array<std::uint8_t, DistanceSymbolCount>& distanceCodes);

    /// Bits that Write puts.
    [[nodiscard]] std::uint64_t GetBits() const;
    void Write(BitWriter& bits) const;

private:
    struct Run {
        std::uint8_t symbol; // a code length, or 16, 17, 18 for repeats
        std::uint8_t extra;
    };

    void AddRun(std::uint8_t length, std::size_t times);
    void Append(unsigned symbol, std::size_t extra);

    std::array<Run, LengthSymbolCount + DistanceSymbolCount> runs;
    std::size_t runCount = 0;
    std::array<std::uint32_t, CodeLengthSymbolCount> frequencies{};
    std::array<std::uint8_t, CodeLengthSymbolCount> codeLengths{};
    std::size_t lengthCodeCount;
    std::size_t distanceCodeCount;
    std::size_t codeLengthCount;
};

} // namespace zip
