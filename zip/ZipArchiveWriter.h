// Writes a ZIP archive to a file: entries are added from existing files one by one, then the central directory finishes
// it. Write-only, never encrypted, without the 64-bit extension. The bytes are laid out in ZipFormat.h.
#pragma once

#include "platform/Files.h"
#include "zip/ZipResult.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zip {

class ArchiveOutput;
class EntryCompressor;
struct ZipEntryRecord;

/// One archive being written. Not for use by two threads at once.
/// Every operation also sets the process-wide value that GetLastResult answers. The first failure of AddFile is kept,
/// and every later AddFile is refused with PreviousError. Nothing throws but an allocation failure in the constructor.
class ZipArchiveWriter {
public:
    /// files  outlives the writer
    explicit ZipArchiveWriter(platform::FileLayer& files = platform::GetOperatingSystemFiles());
    /// Closes the file of an archive that was not finished; without its directory no reader takes it for whole.
    ~ZipArchiveWriter();
    ZipArchiveWriter(const ZipArchiveWriter&) = delete;
    ZipArchiveWriter& operator=(const ZipArchiveWriter&) = delete;

    /// Creates the file, or empties the one that is there.
    /// path    narrow text, see platform/Text.h
    /// errors  FileNotOpened; NotInitialised when this writer already has an output
    [[nodiscard]] ZipResult Create(const std::string& path);

    /// Adds the file at sourcePath, compressed unless the name's extension says that it is already.
    /// entryName   each backslash in it becomes "/"; written byte for byte otherwise
    /// sourcePath  narrow text, see platform/Text.h
    /// errors      PreviousError, AdditionsEnded, FaultyArguments (a name that is empty or has a NUL, no output),
    ///             FileNotOpened, ReadFailed, SizeChanged (the source was not as long as its size said), WriteFailed
    ///             (also for what the format cannot hold: sizes and offsets past 32 bits, a name or a number of entries
    ///             past 16 bits), DeflateFault, OutOfMemory
    [[nodiscard]] ZipResult AddFile(const std::string& entryName, const std::string& sourcePath);

    /// Writes the central directory of the entries finished so far and closes the file, whatever failed before.
    /// errors  WriteFailed; FaultyArguments when there is no open output
    [[nodiscard]] ZipResult Close();

private:
    [[nodiscard]] ZipResult RefusalOf(const std::string& entryName) const;
    [[nodiscard]] ZipResult AddEntry(const std::string& entryName, const std::string& sourcePath);
    [[nodiscard]] ZipResult WriteEntry(ZipEntryRecord& entry, platform::InputFile& source, std::uint32_t sizeBytes);
    [[nodiscard]] ZipResult FinishHeader(ZipEntryRecord& entry, std::uint32_t announcedSize);
    [[nodiscard]] ZipResult WriteDirectory();

    platform::FileLayer& files;
    std::unique_ptr<ArchiveOutput> output;
    std::unique_ptr<EntryCompressor> compressor;
    std::vector<ZipEntryRecord> entries;
    ZipResult lastError = ZipResult::Success;
    bool ended = false;
};

/// The code of the most recent Create, AddFile or Close in this process.
[[nodiscard]] ZipResult GetLastResult();

} // namespace zip
