#include "zip/Deflater.h"

#include "zip/BlockWriter.h"
#include "zip/MatchFinder.h"

#include <cstdlib>

namespace zip {

namespace {

size_t maxTokens() {
    static size_t v = getenv("MAXTOK") ? atoi(getenv("MAXTOK")) : 16384;
    return v;
}
constexpr std::uint32_t lookahead = 1024;
constexpr std::uint32_t linkStride = 4096;

constexpr SearchEffort efforts[] = {{4, 4, 8, 4},       {4, 4, 16, 8},        {4, 4, 32, 32},
                                    {4, 6, 24, 24},     {8, 16, 48, 48},      {8, 24, 128, 128},
                                    {16, 48, 192, 384}, {32, 128, 258, 1024}, {32, 258, 258, 4096}};

} // namespace

struct Deflater::Buffers {
    MatchFinder finder;
    std::vector<Token> tokens = std::vector<Token>(65536);
};

class Deflater::Stream {
public:
    Stream(Buffers& b, ByteSource& source, ByteSink& sink, int level)
        : finder(b.finder), tokens(b.tokens), source(source), bits(sink), effort(efforts[level - 1]), lazy(level > 3) {}

    DeflateResult Run() {
        finder.Reset();
        do {
            auto drop = finder.Fill(source, position);
            if (!drop) return DeflateResult::ReadFailed;
            position -= *drop;
            blockStart -= *drop;
            std::uint32_t stop = finder.IsSourceAtEnd() ? finder.End() : finder.End() - lookahead;
            while (position < stop) {
                finder.LinkUpTo(position + linkStride + lookahead);
                std::uint32_t sub = std::min(stop, position + linkStride);
                Parse(sub);
                if (bits.HasFailed()) return DeflateResult::WriteFailed;
            }
        } while (!finder.IsSourceAtEnd());
        EmitBlock(BlockPosition::Last);
        bits.PadToByte();
        return bits.Flush() ? DeflateResult::Success : DeflateResult::WriteFailed;
    }

private:
    Match FindAt(std::uint32_t at, std::uint32_t longerThan) {
        Match m = finder.Find(at, longerThan, effort,
                              longerThan >= effort.goodLength ? effort.longestChain / 4 : effort.longestChain);
        return m;
    }
    void Parse(std::uint32_t stop) {
        while (position < stop) {
            Match match = FindAt(position, 2);
            if (match.length == 0) {
                Literal();
                continue;
            }
            if (lazy) {
                while (match.length < effort.lazyLength) {
                    Match next = FindAt(position + 1, match.length);
                    if (next.length == 0) break;
                    Literal();
                    match = next;
                }
            }
            tokens[count++] = MatchToken(match.length, match.distance);
            counts.CountMatch(match.length, match.distance);
            position += match.length;
            if (count == maxTokens()) EmitBlock(BlockPosition::Inner);
        }
    }
    void Literal() {
        std::uint8_t b = finder.Bytes()[position++];
        tokens[count++] = b;
        counts.CountLiteral(b);
        if (count == maxTokens()) EmitBlock(BlockPosition::Inner);
    }
    void EmitBlock(BlockPosition p) {
        Block b{tokens.data(), count, counts, nullptr};
        if ((std::int32_t)blockStart >= 0) b.input = finder.Bytes() + blockStart;
        WriteBlock(bits, b, p);
        counts = SymbolCounts();
        count = 0;
        blockStart = position;
    }
    MatchFinder& finder;
    std::vector<Token>& tokens;
    ByteSource& source;
    BitWriter bits;
    SearchEffort effort;
    bool lazy;
    SymbolCounts counts;
    size_t count = 0;
    std::uint32_t position = 0, blockStart = 0;
};

Deflater::Deflater() : buffers(std::make_unique<Buffers>()) {}
Deflater::~Deflater() = default;
DeflateResult Deflater::Compress(ByteSource& source, ByteSink& sink, int level) {
    if (level < 1 || level > 9) return DeflateResult::BadPackLevel;
    return Stream(*buffers, source, sink, level).Run();
}

} // namespace zip
