#include "zip/ZipArchiveWriter.h"

#include "zip/ArchiveOutput.h"
#include "zip/EntryCompressor.h"
#include "zip/LastResult.h"
#include "zip/Words.h"

#include <algorithm>
#include <atomic>
#include <new>

namespace zip {

namespace {

std::atomic<ZipResult> lastResult{ZipResult::Success};

// Looks for a program's head at the place that an executable's beginning names. Ordinary files never have the mark that
// is asked for first.
std::optional<Executable> IsExecutable(platform::InputFile& source, std::uint32_t sizeBytes) {
    static constexpr std::uint32_t BeginningMark = 0x54AD;
    static constexpr std::uint32_t HeadMarks[] = {0x5A4D, 0x454C, 0x454E, 0x4550};
    static constexpr std::size_t BeginningSize = 40;
    static constexpr std::size_t HeadReferenceOffset = 36;
    static constexpr std::uint64_t HeadSize = 52;
    if (sizeBytes <= BeginningSize) return Executable::No;

    std::uint8_t beginning[BeginningSize];
    const std::optional<std::size_t> got = source.Read(beginning, BeginningSize);
    if (!got) return std::nullopt;
    Executable answer = Executable::No;
    if (*got == BeginningSize && (Load32(beginning) & 0xFFFF) == BeginningMark) {
        const std::uint32_t headOffset = Load32(beginning + HeadReferenceOffset);
        std::uint8_t head[4];
        if (sizeBytes > headOffset + HeadSize) {
            if (!source.Seek(headOffset) || source.Read(head, sizeof head) != sizeof head) return std::nullopt;
            const bool isKnown =
                std::find(std::begin(HeadMarks), std::end(HeadMarks), Load32(head)) != std::end(HeadMarks);
            answer = isKnown ? Executable::Yes : Executable::No;
        }
    }
    if (!source.Seek(0)) return std::nullopt;
    return answer;
}

ZipEntryRecord RecordOf(const std::string& entryName, const platform::FileFacts& facts, Executable executable) {
    ZipEntryRecord entry;
    entry.name = entryName;
    std::replace(entry.name.begin(), entry.name.end(), '\\', '/');
    entry.flags = SizesFollowFlag;
    entry.localFlags = SizesFollowFlag;
    entry.method = MethodForName(entry.name);
    entry.dosDateTime = DosDateTime(facts.lastWriteTime);
    entry.uncompressedSize = static_cast<std::uint32_t>(facts.sizeBytes);
    entry.compressedSize = entry.method == StoredMethod ? entry.uncompressedSize : 0;
    entry.externalAttributes = ExternalAttributes(facts.attributes, executable);
    entry.localExtra = LocalTimeExtra(facts);
    entry.centralExtra = CentralTimeExtra(facts);
    return entry;
}

} // namespace

void SetLastResult(ZipResult result) {
    lastResult = result;
}

ZipResult GetLastResult() {
    return lastResult;
}

ZipArchiveWriter::ZipArchiveWriter(platform::FileLayer& files) : files(files) {}

ZipArchiveWriter::~ZipArchiveWriter() = default;

ZipResult ZipArchiveWriter::Create(const std::string& path) {
    ZipResult result = ZipResult::NotInitialised;
    if (!output && !ended) {
        std::unique_ptr<platform::OutputFile> file = files.CreateOrTruncate(path);
        result = file ? ZipResult::Success : ZipResult::FileNotOpened;
        if (file) output = std::make_unique<ArchiveOutput>(std::move(file));
    }
    SetLastResult(result);
    return result;
}

ZipResult ZipArchiveWriter::AddFile(const std::string& entryName, const std::string& sourcePath) {
    ZipResult result = RefusalOf(entryName);
    const bool isRefusedForEarlier = result == ZipResult::PreviousError || result == ZipResult::AdditionsEnded;
    if (result == ZipResult::Success) {
        try {
            result = AddEntry(entryName, sourcePath);
        } catch (const std::bad_alloc&) {
            result = ZipResult::OutOfMemory;
        }
    }
    if (!isRefusedForEarlier) lastError = result;
    SetLastResult(result);
    return result;
}

ZipResult ZipArchiveWriter::RefusalOf(const std::string& entryName) const {
    if (lastError != ZipResult::Success) return ZipResult::PreviousError;
    if (ended) return ZipResult::AdditionsEnded;
    const bool isName = !entryName.empty() && entryName.find('\0') == std::string::npos;
    if (!output || !isName) return ZipResult::FaultyArguments;
    return ZipResult::Success;
}

ZipResult ZipArchiveWriter::AddEntry(const std::string& entryName, const std::string& sourcePath) {
    if (entries.size() >= MostEntries || entryName.size() > LongestName) return ZipResult::WriteFailed;
    const std::unique_ptr<platform::InputFile> source = files.OpenForReading(sourcePath);
    if (!source) return ZipResult::FileNotOpened;
    const std::optional<platform::FileFacts> facts = source->GetFacts();
    if (!facts) return ZipResult::ReadFailed;
    if (facts->sizeBytes > LargestOffset) return ZipResult::WriteFailed;
    const std::uint32_t sizeBytes = static_cast<std::uint32_t>(facts->sizeBytes);
    const std::optional<Executable> executable = IsExecutable(*source, sizeBytes);
    if (!executable) return ZipResult::ReadFailed;

    ZipEntryRecord entry = RecordOf(entryName, *facts, *executable);
    entry.localOffset = output->GetBytesWritten();
    const std::uint64_t roomNeeded = LocalHeaderSize + entry.name.size() + LocalExtraSize + entry.compressedSize;
    if (!output->HasRoomFor(roomNeeded)) return ZipResult::WriteFailed;
    const ZipResult result = WriteEntry(entry, *source, sizeBytes);
    if (result == ZipResult::Success) entries.push_back(std::move(entry));
    return result;
}

ZipResult ZipArchiveWriter::WriteEntry(ZipEntryRecord& entry, platform::InputFile& source, std::uint32_t sizeBytes) {
    if (!output->Append(LocalHeader(entry))) return ZipResult::WriteFailed;
    if (!compressor) compressor = std::make_unique<EntryCompressor>();
    EntryData data;
    const ZipResult result = entry.method == StoredMethod ? compressor->Store(source, sizeBytes, *output, data)
                                                          : compressor->Deflate(source, sizeBytes, *output, data);
    if (result != ZipResult::Success) return result;
    const std::uint32_t announcedSize = entry.compressedSize;
    entry.crc = data.crc;
    entry.compressedSize = data.compressedSize;
    return FinishHeader(entry, announcedSize);
}

ZipResult ZipArchiveWriter::FinishHeader(ZipEntryRecord& entry, std::uint32_t announcedSize) {
    if (output->CanSeek()) {
        entry.flags = 0;
        entry.localFlags = 0;
        return output->Overwrite(entry.localOffset, LocalHeader(entry)) ? ZipResult::Success : ZipResult::WriteFailed;
    }
    if (entry.method == StoredMethod && entry.compressedSize != announcedSize) return ZipResult::ChangedMind;
    return output->Append(DataDescriptor(entry)) ? ZipResult::Success : ZipResult::WriteFailed;
}

ZipResult ZipArchiveWriter::Close() {
    ZipResult result = ZipResult::FaultyArguments;
    if (output) {
        try {
            result = WriteDirectory();
        } catch (const std::bad_alloc&) {
            result = ZipResult::OutOfMemory;
        }
        if (!output->Close() && result == ZipResult::Success) result = ZipResult::WriteFailed;
        output.reset();
        compressor.reset();
        entries.clear();
        ended = true;
    }
    SetLastResult(result);
    return result;
}

ZipResult ZipArchiveWriter::WriteDirectory() {
    if (!output->ReturnToEnd()) return ZipResult::WriteFailed;
    Bytes directory;
    for (const ZipEntryRecord& entry : entries) {
        const Bytes header = CentralHeader(entry);
        directory.insert(directory.end(), header.begin(), header.end());
    }
    if (!output->HasRoomFor(directory.size() + EndSize)) return ZipResult::WriteFailed;
    const Bytes end = EndRecord({static_cast<std::uint16_t>(entries.size()),
                                 static_cast<std::uint32_t>(directory.size()), output->GetBytesWritten()});
    directory.insert(directory.end(), end.begin(), end.end());
    return output->Append(directory) ? ZipResult::Success : ZipResult::WriteFailed;
}

} // namespace zip
