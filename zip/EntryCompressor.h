// Carries one source file's bytes into the archive, stored or deflated, and counts and sums them on the way.
#pragma once

#include "platform/Files.h"
#include "zip/ArchiveOutput.h"
#include "zip/Deflater.h"
#include "zip/ZipResult.h"

#include <cstdint>
#include <memory>

namespace zip {

struct EntryData {
    std::uint32_t crc = 0;
    std::uint32_t compressedSize = 0;
};

/// Keeps its buffers from one entry to the next; the compressor's come with the first deflated entry.
class EntryCompressor {
public:
    /// sizeBytes  what the source is expected to hold
    /// errors     ReadFailed, WriteFailed, SizeChanged, DeflateFault
    [[nodiscard]] ZipResult Store(platform::InputFile& source, std::uint32_t sizeBytes, ArchiveOutput& output,
                                  EntryData& data);
    [[nodiscard]] ZipResult Deflate(platform::InputFile& source, std::uint32_t sizeBytes, ArchiveOutput& output,
                                    EntryData& data);

private:
    Bytes workBuffer;
    std::unique_ptr<Deflater> deflater;
};

} // namespace zip
