#include "zip/EntryCompressor.h"

#include "zip/Crc32.h"

namespace zip {

namespace {

// A source that turns out longer than expected ends where that is noticed, so that one that grows for ever ends too.
class CheckedSource final : public ByteSource {
public:
    CheckedSource(platform::InputFile& file, std::uint32_t expectedSize) : file(file), expectedSize(expectedSize) {}

    std::optional<std::size_t> Read(std::uint8_t* data, std::size_t sizeBytes) override {
        const std::optional<std::size_t> got = file.Read(data, sizeBytes);
        if (!got) return std::nullopt;
        total += *got;
        isTooLong = total > expectedSize;
        if (isTooLong) return std::nullopt;
        crc = Crc32(crc, data, *got);
        return got;
    }

    [[nodiscard]] ZipResult FailureOfRead() const { return isTooLong ? ZipResult::SizeChanged : ZipResult::ReadFailed; }
    [[nodiscard]] ZipResult SizeAtEnd() const {
        return total == expectedSize ? ZipResult::Success : ZipResult::SizeChanged;
    }
    [[nodiscard]] std::uint32_t GetCrc() const { return crc; }

private:
    platform::InputFile& file;
    std::uint32_t expectedSize;
    std::uint64_t total = 0;
    std::uint32_t crc = 0;
    bool isTooLong = false;
};

} // namespace

ZipResult EntryCompressor::Store(platform::InputFile& source, std::uint32_t sizeBytes, ArchiveOutput& output,
                                 EntryData& data) {
    workBuffer.resize(StoredReadSize);
    CheckedSource checked(source, sizeBytes);
    const std::uint32_t start = output.GetBytesWritten();
    std::optional<std::size_t> got;
    do {
        got = checked.Read(workBuffer.data(), workBuffer.size());
        if (!got) return checked.FailureOfRead();
        if (!output.Write(workBuffer.data(), *got)) return ZipResult::WriteFailed;
    } while (*got == workBuffer.size());
    data = {checked.GetCrc(), output.GetBytesWritten() - start};
    return checked.SizeAtEnd();
}

ZipResult EntryCompressor::Deflate(platform::InputFile& source, std::uint32_t sizeBytes, ArchiveOutput& output,
                                   EntryData& data) {
    if (!deflater) deflater = std::make_unique<Deflater>();
    CheckedSource checked(source, sizeBytes);
    const std::uint32_t start = output.GetBytesWritten();
    switch (deflater->Compress(checked, output, PackLevel)) {
    case DeflateResult::Success:
        break;
    case DeflateResult::ReadFailed:
        return checked.FailureOfRead();
    case DeflateResult::WriteFailed:
        return ZipResult::WriteFailed;
    case DeflateResult::BadPackLevel:
        return ZipResult::DeflateFault;
    }
    data = {checked.GetCrc(), output.GetBytesWritten() - start};
    return checked.SizeAtEnd();
}

} // namespace zip
