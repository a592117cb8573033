// The compressor's window: the bytes still to be compressed, the 32 KiB before them, and chains that lead from every
// position to the earlier ones with the same three bytes.
#pragma once

#include "zip/ByteStreams.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zip {

constexpr unsigned ShortestMatch = 3;
constexpr unsigned LongestMatch = 258;
constexpr unsigned FarthestMatch = 32506;
/// A match of three bytes costs more than its literals when it lies farther back than this.
constexpr unsigned FarthestShortestMatch = 4096;

struct Match {
    std::uint32_t length = 0; ///< 0: there is none
    std::uint32_t distance = 0;
};

/// How hard a level searches.
struct SearchEffort {
    unsigned goodLength;   ///< a match this long makes the lazy search for a better one four times shorter
    unsigned lazyLength;   ///< a match this long is taken without looking for a better one at the next byte
    unsigned niceLength;   ///< a match this long ends the search
    unsigned longestChain; ///< earlier positions looked at in one search
};

/// Positions count from the start of the buffer, and shift when Fill moves the window.
class MatchFinder {
public:
    MatchFinder();

    /// Begins a stream; to be called before the first too. The buffers stay.
    void Reset();

    /// How many of the buffer's first bytes the next Fill may drop when the search has come to `position`: those more
    /// than 32 KiB back, once the buffer is more than half used.
    [[nodiscard]] std::uint32_t DropBefore(std::uint32_t position) const;

    /// Drops these first bytes, by which all positions shift down, and reads until the buffer is full or the source
    /// ends. False after a read failure.
    [[nodiscard]] bool Fill(ByteSource& source, std::uint32_t drop);

    /// Links positions into the chains so that Find can be asked up to and including `position`.
    void LinkUpTo(std::uint32_t position);

    /// The longest match at a linked position that is longer than `longerThan` (at least 2), the nearest of those
    /// equally long.
    [[nodiscard]] Match Find(std::uint32_t position, std::uint32_t longerThan, const SearchEffort& effort,
                             unsigned longestChain) const;

    [[nodiscard]] const std::uint8_t* GetBytes() const { return bytes.data(); }
    [[nodiscard]] std::uint32_t GetEnd() const { return end; }
    [[nodiscard]] bool IsSourceAtEnd() const { return sourceAtEnd; }

private:
    /// A hash's latest position in the stream, and how often it came lately.
    struct Latest {
        std::uint32_t position;
        std::uint32_t frequency;
    };

    void Drop(std::uint32_t drop);

    std::vector<std::uint8_t> bytes;
    // For each position, how far back the chain's next lies, 0 when there is none in reach; and how common its three
    // bytes have been in the window before it.
    std::vector<std::uint16_t> steps;
    std::vector<std::uint16_t> commonness;
    std::vector<Latest> latest; // by hash
    std::uint32_t end = 0;
    std::uint32_t linked = 0;
    std::uint32_t streamOffset = 0;
    bool sourceAtEnd = false;
};

} // namespace zip
