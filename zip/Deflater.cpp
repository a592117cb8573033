#include "zip/Deflater.h"

#include "zip/BlockGatherer.h"
#include "zip/MatchFinder.h"

#include <algorithm>

namespace zip {

namespace {

constexpr int LastGreedyLevel = 3;
constexpr SearchEffort Efforts[] = {
    {4, 4, 8, 4},      {4, 4, 16, 8},      {4, 4, 32, 32},       {4, 6, 24, 24},       {8, 16, 48, 48},
    {8, 24, 128, 128}, {16, 48, 192, 384}, {32, 128, 258, 1024}, {32, 258, 258, 4096},
};
constexpr int LastLevel = sizeof Efforts / sizeof Efforts[0];

// Bytes and chains wanted beyond a position to be searched: a match, and the ever longer matches of the bytes after it.
constexpr std::uint32_t Lookahead = 4 * LongestMatch;
constexpr std::uint32_t LinkStride = 4096;

} // namespace

struct Deflater::Buffers {
    MatchFinder finder;
    std::vector<Token> tokens = std::vector<Token>(MostBlockTokens);
};

/// One stream on its way from source to sink.
class Deflater::Stream {
public:
    Stream(Buffers& buffers, ByteSource& source, ByteSink& sink, int level)
        : finder(buffers.finder), source(source), bits(sink), gatherer(bits, buffers.tokens, buffers.finder.GetBytes()),
          effort(Efforts[level - 1]), isLazy(level > LastGreedyLevel) {}

    DeflateResult Run() {
        finder.Reset();
        do {
            if (!FillWindow()) return DeflateResult::ReadFailed;
            const std::uint32_t stop = finder.IsSourceAtEnd() ? finder.GetEnd() : finder.GetEnd() - Lookahead;
            while (position < stop) {
                finder.LinkUpTo(position + LinkStride + Lookahead);
                Parse(std::min(stop, position + LinkStride));
                if (bits.HasFailed()) return DeflateResult::WriteFailed;
            }
        } while (!finder.IsSourceAtEnd());
        gatherer.Finish();
        bits.PadToByte();
        return bits.Flush() ? DeflateResult::Success : DeflateResult::WriteFailed;
    }

private:
    bool FillWindow() {
        const std::uint32_t drop = finder.DropBefore(position);
        gatherer.PrepareDrop(drop);
        position -= drop;
        return finder.Fill(source, drop);
    }

    void Parse(std::uint32_t stop) {
        while (position < stop) {
            Match match = finder.Find(position, ShortestMatch - 1, effort, effort.longestChain);
            if (match.length == 0) {
                PassLiteral();
                continue;
            }
            if (isLazy) LookFurther(match);
            gatherer.AddMatch(match.length, match.distance);
            position += match.length;
        }
    }

    // As long as the next byte has a longer match, that one is better.
    void LookFurther(Match& match) {
        while (match.length < effort.lazyLength) {
            const unsigned chain = match.length >= effort.goodLength ? effort.longestChain / 4 : effort.longestChain;
            const Match next = finder.Find(position + 1, match.length, effort, chain);
            if (next.length == 0) return;
            PassLiteral();
            match = next;
        }
    }

    void PassLiteral() { gatherer.AddLiteral(finder.GetBytes()[position++]); }

    MatchFinder& finder;
    ByteSource& source;
    BitWriter bits;
    BlockGatherer gatherer;
    const SearchEffort& effort;
    bool isLazy;
    std::uint32_t position = 0;
};

Deflater::Deflater() : buffers(std::make_unique<Buffers>()) {}

Deflater::~Deflater() = default;

DeflateResult Deflater::Compress(ByteSource& source, ByteSink& sink, int level) {
    if (level < 1 || level > LastLevel) return DeflateResult::BadPackLevel;
    return Stream(*buffers, source, sink, level).Run();
}

} // namespace zip
