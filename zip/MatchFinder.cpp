#include "zip/MatchFinder.h"

#include "zip/Words.h"

#include <algorithm>

namespace zip {

namespace {

constexpr std::uint32_t historySize = 32768;
constexpr std::uint32_t bufferSize = 8 * historySize;
constexpr std::uint32_t padding = longestMatch + 16; // compares read whole words past the end
constexpr unsigned hashBits = 15;
// The stream's first position counts from here, so that "never seen" is out of every position's reach.
constexpr std::uint32_t streamStart = 0x10000;

std::uint32_t Hash(const std::uint8_t* bytes) {
    return ((Load32(bytes) << 8) * 0x9E3779B1U) >> (32 - hashBits);
}

std::uint32_t EqualLength(const std::uint8_t* a, const std::uint8_t* b, std::uint32_t most) {
    for (std::uint32_t length = 0; length < most; length += 8) {
        const std::uint64_t difference = Load64(a + length) ^ Load64(b + length);
        if (difference != 0) return std::min(length + EqualBytes(difference), most);
    }
    return most;
}

struct Anchor {
    std::uint32_t offset; // which three bytes of the string are followed along their chain
    std::uint32_t step;   // to their next; 0: the string does not come again in reach
};

// Any longer match holds every three bytes of the string found so far: the rarest of them lead past the most positions
// that cannot win.
Anchor RarestAnchor(const std::uint16_t* steps, std::uint32_t stringLength) {
    Anchor best{0, steps[0]};
    if (best.step == 0) return best;
    for (std::uint32_t offset = 1; offset + shortestMatch <= stringLength; ++offset) {
        const std::uint32_t step = steps[offset];
        if (step > best.step) best = {offset, step};
        if (step == 0) return {offset, 0};
    }
    return best;
}

} // namespace

MatchFinder::MatchFinder() : bytes(bufferSize + padding), chain(bufferSize + padding), latest(1U << hashBits) {
    Reset();
}

void MatchFinder::Reset() {
    std::fill(latest.begin(), latest.end(), 0);
    end = 0;
    linked = 0;
    streamOffset = streamStart;
    sourceAtEnd = false;
}

void MatchFinder::Slide(std::uint32_t drop) {
    std::copy(bytes.begin() + drop, bytes.begin() + end, bytes.begin());
    std::copy(chain.begin() + drop, chain.begin() + linked, chain.begin());
    end -= drop;
    linked -= drop;
    streamOffset += drop;
}

std::optional<std::uint32_t> MatchFinder::Fill(ByteSource& source, std::uint32_t position) {
    std::uint32_t drop = 0;
    if (position > bufferSize / 2) {
        drop = position - historySize;
        Slide(drop);
    }
    const std::size_t wanted = bufferSize - end;
    const std::optional<std::size_t> got = source.Read(bytes.data() + end, wanted);
    if (!got) return std::nullopt;
    end += static_cast<std::uint32_t>(*got);
    sourceAtEnd = *got < wanted;
    if (sourceAtEnd) std::fill(bytes.begin() + end, bytes.begin() + end + padding, std::uint8_t{0});
    return drop;
}

void MatchFinder::LinkUpTo(std::uint32_t position) {
    const std::uint32_t stop = end < shortestMatch ? 0 : std::min(position + 1, end - shortestMatch + 1);
    const std::uint8_t* const data = bytes.data();
    std::uint16_t* const steps = chain.data();
    std::uint32_t* const heads = latest.data();
    std::uint32_t at = linked;
    for (; at < stop; ++at) {
        std::uint32_t& head = heads[Hash(data + at)];
        const std::uint32_t here = at + streamOffset;
        const std::uint32_t step = here - head;
        steps[at] = static_cast<std::uint16_t>(step <= farthestMatch ? step : 0);
        head = here;
    }
    linked = at;
}

Match MatchFinder::Find(std::uint32_t position, std::uint32_t longerThan, const SearchEffort& effort,
                        unsigned longestChain) const {
    const std::uint8_t* const here = bytes.data() + position;
    const std::uint16_t* const steps = chain.data();
    const std::uint32_t most = std::min<std::uint32_t>(longestMatch, end - position);
    const std::uint32_t nice = std::min<std::uint32_t>(effort.niceLength, most);
    if (longerThan >= most) return {};
    const std::uint32_t first = position > farthestMatch ? position - farthestMatch : 0;
    const std::uint32_t firstShort = position > farthestShortestMatch ? position - farthestShortestMatch : 0;
    std::uint32_t best = longerThan;
    std::uint32_t candidate = position;
    Match match;
    Anchor anchor = RarestAnchor(steps + position, best + 1);
    const std::uint32_t start = Load32(here);

    if (best < shortestMatch) {
        // No match yet: three equal bytes do near by.
        while (true) {
            if (anchor.step == 0 || longestChain == 0) return {};
            --longestChain;
            if (candidate < anchor.step + first) return {};
            candidate -= anchor.step;
            if (candidate < firstShort) {
                candidate += anchor.step;
                ++longestChain;
                best = shortestMatch;
                break;
            }
            if (((Load32(bytes.data() + candidate) ^ start) & 0xFFFFFF) == 0) {
                best = EqualLength(bytes.data() + candidate, here, most);
                match = {best, position - candidate};
                if (best >= nice) return match;
                anchor = RarestAnchor(steps + candidate, best);
                break;
            }
            anchor.step = steps[candidate];
        }
    }
    std::uint32_t tail = Load32(here + best - 3);
    while (anchor.step != 0 && longestChain != 0) {
        --longestChain;
        if (candidate < anchor.step + first) break;
        candidate -= anchor.step;
        const std::uint8_t* const there = bytes.data() + candidate;
        if (Load32(there + best - 3) == tail && Load32(there) == start) {
            const std::uint32_t length = EqualLength(there, here, most);
            if (length > best) {
                best = length;
                match = {best, position - candidate};
                if (best >= nice) break;
                tail = Load32(here + best - 3);
                anchor = RarestAnchor(steps + candidate, best);
                continue;
            }
        }
        anchor.step = steps[candidate + anchor.offset];
    }
    return match;
}

} // namespace zip
