// A plain reader of raw deflate streams (RFC 1951) that also weighs every block: what it took, and what it would have
// taken in the two forms that need no code of their own.
#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace inflate {

struct BlockWeight {
    unsigned form = 0; ///< 0 stored, 1 fixed, 2 dynamic
    std::size_t bits = 0;
    std::size_t fixedBits = 3;
    std::size_t storedBits = 0;
};

struct Inflated {
    std::string bytes;
    std::vector<BlockWeight> blocks;
    unsigned farthestMatch = 0;
    unsigned farthestShortestMatch = 0; ///< of length 3
};

inline void Require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

/// How many codes there are of each length, and the symbols in the order of their codes.
struct Code {
    explicit Code(const std::vector<unsigned>& lengths) {
        int left = 1;
        for (unsigned length = 1; length <= 15; ++length) {
            for (unsigned symbol = 0; symbol < lengths.size(); ++symbol) {
                if (lengths[symbol] == length) symbols.push_back(symbol);
            }
            counts[length] = static_cast<unsigned>(std::count(lengths.begin(), lengths.end(), length));
            left = 2 * left - static_cast<int>(counts[length]);
            Require(left >= 0, "more codes than fit");
        }
        Require(left == 0 || symbols.size() <= 1, "a code is incomplete");
    }
    std::array<unsigned, 16> counts{};
    std::vector<unsigned> symbols;
};

/// What a symbol stands for: the first value, and the number of bits that follow and are added to it.
struct Range {
    unsigned first, extra;
};

inline Range LengthRange(unsigned symbol) {
    const unsigned index = symbol - 257, extra = std::max(index / 4, 1U) - 1;
    if (symbol == 285) return {258, 0};
    return {index < 8 ? 3 + index : 3 + ((4 + index % 4) << extra), extra};
}

inline Range DistanceRange(unsigned symbol) {
    const unsigned extra = std::max(symbol / 2, 1U) - 1;
    return {symbol < 4 ? 1 + symbol : 1 + ((2 + symbol % 2) << extra), extra};
}

inline unsigned FixedLength(unsigned symbol) {
    return symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
}

class Reader {
public:
    explicit Reader(const std::string& stream) : stream(stream) {}

    Inflated Run() {
        for (bool isLast = false; !isLast;) {
            BlockWeight block;
            const std::size_t start = at, outputStart = result.bytes.size();
            isLast = Take(1) == 1;
            block.form = Take(2);
            Require(block.form != 3, "a form that does not exist");
            block.form == 0 ? CopyStored() : ReadTokens(block);
            block.bits = at - start;
            const std::size_t size = result.bytes.size() - outputStart;
            const std::size_t parts = std::max<std::size_t>(1, (size + 65534) / 65535);
            block.storedBits = (start + 3 + 7) / 8 * 8 - start + 32 + (parts - 1) * 40 + 8 * size;
            result.blocks.push_back(block);
        }
        Require((at + 7) / 8 == stream.size(), "bytes after the end");
        return std::move(result);
    }

private:
    unsigned Take(unsigned count) {
        unsigned value = 0;
        for (unsigned i = 0; i < count; ++i, ++at) {
            Require(at < 8 * stream.size(), "the stream ends too soon");
            value |= ((static_cast<unsigned char>(stream[at / 8]) >> (at % 8)) & 1U) << i;
        }
        return value;
    }

    unsigned TakeSymbol(const Code& code) {
        unsigned bits = 0, first = 0, index = 0;
        for (const unsigned count : code.counts) {
            if (bits - first < count) return code.symbols[index + bits - first];
            index += count;
            first = 2 * (first + count);
            bits = 2 * bits + Take(1);
        }
        throw std::runtime_error("no such code");
    }

    std::vector<unsigned> TakeLengths(unsigned count) {
        static constexpr unsigned Order[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
        std::vector<unsigned> codeLengths(19), lengths;
        const unsigned codeLengthCount = Take(4) + 4;
        for (unsigned i = 0; i < codeLengthCount; ++i)
            codeLengths[Order[i]] = Take(3);
        const Code code(codeLengths);
        while (lengths.size() < count) {
            const unsigned symbol = TakeSymbol(code);
            Require(symbol != 16 || !lengths.empty(), "nothing to repeat");
            const unsigned value = symbol < 16 ? symbol : symbol == 16 ? lengths.back() : 0;
            const unsigned extra = symbol < 16 ? 0 : symbol == 16 ? 2 : symbol == 17 ? 3 : 7;
            const unsigned least = symbol < 16 ? 1 : symbol == 18 ? 11 : 3;
            lengths.insert(lengths.end(), least + Take(extra), value);
        }
        Require(lengths.size() == count, "repeats past the end");
        return lengths;
    }

    void CopyStored() {
        at = (at + 7) / 8 * 8;
        const unsigned size = Take(16);
        Require((size ^ Take(16)) == 0xFFFF, "the stored size is wrong");
        for (unsigned i = 0; i < size; ++i)
            result.bytes.push_back(static_cast<char>(Take(8)));
    }

    void ReadTokens(BlockWeight& block) {
        unsigned literalCount = 288, distanceCount = 32;
        std::vector<unsigned> lengths(320, 5);
        for (unsigned symbol = 0; symbol < literalCount; ++symbol)
            lengths[symbol] = FixedLength(symbol);
        if (block.form == 2) {
            literalCount = Take(5) + 257;
            distanceCount = Take(5) + 1;
            Require(literalCount <= 286 && distanceCount <= 30, "more symbols than there are");
            lengths = TakeLengths(literalCount + distanceCount);
            Require(lengths[256] != 0, "no code for the end of the block");
        }
        const Code literals({lengths.begin(), lengths.begin() + literalCount});
        const Code distances({lengths.begin() + literalCount, lengths.end()});
        for (unsigned symbol = 0; symbol != 256;) {
            symbol = TakeSymbol(literals);
            block.fixedBits += FixedLength(symbol);
            if (symbol < 256) result.bytes.push_back(static_cast<char>(symbol));
            if (symbol > 256) block.fixedBits += CopyMatch(symbol, distances);
        }
    }

    /// Number of bits behind the length's symbol, where distances take five.
    unsigned CopyMatch(unsigned symbol, const Code& distances) {
        Require(symbol <= 285, "no such length");
        const Range lengthRange = LengthRange(symbol);
        const unsigned length = lengthRange.first + Take(lengthRange.extra), distanceSymbol = TakeSymbol(distances);
        Require(distanceSymbol < 30, "no such distance");
        const Range distanceRange = DistanceRange(distanceSymbol);
        const unsigned distance = distanceRange.first + Take(distanceRange.extra);
        Require(distance <= result.bytes.size(), "a match before the beginning");
        result.farthestMatch = std::max(result.farthestMatch, distance);
        if (length == 3) result.farthestShortestMatch = std::max(result.farthestShortestMatch, distance);
        for (unsigned i = 0; i < length; ++i)
            result.bytes.push_back(result.bytes[result.bytes.size() - distance]);
        return lengthRange.extra + 5 + distanceRange.extra;
    }

    const std::string& stream;
    std::size_t at = 0;
    Inflated result;
};

/// None when the stream is not a well-formed one that ends with its last byte.
[[nodiscard]] inline std::optional<Inflated> Inflate(const std::string& stream) {
    try {
        return Reader(stream).Run();
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
}

} // namespace inflate
