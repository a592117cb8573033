// Bits on their way to a sink, lowest first, gathered in a 64-bit word and a buffer.
#pragma once

#include "zip/ByteStreams.h"
#include "zip/Words.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zip {

/// A failed write is remembered and what follows is dropped; Flush tells.
class BitWriter {
public:
    explicit BitWriter(ByteSink& sink) : sink(&sink), buffer(Capacity) {}

    /// Appends at most 48 bits. `bits` holds nothing above them.
    void Put(std::uint64_t bits, unsigned count) {
        word |= bits << used;
        used += count;
        Store64(buffer.data() + size, word);
        size += used / 8;
        word >>= used & ~7U;
        used &= 7;
        if (size > Capacity - 16) Drain();
    }

    void PadToByte() { Put(0, (8 - used) & 7); }

    /// Appends bytes after PadToByte.
    void PutBytes(const std::uint8_t* data, std::size_t sizeBytes) {
        Drain();
        if (!failed) failed = !sink->Write(data, sizeBytes);
    }

    [[nodiscard]] unsigned GetBitsInByte() const { return used; }

    /// Hands everything but the bits of an unfinished byte to the sink. False when a write has failed.
    [[nodiscard]] bool Flush() {
        Drain();
        return !failed;
    }

    [[nodiscard]] bool HasFailed() const { return failed; }

private:
    static constexpr std::size_t Capacity = 32768;

    void Drain() {
        if (!failed && size > 0) failed = !sink->Write(buffer.data(), size);
        size = 0;
    }

    ByteSink* sink;
    std::vector<std::uint8_t> buffer;
    std::size_t size = 0;
    std::uint64_t word = 0;
    unsigned used = 0;
    bool failed = false;
};

} // namespace zip
