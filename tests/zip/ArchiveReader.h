// Walks through an archive by its directory and compares whatever is said twice.
#pragma once

#include "Inflater.h"
#include "zip/Crc32.h"

namespace zip_test {

struct Entry {
    std::string name, content;
    unsigned method = 0;
    std::size_t attributes = 0;
};

inline std::size_t Number(const std::string& bytes, std::size_t at, std::size_t size) {
    std::size_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = (value << 8) | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

/// None where the archive contradicts itself or its entries' contents. Entries follow each other without a gap.
inline std::optional<std::vector<Entry>> ReadArchive(const std::string& bytes) {
    std::vector<Entry> entries;
    const std::size_t end = bytes.size() - 22;
    std::size_t at = Number(bytes, end + 16, 4), local = 0;
    const bool isEnd = Number(bytes, end, 4) == 0x06054B50 && at + Number(bytes, end + 12, 4) == end;
    if (!isEnd || Number(bytes, end + 8, 2) != Number(bytes, end + 10, 2)) return std::nullopt;
    while (at < end) {
        const std::size_t nameSize = Number(bytes, at + 28, 2), packedSize = Number(bytes, at + 20, 4);
        const bool isHeader = Number(bytes, at, 4) == 0x02014B50 && Number(bytes, at + 42, 4) == local;
        // From the version needed to the length of the name, and the name, both say the same.
        const bool isSame = bytes.compare(at + 6, 24 - 2, bytes, local + 4, 24 - 2) == 0 && nameSize > 0 &&
                            Number(bytes, local + 26, 2) == nameSize &&
                            bytes.compare(at + 46, nameSize, bytes, local + 30, nameSize) == 0;
        if (!isHeader || !isSame || Number(bytes, local, 4) != 0x04034B50) return std::nullopt;
        const std::size_t start = local + 30 + nameSize + Number(bytes, local + 28, 2);
        Entry entry{bytes.substr(at + 46, nameSize), bytes.substr(start, packedSize),
                    static_cast<unsigned>(Number(bytes, at + 10, 2)), Number(bytes, at + 38, 4)};
        if (entry.method == 8) {
            std::optional<inflate::Inflated> read = inflate::Inflate(entry.content);
            if (!read) return std::nullopt;
            entry.content = std::move(read->bytes);
        }
        const auto* data = reinterpret_cast<const std::uint8_t*>(entry.content.data());
        const bool isCrc = zip::Crc32(0, data, entry.content.size()) == Number(bytes, at + 16, 4);
        if (!isCrc || entry.content.size() != Number(bytes, at + 24, 4)) return std::nullopt;
        entries.push_back(std::move(entry));
        local = start + packedSize;
        at += 46 + nameSize + Number(bytes, at + 30, 2) + Number(bytes, at + 32, 2);
    }
    if (at != end || local != Number(bytes, end + 16, 4) || entries.size() != Number(bytes, end + 10, 2))
        return std::nullopt;
    return entries;
}

} // namespace zip_test
