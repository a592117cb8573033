#include "zip/BlockWriter.h"

#include "zip/CodeLengthCode.h"
#include "zip/HuffmanCode.h"

#include <algorithm>
#include <limits>

namespace zip {

namespace {

constexpr unsigned StoredForm = 0;
constexpr unsigned FixedForm = 1;
constexpr unsigned DynamicForm = 2;
constexpr unsigned HeadBits = 3;
constexpr std::uint32_t LongestStored = 65535;

struct CodeLengths {
    std::array<std::uint8_t, LengthSymbolCount> lengths{};
    std::array<std::uint8_t, DistanceSymbolCount> distances{};
};

constexpr CodeLengths MakeFixedCodeLengths() {
    CodeLengths fixed;
    for (std::size_t symbol = 0; symbol < LengthSymbolCount; ++symbol) {
        fixed.lengths[symbol] = symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
    }
    for (std::uint8_t& length : fixed.distances) {
        length = 5;
    }
    return fixed;
}

constexpr CodeLengths FixedCodeLengths = MakeFixedCodeLengths();

// Bits of the tokens and the end of the block, extra bits included.
std::uint64_t ContentBits(const SymbolCounts& counts, const CodeLengths& code) {
    std::uint64_t total = code.lengths[EndOfBlock];
    for (unsigned symbol = 0; symbol < EndOfBlock; ++symbol) {
        total += static_cast<std::uint64_t>(counts.lengths[symbol]) * code.lengths[symbol];
    }
    for (unsigned symbol = EndOfBlock + 1; symbol < LengthSymbolCount; ++symbol) {
        total += static_cast<std::uint64_t>(counts.lengths[symbol]) * (code.lengths[symbol] + LengthExtraBits(symbol));
    }
    for (unsigned symbol = 0; symbol < DistanceSymbolCount; ++symbol) {
        total +=
            static_cast<std::uint64_t>(counts.distances[symbol]) * (code.distances[symbol] + DistanceExtraBits(symbol));
    }
    return total;
}

CodeLengths OwnCodeLengths(const SymbolCounts& counts) {
    CodeLengths code;
    std::array<std::uint32_t, LengthSymbolCount> lengths = counts.lengths;
    lengths[EndOfBlock] = 1;
    ShortestCodeLengths(lengths.data(), lengths.size(), LongestCode, code.lengths.data());
    ShortestCodeLengths(counts.distances.data(), counts.distances.size(), LongestCode, code.distances.data());
    return code;
}

std::uint64_t StoredBits(const Block& block, unsigned bitsInByte) {
    if (block.input == nullptr) return std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t size = block.counts.inputBytes;
    const std::uint64_t parts = std::max<std::uint64_t>(1, (size + LongestStored - 1) / LongestStored);
    const unsigned firstPadding = (16 - bitsInByte - HeadBits) & 7;
    return HeadBits + firstPadding + 32 + (parts - 1) * 40 + 8 * size;
}

void WriteHead(BitWriter& bits, unsigned form, BlockPosition position) {
    bits.Put((position == BlockPosition::Last ? 1U : 0U) | (form << 1), HeadBits);
}

void WriteStored(BitWriter& bits, const Block& block, BlockPosition position) {
    const std::uint8_t* input = block.input;
    std::uint32_t left = block.counts.inputBytes;
    do {
        const std::uint32_t now = std::min(left, LongestStored);
        left -= now;
        WriteHead(bits, StoredForm, left == 0 ? position : BlockPosition::Inner);
        bits.PadToByte();
        bits.Put(now | ((~now & 0xFFFF) << 16), 32);
        bits.PutBytes(input, now);
        input += now;
    } while (left > 0);
}

struct Bits {
    std::uint32_t value;
    std::uint32_t count;
};

// Codes with the extra bits of each length already joined to them.
class TokenCoder {
public:
    explicit TokenCoder(const CodeLengths& code) {
        std::array<std::uint16_t, LengthSymbolCount> codes;
        CanonicalCodes(code.lengths.data(), LengthSymbolCount, codes.data());
        for (unsigned byte = 0; byte < 256; ++byte) {
            lengths[byte] = {codes[byte], code.lengths[byte]};
        }
        end = {codes[EndOfBlock], code.lengths[EndOfBlock]};
        for (unsigned length = 3; length <= 258; ++length) {
            const SymbolExtra symbol = LengthSymbols[length];
            const unsigned codeLength = code.lengths[symbol.symbol];
            matches[length] = {codes[symbol.symbol] | (static_cast<std::uint32_t>(symbol.extra) << codeLength),
                               codeLength + symbol.extraBits};
        }
        std::array<std::uint16_t, DistanceSymbolCount> distanceCodes;
        CanonicalCodes(code.distances.data(), DistanceSymbolCount, distanceCodes.data());
        for (unsigned symbol = 0; symbol < DistanceSymbolCount; ++symbol) {
            distances[symbol] = {distanceCodes[symbol], code.distances[symbol]};
        }
    }

    void Write(BitWriter& bits, const Token* tokens, std::size_t count) const {
        for (std::size_t i = 0; i < count; ++i) {
            const Token token = tokens[i];
            const std::uint32_t distance = TokenDistance(token);
            if (distance == 0) {
                bits.Put(lengths[token].value, lengths[token].count);
            } else {
                PutMatch(bits, matches[TokenLength(token)], distance);
            }
        }
        bits.Put(end.value, end.count);
    }

private:
    void PutMatch(BitWriter& bits, Bits length, std::uint32_t distance) const {
        const unsigned symbol = DistanceSymbol(distance);
        const Bits code = distances[symbol];
        const std::uint32_t extra = distance - DistanceBases[symbol];
        std::uint64_t value = length.value;
        value |= static_cast<std::uint64_t>(code.value) << length.count;
        value |= static_cast<std::uint64_t>(extra) << (length.count + code.count);
        bits.Put(value, length.count + code.count + DistanceExtraBits(symbol));
    }

    std::array<Bits, 256> lengths;
    std::array<Bits, 259> matches;
    std::array<Bits, DistanceSymbolCount> distances;
    Bits end;
};

} // namespace

void SymbolCounts::Add(const SymbolCounts& other) {
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        lengths[i] += other.lengths[i];
    }
    for (std::size_t i = 0; i < distances.size(); ++i) {
        distances[i] += other.distances[i];
    }
    inputBytes += other.inputBytes;
}

std::uint64_t FixedBlockBits(const SymbolCounts& counts) {
    return HeadBits + ContentBits(counts, FixedCodeLengths);
}

void WriteBlock(BitWriter& bits, const Block& block, BlockPosition position) {
    const CodeLengths own = OwnCodeLengths(block.counts);
    const CodeLengthCode ownHead(own.lengths, own.distances);
    const std::uint64_t ownBits = HeadBits + ownHead.GetBits() + ContentBits(block.counts, own);
    const std::uint64_t fixedBits = FixedBlockBits(block.counts);
    const std::uint64_t storedBits = StoredBits(block, bits.GetBitsInByte());
    if (storedBits <= ownBits && storedBits <= fixedBits) {
        WriteStored(bits, block, position);
    } else if (fixedBits <= ownBits) {
        WriteHead(bits, FixedForm, position);
        TokenCoder(FixedCodeLengths).Write(bits, block.tokens, block.tokenCount);
    } else {
        WriteHead(bits, DynamicForm, position);
        ownHead.Write(bits);
        TokenCoder(own).Write(bits, block.tokens, block.tokenCount);
    }
}

} // namespace zip
