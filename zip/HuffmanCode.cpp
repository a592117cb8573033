#include "zip/HuffmanCode.h"

#include <algorithm>
#include <array>
#include <vector>

namespace zip {

namespace {

constexpr std::size_t MostSymbols = 288;
constexpr unsigned LongestLimit = 15;

struct Leaf {
    std::uint32_t frequency;
    std::uint16_t symbol;
};

// Package-merge. Each round merges the leaves with the pairs of the round before, cheapest first; what the last round's
// first 2n-2 items hold, level by level, counts how deep each leaf lies.
class PackageMerge {
public:
    PackageMerge(const Leaf* leaves, std::size_t count) : leaves(leaves), count(count) {}

    void Run(unsigned longest, std::uint8_t* lengths) {
        std::size_t items = MergeLeavesOnly();
        for (unsigned round = 1; round < longest; ++round) {
            items = MergeRound(round, items);
        }
        std::size_t taken = 2 * count - 2;
        for (unsigned round = longest; round-- > 0;) {
            std::size_t leavesTaken = 0;
            for (std::size_t i = 0; i < taken; ++i) {
                leavesTaken += isLeaf[round][i];
            }
            for (std::size_t i = 0; i < leavesTaken; ++i) {
                ++lengths[leaves[i].symbol];
            }
            taken = 2 * (taken - leavesTaken);
        }
    }

private:
    std::size_t MergeLeavesOnly() {
        for (std::size_t i = 0; i < count; ++i) {
            weights[i] = leaves[i].frequency;
            isLeaf[0][i] = 1;
        }
        return count;
    }

    std::size_t MergeRound(unsigned round, std::size_t itemsBefore) {
        std::array<std::uint64_t, 2 * MostSymbols> merged;
        const std::size_t pairs = itemsBefore / 2;
        std::size_t leaf = 0;
        std::size_t pair = 0;
        std::size_t at = 0;
        while (leaf < count || pair < pairs) {
            const bool takeLeaf =
                pair == pairs || (leaf < count && leaves[leaf].frequency <= weights[2 * pair] + weights[2 * pair + 1]);
            merged[at] = takeLeaf ? leaves[leaf].frequency : weights[2 * pair] + weights[2 * pair + 1];
            isLeaf[round][at] = takeLeaf ? 1 : 0;
            ++at;
            ++(takeLeaf ? leaf : pair);
        }
        std::copy_n(merged.begin(), at, weights.begin());
        return at;
    }

    const Leaf* leaves;
    std::size_t count;
    std::array<std::uint64_t, 2 * MostSymbols> weights;
    std::array<std::array<std::uint8_t, 2 * MostSymbols>, LongestLimit> isLeaf;
};

std::uint16_t Mirrored(unsigned code, unsigned length) {
    unsigned mirrored = 0;
    for (unsigned bit = 0; bit < length; ++bit) {
        mirrored = (mirrored << 1) | ((code >> bit) & 1);
    }
    return static_cast<std::uint16_t>(mirrored);
}

} // namespace

void ShortestCodeLengths(const std::uint32_t* frequencies, std::size_t n, unsigned longest, std::uint8_t* lengths) {
    std::array<Leaf, MostSymbols> leaves;
    std::size_t count = 0;
    for (std::size_t symbol = 0; symbol < n; ++symbol) {
        lengths[symbol] = 0;
        if (frequencies[symbol] > 0) leaves[count++] = {frequencies[symbol], static_cast<std::uint16_t>(symbol)};
    }
    if (count == 1) lengths[leaves[0].symbol] = 1;
    if (count < 2) return;
    std::stable_sort(leaves.begin(), leaves.begin() + count,
                     [](const Leaf& a, const Leaf& b) { return a.frequency < b.frequency; });
    PackageMerge(leaves.data(), count).Run(longest, lengths);
}

void CanonicalCodes(const std::uint8_t* lengths, std::size_t n, std::uint16_t* codes) {
    std::array<unsigned, LongestLimit + 1> counts{};
    for (std::size_t symbol = 0; symbol < n; ++symbol) {
        ++counts[lengths[symbol]];
    }
    counts[0] = 0;
    std::array<unsigned, LongestLimit + 1> next{};
    for (unsigned length = 1; length <= LongestLimit; ++length) {
        next[length] = (next[length - 1] + counts[length - 1]) << 1;
    }
    for (std::size_t symbol = 0; symbol < n; ++symbol) {
        const unsigned length = lengths[symbol];
        codes[symbol] = length == 0 ? std::uint16_t{0} : Mirrored(next[length]++, length);
    }
}

} // namespace zip
