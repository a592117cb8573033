#include "zip/CodeLengthCode.h"

#include "zip/HuffmanCode.h"

#include <algorithm>

namespace zip {

namespace {

constexpr std::array<std::uint8_t, CodeLengthSymbolCount> Order = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                                   11, 4,  12, 3, 13, 2, 14, 1, 15};
constexpr unsigned RepeatPrevious = 16; // 3 to 6 times
constexpr unsigned RepeatZero = 17;     // 3 to 10 times
constexpr unsigned RepeatZeroLong = 18; // 11 to 138 times

constexpr unsigned ExtraBits(unsigned symbol) {
    return symbol == RepeatPrevious ? 2 : symbol == RepeatZero ? 3 : symbol == RepeatZeroLong ? 7 : 0;
}

template <std::size_t Size>
std::size_t UsedCount(const std::array<std::uint8_t, Size>& lengths, std::size_t least) {
    std::size_t count = Size;
    while (count > least && lengths[count - 1] == 0) {
        --count;
    }
    return count;
}

} // namespace

CodeLengthCode::CodeLengthCode(const std::array<std::uint8_t, LengthSymbolCount>& lengthCodes,
                               const std::array<std::uint8_t, DistanceSymbolCount>& distanceCodes)
    : lengthCodeCount(UsedCount(lengthCodes, 257)), distanceCodeCount(UsedCount(distanceCodes, 1)) {
    std::array<std::uint8_t, LengthSymbolCount + DistanceSymbolCount> all;
    std::copy_n(lengthCodes.begin(), lengthCodeCount, all.begin());
    std::copy_n(distanceCodes.begin(), distanceCodeCount, all.begin() + lengthCodeCount);
    const std::size_t total = lengthCodeCount + distanceCodeCount;
    for (std::size_t at = 0; at < total;) {
        std::size_t next = at + 1;
        while (next < total && all[next] == all[at]) {
            ++next;
        }
        AddRun(all[at], next - at);
        at = next;
    }
    ShortestCodeLengths(frequencies.data(), frequencies.size(), LongestCodeLengthCode, codeLengths.data());
    codeLengthCount = CodeLengthSymbolCount;
    while (codeLengthCount > 4 && codeLengths[Order[codeLengthCount - 1]] == 0) {
        --codeLengthCount;
    }
}

void CodeLengthCode::Append(unsigned symbol, std::size_t extra) {
    runs[runCount++] = {static_cast<std::uint8_t>(symbol), static_cast<std::uint8_t>(extra)};
    ++frequencies[symbol];
}

void CodeLengthCode::AddRun(std::uint8_t length, std::size_t times) {
    if (length == 0) {
        while (times >= 11) {
            const std::size_t now = std::min<std::size_t>(times, 138);
            Append(RepeatZeroLong, now - 11);
            times -= now;
        }
        if (times >= 3) {
            Append(RepeatZero, times - 3);
            times = 0;
        }
    } else {
        Append(length, 0);
        --times;
        while (times >= 3) {
            // Seven as four and three, so that no single ones are left over.
            const std::size_t now = times == 7 ? 4 : std::min<std::size_t>(times, 6);
            Append(RepeatPrevious, now - 3);
            times -= now;
        }
    }
    for (; times > 0; --times) {
        Append(length, 0);
    }
}

std::uint64_t CodeLengthCode::GetBits() const {
    std::uint64_t total = 5 + 5 + 4 + 3 * codeLengthCount;
    for (unsigned symbol = 0; symbol < CodeLengthSymbolCount; ++symbol) {
        total += static_cast<std::uint64_t>(frequencies[symbol]) * (codeLengths[symbol] + ExtraBits(symbol));
    }
    return total;
}

void CodeLengthCode::Write(BitWriter& bits) const {
    std::array<std::uint16_t, CodeLengthSymbolCount> codes;
    CanonicalCodes(codeLengths.data(), codeLengths.size(), codes.data());
    bits.Put(lengthCodeCount - 257, 5);
    bits.Put(distanceCodeCount - 1, 5);
    bits.Put(codeLengthCount - 4, 4);
    for (std::size_t i = 0; i < codeLengthCount; ++i) {
        bits.Put(codeLengths[Order[i]], 3);
    }
    for (std::size_t i = 0; i < runCount; ++i) {
        const Run run = runs[i];
        bits.Put(codes[run.symbol], codeLengths[run.symbol]);
        bits.Put(run.extra, ExtraBits(run.symbol));
    }
}

} // namespace zip
