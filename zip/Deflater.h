// The deflate compressor (RFC 1951, raw): finds matches, gathers them into blocks and writes the blocks. Streaming:
// holds a window and a block, never a whole entry.
#pragma once

#include "zip/ByteStreams.h"

#include <memory>

namespace zip {

enum class DeflateResult {
    Success,
    ReadFailed,
    WriteFailed,
    BadPackLevel, ///< an internal error: "bad pack level"
};

/// Keeps its buffers (about 2 MB) from one stream to the next.
class Deflater {
public:
    Deflater();
    ~Deflater();

    /// Compresses the source to its end into one complete deflate stream.
    /// level  1 (fastest) to 9 (smallest); 1 to 3 take the first match that is good enough, the others look one byte
    ///        further for a better one
    [[nodiscard]] DeflateResult Compress(ByteSource& source, ByteSink& sink, int level);

private:
    class Stream;
    struct Buffers;
    std::unique_ptr<Buffers> buffers;
};

} // namespace zip
