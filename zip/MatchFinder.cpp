#include "zip/MatchFinder.h"

#include "zip/Words.h"

#include <algorithm>

namespace zip {

namespace {

constexpr unsigned HistoryBits = 15;
constexpr std::uint32_t HistorySize = 1U << HistoryBits;
constexpr std::uint32_t BufferSize = 8 * HistorySize;
constexpr std::uint32_t Padding = LongestMatch + 16; // compares read whole words past the end
constexpr unsigned HashBits = 15;
// Positions of one stream start this far behind those of the stream before, so that nothing of it is in reach.
constexpr std::uint32_t StreamGap = 0x10000;
constexpr std::uint32_t LatestStreamOffset = 0x80000000;

// One occurrence counts this much and fades over the window's length.
constexpr std::uint32_t FrequencyUnit = 256;
constexpr unsigned CommonnessShift = 7;

std::uint32_t Hash(const std::uint8_t* bytes) {
    return ((Load32(bytes) << 8) * 0x9E3779B1U) >> (32 - HashBits);
}

std::uint32_t Faded(std::uint32_t frequency, std::uint32_t step) {
    return frequency - static_cast<std::uint32_t>((std::uint64_t{frequency} * step) >> HistoryBits);
}

std::uint32_t EqualLength(const std::uint8_t* a, const std::uint8_t* b, std::uint32_t most) {
    for (std::uint32_t length = 0; length < most; length += 8) {
        const std::uint64_t difference = Load64(a + length) ^ Load64(b + length);
        if (difference != 0) return std::min(length + EqualBytes(difference), most);
    }
    return most;
}

bool AreThreeEqual(std::uint32_t a, std::uint32_t b) {
    return ((a ^ b) & 0xFFFFFF) == 0;
}

// Any longer match holds every three bytes of the string: following the rarest of them leads past the most positions
// that cannot win. Answers their offset in the string.
std::uint32_t RarestOffset(const std::uint16_t* commonness, std::uint32_t stringLength) {
    std::uint32_t rarest = 0;
    std::uint32_t least = commonness[0];
    for (std::uint32_t offset = 1; offset + ShortestMatch <= stringLength; ++offset) {
        if (commonness[offset] < least) {
            least = commonness[offset];
            rarest = offset;
        }
    }
    return rarest;
}

} // namespace

MatchFinder::MatchFinder()
    : bytes(BufferSize + Padding), steps(BufferSize + Padding), commonness(BufferSize + Padding),
      latest(1U << HashBits, Latest{0, 0}) {}

void MatchFinder::Reset() {
    streamOffset += end + StreamGap;
    if (streamOffset > LatestStreamOffset) {
        std::fill(latest.begin(), latest.end(), Latest{0, 0});
        streamOffset = StreamGap;
    }
    end = 0;
    linked = 0;
    sourceAtEnd = false;
}

std::uint32_t MatchFinder::DropBefore(std::uint32_t position) const {
    return position > BufferSize / 2 ? position - HistorySize : 0;
}

void MatchFinder::Drop(std::uint32_t drop) {
    std::copy(bytes.begin() + drop, bytes.begin() + end, bytes.begin());
    std::copy(steps.begin() + drop, steps.begin() + linked, steps.begin());
    std::copy(commonness.begin() + drop, commonness.begin() + linked, commonness.begin());
    end -= drop;
    linked -= drop;
    streamOffset += drop;
}

bool MatchFinder::Fill(ByteSource& source, std::uint32_t drop) {
    if (drop > 0) Drop(drop);
    const std::size_t wanted = BufferSize - end;
    const std::optional<std::size_t> got = source.Read(bytes.data() + end, wanted);
    if (!got) return false;
    end += static_cast<std::uint32_t>(*got);
    sourceAtEnd = *got < wanted;
    return true;
}

void MatchFinder::LinkUpTo(std::uint32_t position) {
    const std::uint32_t stop = end < ShortestMatch ? 0 : std::min(position + 1, end - ShortestMatch + 1);
    // Locals, because the compiler cannot know that the table's words are not these members.
    const std::uint8_t* const data = bytes.data();
    std::uint16_t* const stepOf = steps.data();
    std::uint16_t* const commonnessOf = commonness.data();
    Latest* const heads = latest.data();
    const std::uint32_t offset = streamOffset;
    for (std::uint32_t at = linked; at < stop; ++at) {
        Latest& head = heads[Hash(data + at)];
        const std::uint32_t here = at + offset;
        const std::uint32_t step = here - head.position;
        const bool isInReach = step <= FarthestMatch;
        const std::uint32_t frequency = isInReach ? Faded(head.frequency, step) + FrequencyUnit : 0;
        stepOf[at] = static_cast<std::uint16_t>(isInReach ? step : 0);
        commonnessOf[at] = static_cast<std::uint16_t>(std::min<std::uint32_t>(frequency >> CommonnessShift, 0xFFFF));
        head = {here, frequency};
    }
    linked = std::max(linked, stop);
}

Match MatchFinder::Find(std::uint32_t position, std::uint32_t longerThan, const SearchEffort& effort,
                        unsigned longestChain) const {
    const std::uint32_t most = std::min<std::uint32_t>(LongestMatch, end - position);
    if (longerThan >= most) return {};
    const std::uint8_t* const data = bytes.data();
    const std::uint8_t* const here = data + position;
    const std::uint32_t nice = std::min<std::uint32_t>(effort.niceLength, most);
    const std::uint32_t first = position > FarthestMatch ? position - FarthestMatch : 0;
    const std::uint32_t start = Load32(here);

    std::uint32_t best = longerThan;
    std::uint32_t offset = RarestOffset(commonness.data() + position, best + 1);
    std::uint32_t candidate = position;
    Match match;
    for (; longestChain > 0; --longestChain) {
        const std::uint32_t step = steps[candidate + offset];
        if (step == 0 || candidate < first + step) break;
        candidate -= step;
        const std::uint8_t* const there = data + candidate;
        if (best < ShortestMatch) {
            // Three equal bytes are worth having only near by; from there on it takes four.
            if (position - candidate > FarthestShortestMatch)
                best = ShortestMatch;
            else if (!AreThreeEqual(Load32(there), start))
                continue;
        }
        if (best >= ShortestMatch && (Load32(there + best - 3) != Load32(here + best - 3) || Load32(there) != start))
            continue;
        const std::uint32_t length = EqualLength(there, here, most);
        if (length <= best) continue;
        best = length;
        match = {length, position - candidate};
        if (best >= nice) break;
        offset = RarestOffset(commonness.data() + candidate, best);
    }
    return match;
}

} // namespace zip
