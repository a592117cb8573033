#include "zip/BlockWriter.h"

#include "zip/CodeLengthCode.h"
#include "zip/HuffmanCode.h"

#include <algorithm>
#include <limits>

namespace zip {

namespace {

constexpr unsigned storedForm = 0;
constexpr unsigned fixedForm = 1;
constexpr unsigned dynamicForm = 2;
constexpr unsigned headBits = 3;
constexpr std::uint32_t longestStored = 65535;

struct CodeLengths {
    std::array<std::uint8_t, lengthSymbolCount> lengths{};
    std::array<std::uint8_t, distanceSymbolCount> distances{};
};

constexpr CodeLengths MakeFixedCodeLengths() {
    CodeLengths fixed;
    for (std::size_t symbol = 0; symbol < lengthSymbolCount; ++symbol) {
        fixed.lengths[symbol] = symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
    }
    for (std::uint8_t& length : fixed.distances) {
        length = 5;
    }
    return fixed;
}

constexpr CodeLengths fixedCodeLengths = MakeFixedCodeLengths();

// Bits of the tokens and the end of the block, extra bits included.
std::uint64_t ContentBits(const SymbolCounts& counts, const CodeLengths& code) {
    std::uint64_t total = code.lengths[endOfBlock];
    for (unsigned symbol = 0; symbol < endOfBlock; ++symbol) {
        total += static_cast<std::uint64_t>(counts.lengths[symbol]) * code.lengths[symbol];
    }
    for (unsigned symbol = endOfBlock + 1; symbol < lengthSymbolCount; ++symbol) {
        total += static_cast<std::uint64_t>(counts.lengths[symbol]) * (code.lengths[symbol] + LengthExtraBits(symbol));
    }
    for (unsigned symbol = 0; symbol < distanceSymbolCount; ++symbol) {
        total +=
            static_cast<std::uint64_t>(counts.distances[symbol]) * (code.distances[symbol] + DistanceExtraBits(symbol));
    }
    return total;
}

CodeLengths OwnCodeLengths(const SymbolCounts& counts) {
    CodeLengths code;
    std::array<std::uint32_t, lengthSymbolCount> lengths = counts.lengths;
    lengths[endOfBlock] = 1;
    ShortestCodeLengths(lengths.data(), lengths.size(), longestCode, code.lengths.data());
    ShortestCodeLengths(counts.distances.data(), counts.distances.size(), longestCode, code.distances.data());
    return code;
}

std::uint64_t StoredBits(const Block& block, unsigned bitsInByte) {
    if (block.input == nullptr) return std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t size = block.counts.inputBytes;
    const std::uint64_t parts = std::max<std::uint64_t>(1, (size + longestStored - 1) / longestStored);
    const unsigned firstPadding = (16 - bitsInByte - headBits) & 7;
    return headBits + firstPadding + 32 + (parts - 1) * 40 + 8 * size;
}

void WriteHead(BitWriter& bits, unsigned form, BlockPosition position) {
    bits.Put((position == BlockPosition::Last ? 1U : 0U) | (form << 1), headBits);
}

void WriteStored(BitWriter& bits, const Block& block, BlockPosition position) {
    const std::uint8_t* input = block.input;
    std::uint32_t left = block.counts.inputBytes;
    do {
        const std::uint32_t now = std::min(left, longestStored);
        left -= now;
        WriteHead(bits, storedForm, left == 0 ? position : BlockPosition::Inner);
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
        std::array<std::uint16_t, lengthSymbolCount> codes;
        CanonicalCodes(code.lengths.data(), lengthSymbolCount, codes.data());
        for (unsigned byte = 0; byte < 256; ++byte) {
            lengths[byte] = {codes[byte], code.lengths[byte]};
        }
        end = {codes[endOfBlock], code.lengths[endOfBlock]};
        for (unsigned length = 3; length <= 258; ++length) {
            const SymbolExtra symbol = lengthSymbols[length];
            const unsigned codeLength = code.lengths[symbol.symbol];
            matches[length] = {codes[symbol.symbol] | (static_cast<std::uint32_t>(symbol.extra) << codeLength),
                               codeLength + symbol.extraBits};
        }
        std::array<std::uint16_t, distanceSymbolCount> distanceCodes;
        CanonicalCodes(code.distances.data(), distanceSymbolCount, distanceCodes.data());
        for (unsigned symbol = 0; symbol < distanceSymbolCount; ++symbol) {
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
        const std::uint32_t extra = distance - distanceBases[symbol];
        std::uint64_t value = length.value;
        value |= static_cast<std::uint64_t>(code.value) << length.count;
        value |= static_cast<std::uint64_t>(extra) << (length.count + code.count);
        bits.Put(value, length.count + code.count + DistanceExtraBits(symbol));
    }

    std::array<Bits, 256> lengths;
    std::array<Bits, 259> matches;
    std::array<Bits, distanceSymbolCount> distances;
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
    return headBits + ContentBits(counts, fixedCodeLengths);
}

void WriteBlock(BitWriter& bits, const Block& block, BlockPosition position) {
    const CodeLengths own = OwnCodeLengths(block.counts);
    const CodeLengthCode ownHead(own.lengths, own.distances);
    const std::uint64_t ownBits = headBits + ownHead.Bits() + ContentBits(block.counts, own);
    const std::uint64_t fixedBits = FixedBlockBits(block.counts);
    const std::uint64_t storedBits = StoredBits(block, bits.BitsInByte());
    if (storedBits <= ownBits && storedBits <= fixedBits) {
        WriteStored(bits, block, position);
    } else if (fixedBits <= ownBits) {
        WriteHead(bits, fixedForm, position);
        TokenCoder(fixedCodeLengths).Write(bits, block.tokens, block.tokenCount);
    } else {
        WriteHead(bits, dynamicForm, position);
        ownHead.Write(bits);
        TokenCoder(own).Write(bits, block.tokens, block.tokenCount);
    }
}

} // namespace zip
