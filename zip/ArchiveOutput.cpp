#include "zip/ArchiveOutput.h"

namespace zip {

bool ArchiveOutput::HasRoomFor(std::uint64_t sizeBytes) const {
    return sizeBytes <= LargestOffset - bytesWritten;
}

bool ArchiveOutput::Write(const std::uint8_t* data, std::size_t sizeBytes) {
    if (!HasRoomFor(sizeBytes) || !file->Write(data, sizeBytes)) return false;
    bytesWritten += static_cast<std::uint32_t>(sizeBytes);
    return true;
}

bool ArchiveOutput::Overwrite(std::uint32_t offset, const Bytes& record) {
    return file->Seek(offset) && file->Write(record.data(), record.size()) && file->Seek(bytesWritten);
}

bool ArchiveOutput::Close() {
    const bool isFlushed = file->Flush();
    const bool isClosed = file->Close();
    return isFlushed && isClosed;
}

} // namespace zip
