// The bytes of an archive. All integers are little-endian; docs/zip-archive.md shows two archives byte by byte.
//
//   archive  = entry*  directory  end
//   entry    = local header (30)  name  local extra field (17)  data  [data descriptor (16), only behind a pipe]
//   directory = (central header (46)  name  central extra field (9))*
//
//   local header                 central header               end of central directory
//    0  4 "PK" 03 04              0  4 "PK" 01 02              0  4 "PK" 05 06
//    4  2 version needed          4  2 version made by         4  2 this disk, 0
//    6  2 flags                   6  2 version needed          6  2 disk of the directory, 0
//    8  2 method                  8  2 flags                   8  2 entries on this disk
//   10  2 DOS time               10  2 method                 10  2 entries
//   12  2 DOS date               12  2 DOS time               12  4 size of the directory
//   14  4 CRC-32                 14  2 DOS date               16  4 offset of the directory
//   18  4 compressed size        16  4 CRC-32                 20  2 comment length, 0
//   22  4 uncompressed size      20  4 compressed size
//   26  2 name length            24  4 uncompressed size      local extra field: "UT", 13, 7, then the modification,
//   28  2 extra length           28  2 name length            access and creation time as Unix seconds (4 each)
//                                30  2 extra length           central extra field: "UT", 5, 7, modification time
//   data descriptor              32  2 comment length, 0
//    0  4 "PK" 07 08             34  2 disk number, 0
//    4  4 CRC-32                 36  2 internal attributes, 0
//    8  4 compressed size        38  4 external attributes
//   12  4 uncompressed size      42  4 offset of the local header
#pragma once

#include <cstddef>
#include <cstdint>

namespace zip {

constexpr std::uint32_t LocalHeaderSignature = 0x04034B50;
constexpr std::uint32_t DataDescriptorSignature = 0x08074B50;
constexpr std::uint32_t CentralHeaderSignature = 0x02014B50;
constexpr std::uint32_t EndSignature = 0x06054B50;

constexpr std::size_t LocalHeaderSize = 30;
constexpr std::size_t DataDescriptorSize = 16;
constexpr std::size_t CentralHeaderSize = 46;
constexpr std::size_t EndSize = 22;
constexpr std::uint16_t LocalExtraSize = 17;
constexpr std::uint16_t CentralExtraSize = 9;

constexpr std::uint16_t VersionMadeBy = 0x0B17;
constexpr std::uint16_t VersionNeeded = 20;
constexpr std::uint16_t SizesFollowFlag = 8;
constexpr std::uint16_t StoredMethod = 0;
constexpr std::uint16_t DeflatedMethod = 8;

constexpr std::uint16_t TimeExtraTag = 0x5455; // "UT"
constexpr std::uint8_t TimeExtraFlags = 7;     // modification, access and creation time
constexpr std::uint16_t LocalTimeExtraLength = 13;
constexpr std::uint16_t CentralTimeExtraLength = 5; // with the same flags, although one time follows

constexpr std::uint32_t RegularFileMode = 0x8100; // readable by its owner
constexpr std::uint32_t DirectoryMode = 0x4100;
constexpr std::uint32_t OwnerWriteMode = 0x0080;
constexpr std::uint32_t OwnerExecuteMode = 0x0040;

constexpr std::uint64_t LargestOffset = 0xFFFFFFFF;
constexpr std::size_t MostEntries = 0xFFFF;
constexpr std::size_t LongestName = 0xFFFF;

constexpr std::size_t StoredReadSize = 16384;
constexpr int PackLevel = 8;

} // namespace zip
