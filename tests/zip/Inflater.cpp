#include "Inflater.h"

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>
#include <utility>

namespace inflate {

namespace {

struct Malformed : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void Require(bool holds, const char* what) {
    if (!holds) throw Malformed(what);
}

class BitReader {
public:
    explicit BitReader(const std::string& stream) : stream(stream) {}
    unsigned Take(unsigned count) {
        unsigned value = 0;
        for (unsigned i = 0; i < count; ++i) {
            value |= TakeBit() << i;
        }
        return value;
    }
    unsigned TakeBit() {
        Require(at < 8 * stream.size(), "the stream ends too soon");
        const unsigned bit = (static_cast<unsigned char>(stream[at / 8]) >> (at % 8)) & 1U;
        ++at;
        return bit;
    }
    void SkipToByte() { at = (at + 7) / 8 * 8; }
    [[nodiscard]] std::size_t Position() const { return at; }

private:
    const std::string& stream;
    std::size_t at = 0;
};

// Codes in order of length; the classic walk by first code and count of each length.
class Code {
public:
    explicit Code(const std::vector<unsigned>& lengths) {
        for (unsigned length = 1; length <= 15; ++length) {
            for (unsigned symbol = 0; symbol < lengths.size(); ++symbol) {
                if (lengths[symbol] != length) continue;
                ++counts[length];
                symbols.push_back(symbol);
            }
        }
        int left = 1;
        for (unsigned length = 1; length <= 15; ++length) {
            left = 2 * left - static_cast<int>(counts[length]);
            Require(left >= 0, "more codes than fit");
        }
        Require(left == 0 || symbols.size() <= 1, "a code is incomplete");
    }
    unsigned Read(BitReader& bits) const {
        unsigned code = 0;
        unsigned first = 0;
        unsigned index = 0;
        for (unsigned length = 1; length <= 15; ++length) {
            code |= bits.TakeBit();
            if (code - first < counts[length]) return symbols[index + code - first];
            index += counts[length];
            first = (first + counts[length]) << 1;
            code <<= 1;
        }
        throw Malformed("no such code");
    }

private:
    std::array<unsigned, 16> counts{};
    std::vector<unsigned> symbols;
};

// The tables of RFC 1951, section 3.2.5.
constexpr unsigned lengthBases[] = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                    31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
constexpr unsigned lengthExtra[] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                    2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr unsigned distanceBases[] = {1,    2,    3,    4,    5,    7,    9,    13,    17,    25,
                                      33,   49,   65,   97,   129,  193,  257,  385,   513,   769,
                                      1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr unsigned distanceExtra[] = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                                      6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

unsigned FixedLength(unsigned symbol) {
    return symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
}

std::pair<Code, Code> FixedCodes() {
    std::vector<unsigned> lengths(288);
    for (unsigned symbol = 0; symbol < 288; ++symbol) {
        lengths[symbol] = FixedLength(symbol);
    }
    return {Code(lengths), Code(std::vector<unsigned>(32, 5))};
}

std::pair<Code, Code> ReadCodes(BitReader& bits) {
    static constexpr unsigned order[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    const unsigned lengthCount = bits.Take(5) + 257;
    const unsigned distanceCount = bits.Take(5) + 1;
    const unsigned codeLengthCount = bits.Take(4) + 4;
    Require(lengthCount <= 286 && distanceCount <= 30, "more symbols than there are");
    std::vector<unsigned> codeLengths(19);
    for (unsigned i = 0; i < codeLengthCount; ++i) {
        codeLengths[order[i]] = bits.Take(3);
    }
    const Code code(codeLengths);
    std::vector<unsigned> lengths;
    while (lengths.size() < lengthCount + distanceCount) {
        const unsigned symbol = code.Read(bits);
        if (symbol < 16) {
            lengths.push_back(symbol);
            continue;
        }
        Require(symbol != 16 || !lengths.empty(), "nothing to repeat");
        const unsigned value = symbol == 16 ? lengths.back() : 0;
        const unsigned times = symbol == 16 ? 3 + bits.Take(2) : symbol == 17 ? 3 + bits.Take(3) : 11 + bits.Take(7);
        lengths.insert(lengths.end(), times, value);
    }
    Require(lengths.size() == lengthCount + distanceCount, "repeats past the end");
    Require(lengths[256] != 0, "no code for the end of the block");
    return {Code({lengths.begin(), lengths.begin() + lengthCount}),
            Code({lengths.begin() + lengthCount, lengths.end()})};
}

class Reader {
public:
    explicit Reader(const std::string& stream) : stream(stream), bits(stream) {}

    Inflated Run() {
        bool isLast = false;
        while (!isLast) {
            BlockWeight block;
            const std::size_t start = bits.Position();
            const std::size_t outputStart = result.bytes.size();
            isLast = bits.TakeBit() == 1;
            block.form = bits.Take(2);
            if (block.form == 0) {
                CopyStored();
            } else {
                Require(block.form != 3, "a form that does not exist");
                block.fixedBits = 3;
                ReadTokens(block.form == 1 ? FixedCodes() : ReadCodes(bits), block.fixedBits);
            }
            block.bits = bits.Position() - start;
            const std::size_t size = result.bytes.size() - outputStart;
            const std::size_t parts = std::max<std::size_t>(1, (size + 65534) / 65535);
            block.storedBits = (start + 3 + 7) / 8 * 8 - start + 32 + (parts - 1) * 40 + 8 * size;
            result.blocks.push_back(block);
        }
        bits.SkipToByte();
        Require(bits.Position() == 8 * stream.size(), "bytes after the end");
        return std::move(result);
    }

private:
    void CopyStored() {
        bits.SkipToByte();
        const unsigned size = bits.Take(16);
        Require((size ^ bits.Take(16)) == 0xFFFF, "the stored size is wrong");
        for (unsigned i = 0; i < size; ++i) {
            result.bytes.push_back(static_cast<char>(bits.Take(8)));
        }
    }

    void ReadTokens(const std::pair<Code, Code>& codes, std::size_t& fixedBits) {
        while (true) {
            const unsigned symbol = codes.first.Read(bits);
            fixedBits += FixedLength(symbol);
            if (symbol == 256) return;
            if (symbol < 256) {
                result.bytes.push_back(static_cast<char>(symbol));
                continue;
            }
            Require(symbol <= 285, "no such length");
            const unsigned length = lengthBases[symbol - 257] + bits.Take(lengthExtra[symbol - 257]);
            const unsigned distanceSymbol = codes.second.Read(bits);
            Require(distanceSymbol < 30, "no such distance");
            const unsigned distance = distanceBases[distanceSymbol] + bits.Take(distanceExtra[distanceSymbol]);
            fixedBits += lengthExtra[symbol - 257] + 5 + distanceExtra[distanceSymbol];
            CopyMatch(length, distance);
        }
    }

    void CopyMatch(unsigned length, unsigned distance) {
        Require(distance <= result.bytes.size(), "a match before the beginning");
        result.farthestMatch = std::max(result.farthestMatch, distance);
        if (length == 3) result.farthestShortestMatch = std::max(result.farthestShortestMatch, distance);
        for (unsigned i = 0; i < length; ++i) {
            result.bytes.push_back(result.bytes[result.bytes.size() - distance]);
        }
    }

    const std::string& stream;
    BitReader bits;
    Inflated result;
};

} // namespace

std::optional<Inflated> Inflate(const std::string& stream) {
    try {
        return Reader(stream).Run();
    } catch (const Malformed&) {
        return std::nullopt;
    }
}

} // namespace inflate
