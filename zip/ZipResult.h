// Result codes of the archive writer and their texts.
#pragma once

#include <cstdint>

namespace zip {

enum class ZipResult : std::uint32_t {
    Success = 0x0,
    HandleNotDuplicated = 0x100,
    FileNotOpened = 0x200,
    OutOfMemory = 0x300,
    WriteFailed = 0x400,
    EntryNotFound = 0x500,
    MoreDataToUnzip = 0x600,
    CorruptArchive = 0x700,
    ReadFailed = 0x800,
    FaultyArguments = 0x10000,
    NotAMemoryArchive = 0x20000,
    MemoryArchiveTooSmall = 0x30000,
    PreviousError = 0x40000,
    AdditionsEnded = 0x50000,
    SizeChanged = 0x60000,
    PartiallyUnzipped = 0x70000,
    MixedCreationAndOpening = 0x80000,
    NotInitialised = 0x1000000,
    NotSeekable = 0x2000000,
    ChangedMind = 0x4000000,
    DeflateFault = 0x5000000,
};

/// The code's text for diagnostics; "unknown zip result code" for any other value.
[[nodiscard]] const char* ZipResultText(ZipResult result);

} // namespace zip
