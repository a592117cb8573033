// What the archive remembers of an entry, and the records written from it.
#pragma once

#include "platform/Files.h"
#include "zip/ZipFormat.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zip {

using Bytes = std::vector<std::uint8_t>;

/// An entry until it stands in the central directory. Lengths are those of the texts and fields at the end.
struct ZipEntryRecord {
    std::uint16_t madeBy = VersionMadeBy;
    std::uint16_t needed = VersionNeeded;
    std::uint16_t flags = 0;
    std::uint16_t method = DeflatedMethod;
    std::uint32_t dosDateTime = 0; ///< date in the high 16 bits
    std::uint32_t crc = 0;
    std::uint32_t compressedSize = 0;
    std::uint32_t uncompressedSize = 0;
    std::uint16_t diskNumber = 0;
    std::uint16_t internalAttributes = 0;
    std::uint16_t localFlags = 0;
    std::uint32_t externalAttributes = 0;
    std::uint32_t localOffset = 0;
    std::string name;
    Bytes localExtra;
    Bytes centralExtra;
};

/// Size and offset of a finished directory, and its number of entries.
struct DirectoryFacts {
    std::uint16_t entryCount = 0;
    std::uint32_t sizeBytes = 0;
    std::uint32_t offset = 0;
};

/// Header, name and extra field.
[[nodiscard]] Bytes LocalHeader(const ZipEntryRecord& entry);
[[nodiscard]] Bytes DataDescriptor(const ZipEntryRecord& entry);
[[nodiscard]] Bytes CentralHeader(const ZipEntryRecord& entry);
[[nodiscard]] Bytes EndRecord(const DirectoryFacts& directory);

[[nodiscard]] Bytes LocalTimeExtra(const platform::FileFacts& facts);
[[nodiscard]] Bytes CentralTimeExtra(const platform::FileFacts& facts);

/// Stored for names that end, letter by letter, like files that are packed already; deflated for all others.
[[nodiscard]] std::uint16_t MethodForName(const std::string& name);

enum class Executable { No, Yes };

/// Attribute bits below, a Unix mode in the high half.
[[nodiscard]] std::uint32_t ExternalAttributes(std::uint32_t attributes, Executable executable);

/// Date in the high 16 bits, time in the low 16, both of the UTC time; the seconds field is twice the second, cut to
/// five bits.
/// fileTime  100 ns since 1601
[[nodiscard]] std::uint32_t DosDateTime(std::uint64_t fileTime);

/// Seconds since 1970, cut to 32 bits.
/// fileTime  100 ns since 1601
[[nodiscard]] std::uint32_t UnixTime(std::uint64_t fileTime);

} // namespace zip
