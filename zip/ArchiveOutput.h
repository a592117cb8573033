// The archive's file while it is written: keeps count of the bytes and refuses what 32-bit offsets cannot reach.
#pragma once

#include "platform/Files.h"
#include "zip/ByteStreams.h"
#include "zip/ZipEntryRecord.h"

#include <cstdint>
#include <memory>

namespace zip {

class ArchiveOutput final : public ByteSink {
public:
    explicit ArchiveOutput(std::unique_ptr<platform::OutputFile> file)
        : file(std::move(file)), canSeek(this->file->CanSeek()) {}

    [[nodiscard]] bool CanSeek() const { return canSeek; }
    /// Offset of the next byte. Bytes of a write that failed do not count.
    [[nodiscard]] std::uint32_t GetBytesWritten() const { return bytesWritten; }
    /// Whether this many more bytes leave every offset within 32 bits.
    [[nodiscard]] bool HasRoomFor(std::uint64_t sizeBytes) const;

    /// Appends at the end; false, with nothing written, when there is no room.
    [[nodiscard]] bool Write(const std::uint8_t* data, std::size_t sizeBytes) override;
    [[nodiscard]] bool Append(const Bytes& record) { return Write(record.data(), record.size()); }

    /// Writes over bytes written before, and returns to the end.
    [[nodiscard]] bool Overwrite(std::uint32_t offset, const Bytes& record);

    /// Goes back to the end that BytesWritten tells, after a write that failed on the way.
    [[nodiscard]] bool ReturnToEnd() { return !canSeek || file->Seek(bytesWritten); }

    /// Hands everything to the storage device and closes the file, which happens in every case.
    [[nodiscard]] bool Close();

private:
    std::unique_ptr<platform::OutputFile> file;
    bool canSeek;
    std::uint32_t bytesWritten = 0;
};

} // namespace zip
