#include "zip/ZipEntryRecord.h"

#include <array>
#include <string_view>

namespace zip {

namespace {

class RecordBytes {
public:
    explicit RecordBytes(std::size_t size) { bytes.reserve(size); }

    RecordBytes& U8(std::uint8_t value) {
        bytes.push_back(value);
        return *this;
    }
    RecordBytes& U16(std::size_t value) {
        return U8(static_cast<std::uint8_t>(value)).U8(static_cast<std::uint8_t>(value >> 8));
    }
    RecordBytes& U32(std::uint32_t value) { return U16(value & 0xFFFF).U16(value >> 16); }
    template <typename Container>
    RecordBytes& All(const Container& content) {
        bytes.insert(bytes.end(), content.begin(), content.end());
        return *this;
    }
    Bytes Take() { return std::move(bytes); }

private:
    Bytes bytes;
};

// What the local and the central header have in common, from the method to the extra length.
void AppendCommonFields(RecordBytes& record, const ZipEntryRecord& entry, const Bytes& extra) {
    record.U16(entry.method).U32(entry.dosDateTime).U32(entry.crc);
    record.U32(entry.compressedSize).U32(entry.uncompressedSize);
    record.U16(entry.name.size()).U16(extra.size());
}

struct CivilDate {
    unsigned year;
    unsigned month; // 1 to 12
    unsigned day;   // 1 to 31
};

bool IsLeapYear(unsigned year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

CivilDate DateOfDay(std::uint64_t daysSince1601) {
    static constexpr std::uint64_t DaysIn400Years = 146097;
    CivilDate date{1601 + static_cast<unsigned>(daysSince1601 / DaysIn400Years * 400), 1, 1};
    std::uint64_t days = daysSince1601 % DaysIn400Years;
    while (days >= (IsLeapYear(date.year) ? 366U : 365U)) {
        days -= IsLeapYear(date.year) ? 366 : 365;
        ++date.year;
    }
    const std::array<unsigned, 12> monthDays = {
        31, IsLeapYear(date.year) ? 29U : 28U, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    while (days >= monthDays[date.month - 1]) {
        days -= monthDays[date.month - 1];
        ++date.month;
    }
    date.day += static_cast<unsigned>(days);
    return date;
}

constexpr std::uint64_t TicksPerSecond = 10000000;

} // namespace

Bytes LocalHeader(const ZipEntryRecord& entry) {
    RecordBytes record(LocalHeaderSize + entry.name.size() + entry.localExtra.size());
    record.U32(LocalHeaderSignature).U16(entry.needed).U16(entry.localFlags);
    AppendCommonFields(record, entry, entry.localExtra);
    return record.All(entry.name).All(entry.localExtra).Take();
}

Bytes DataDescriptor(const ZipEntryRecord& entry) {
    RecordBytes record(DataDescriptorSize);
    record.U32(DataDescriptorSignature).U32(entry.crc).U32(entry.compressedSize).U32(entry.uncompressedSize);
    return record.Take();
}

Bytes CentralHeader(const ZipEntryRecord& entry) {
    RecordBytes record(CentralHeaderSize + entry.name.size() + entry.centralExtra.size());
    record.U32(CentralHeaderSignature).U16(entry.madeBy).U16(entry.needed).U16(entry.flags);
    AppendCommonFields(record, entry, entry.centralExtra);
    record.U16(0).U16(entry.diskNumber).U16(entry.internalAttributes);
    record.U32(entry.externalAttributes).U32(entry.localOffset);
    return record.All(entry.name).All(entry.centralExtra).Take();
}

Bytes EndRecord(const DirectoryFacts& directory) {
    RecordBytes record(EndSize);
    record.U32(EndSignature).U16(0).U16(0).U16(directory.entryCount).U16(directory.entryCount);
    record.U32(directory.sizeBytes).U32(directory.offset).U16(0);
    return record.Take();
}

Bytes LocalTimeExtra(const platform::FileFacts& facts) {
    RecordBytes extra(LocalExtraSize);
    extra.U16(TimeExtraTag).U16(LocalTimeExtraLength).U8(TimeExtraFlags);
    extra.U32(UnixTime(facts.lastWriteTime)).U32(UnixTime(facts.lastAccessTime)).U32(UnixTime(facts.creationTime));
    return extra.Take();
}

Bytes CentralTimeExtra(const platform::FileFacts& facts) {
    RecordBytes extra(CentralExtraSize);
    extra.U16(TimeExtraTag).U16(CentralTimeExtraLength).U8(TimeExtraFlags).U32(UnixTime(facts.lastWriteTime));
    return extra.Take();
}

std::uint16_t MethodForName(const std::string& name) {
    static constexpr std::string_view PackedExtensions[] = {".Z",   ".zip", ".zoo", ".arc",
                                                            ".lzh", ".arj", ".gz",  ".tgz"};
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos) return DeflatedMethod;
    const std::string_view extension = std::string_view(name).substr(dot);
    for (const std::string_view packed : PackedExtensions) {
        if (extension == packed) return StoredMethod;
    }
    return DeflatedMethod;
}

std::uint32_t ExternalAttributes(std::uint32_t attributes, Executable executable) {
    using platform::FileAttribute;
    static constexpr std::uint32_t Kept = FileAttribute::ReadOnly | FileAttribute::Hidden | FileAttribute::System |
                                          FileAttribute::Directory | FileAttribute::Archive;
    std::uint32_t mode = (attributes & FileAttribute::Directory) != 0 ? DirectoryMode : RegularFileMode;
    if ((attributes & FileAttribute::ReadOnly) == 0) mode |= OwnerWriteMode;
    if (executable == Executable::Yes) mode |= OwnerExecuteMode;
    return (mode << 16) | (attributes & Kept);
}

std::uint32_t DosDateTime(std::uint64_t fileTime) {
    const std::uint64_t seconds = fileTime / TicksPerSecond;
    const unsigned ofDay = static_cast<unsigned>(seconds % 86400);
    const CivilDate day = DateOfDay(seconds / 86400);
    const std::uint32_t date = ((day.year - 1980) << 9) | (day.month << 5) | day.day;
    const std::uint32_t time = (ofDay / 3600 << 11) | (ofDay / 60 % 60 << 5) | ((ofDay % 60 * 2) & 31);
    return (date << 16) | time;
}

std::uint32_t UnixTime(std::uint64_t fileTime) {
    const std::int64_t since1970 = static_cast<std::int64_t>(fileTime - 116444736000000000);
    return static_cast<std::uint32_t>(since1970 / static_cast<std::int64_t>(TicksPerSecond));
}

} // namespace zip
