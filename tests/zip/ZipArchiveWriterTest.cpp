// The writer on a file system in memory: bytes, rules, and every operation failing in turn.
#include "zip/ZipArchiveWriter.h"
#include "FixedTexts.h"
#include "Inflater.h"
#include "support/FakeFiles.h"
#include "zip/ZipHandle.h"

#include <gtest/gtest.h>

namespace {

using support::FakeFiles;
using zip::ZipArchiveWriter;
using zip::ZipResult;

const std::string target = "out.zip";

std::string FromHex(const std::string& hex) {
    std::string bytes;
    std::string digits;
    for (const char letter : hex) {
        if (letter == ' ') continue;
        digits.push_back(letter);
        if (digits.size() < 2) continue;
        bytes.push_back(static_cast<char>(std::stoi(digits, nullptr, 16)));
        digits.clear();
    }
    return bytes;
}

std::uint32_t Number(const std::string& bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) {
        value = (value << 8) | static_cast<unsigned char>(bytes.at(at + i));
    }
    return value;
}

void AddSource(FakeFiles& files, const std::string& path, const std::string& content) {
    platform::FileFacts& facts = files.AddFile(path, content).facts;
    facts.lastWriteTime = 134285967310000000;                // 2026-07-15 13:45:31 UTC, 0x6A578EFB Unix seconds
    facts.lastAccessTime = facts.lastWriteTime + 600000000;  // one minute later: 0x6A578F37
    facts.creationTime = facts.lastWriteTime - 864000000000; // one day earlier: 0x6A563D7B
}

// The same archive as in docs/zip-archive.md.
TEST(ZipArchiveWriterTest, WritesTheLayoutByteForByte) {
    FakeFiles files;
    AddSource(files, "source", "Hello, archive!");
    ZipArchiveWriter writer(files);
    ASSERT_EQ(writer.Create(target), ZipResult::Success);
    ASSERT_EQ(writer.AddFile("b\\a.gz", "source"), ZipResult::Success);
    ASSERT_EQ(writer.Close(), ZipResult::Success);
    const std::string expected =
        FromHex("50 4B 03 04 14 00 00 00 00 00 BE 6D EF 5C FE 17 57 75 0F 00 00 00 0F 00 00 00"
                "06 00 11 00 62 2F 61 2E 67 7A"
                "55 54 0D 00 07 FB 8E 57 6A 37 8F 57 6A 7B 3D 56 6A") +
        "Hello, archive!" +
        FromHex("50 4B 01 02 17 0B 14 00 00 00 00 00 BE 6D EF 5C FE 17 57 75 0F 00 00 00 0F 00 00 00"
                "06 00 09 00 00 00 00 00 00 00 20 00 80 81 00 00 00 00 62 2F 61 2E 67 7A"
                "55 54 05 00 07 FB 8E 57 6A"
                "50 4B 05 06 00 00 00 00 01 00 01 00 3D 00 00 00 44 00 00 00 00 00");
    EXPECT_EQ(files.files[target].bytes, expected);
    EXPECT_EQ(files.openFiles, 0);
    EXPECT_EQ(files.flushes, 1);
}

TEST(ZipArchiveWriterTest, ClosesAnEmptyArchiveWithTheEndRecordOnly) {
    FakeFiles files;
    ZipArchiveWriter writer(files);
    ASSERT_EQ(writer.Create(target), ZipResult::Success);
    ASSERT_EQ(writer.Close(), ZipResult::Success);
    EXPECT_EQ(files.files[target].bytes, FromHex("50 4B 05 06") + std::string(18, '\0'));
}

TEST(ZipArchiveWriterTest, DeflatesWithSizesAndChecksumInTheHeader) {
    FakeFiles files;
    const std::string content(100000, 'k');
    AddSource(files, "empty", "");
    AddSource(files, "long", content);
    ZipArchiveWriter writer(files);
    ASSERT_EQ(writer.Create(target), ZipResult::Success);
    ASSERT_EQ(writer.AddFile("e.xml", "empty"), ZipResult::Success);
    ASSERT_EQ(writer.AddFile("long", "long"), ZipResult::Success);
    ASSERT_EQ(writer.Close(), ZipResult::Success);
    const std::string& bytes = files.files[target].bytes;
    EXPECT_EQ(Number(bytes, 8, 2), 8U);
    EXPECT_EQ(Number(bytes, 14, 4), 0U); // CRC of nothing
    EXPECT_EQ(Number(bytes, 18, 4), 2U); // an empty stream of fixed codes
    EXPECT_EQ(Number(bytes, 22, 4), 0U);
    const std::size_t second = 30 + 5 + 17 + 2;
    EXPECT_EQ(Number(bytes, second, 4), 0x04034B50U);
    const std::optional<inflate::Inflated> read =
        inflate::Inflate(bytes.substr(second + 30 + 4 + 17, Number(bytes, second + 18, 4)));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->bytes, content);
    EXPECT_EQ(Number(bytes, second + 22, 4), content.size());
}

TEST(ZipArchiveWriterTest, DeflatesAtLevel8) {
    for (const zip_test::FixedText& text : zip_test::FixedTexts()) {
        FakeFiles files;
        AddSource(files, "source", text.bytes);
        ZipArchiveWriter writer(files);
        ASSERT_EQ(writer.Create(target), ZipResult::Success);
        ASSERT_EQ(writer.AddFile("a", "source"), ZipResult::Success);
        ASSERT_EQ(writer.Close(), ZipResult::Success);
        const std::string stream =
            files.files[target].bytes.substr(30 + 1 + 17, Number(files.files[target].bytes, 18, 4));
        EXPECT_LE(stream.size(), text.mostBytes) << text.name;
        EXPECT_TRUE(stream == zip_test::Deflated(text.bytes, 8)) << text.name;
    }
}

TEST(ZipArchiveWriterTest, MarksOnlyWhatCarriesTheMagicAsExecutable) {
    std::string program = FromHex("AD 54") + std::string(34, '\0') + FromHex("28 00 00 00") + FromHex("4D 5A 00 00") +
                          std::string(49, '\0'); // head at 40, size 93 > 40 + 52
    std::string shorter = program.substr(0, 92);
    std::string ordinary = program;
    ordinary[0] = 'M';
    ordinary[1] = 'Z';
    std::string otherHead = program;
    otherHead[42] = 1;
    std::string farHead = program;
    farHead[39] = '\x7F';
    struct Case {
        const char* name;
        const std::string& content;
        std::uint32_t mode;
    };
    const Case cases[] = {{"program", program, 0x81C0},
                          {"one byte short", shorter, 0x8180},
                          {"ordinary", ordinary, 0x8180},
                          {"other head", otherHead, 0x8180},
                          {"head beyond the end", farHead, 0x8180}};
    for (const Case& row : cases) {
        FakeFiles files;
        AddSource(files, "source", row.content);
        ZipArchiveWriter writer(files);
        ASSERT_EQ(writer.Create(target), ZipResult::Success);
        ASSERT_EQ(writer.AddFile("a.gz", "source"), ZipResult::Success);
        ASSERT_EQ(writer.Close(), ZipResult::Success);
        const std::string& bytes = files.files[target].bytes;
        const std::size_t data = 30 + 4 + 17;
        EXPECT_EQ(bytes.substr(data, row.content.size()), row.content) << row.name;
        EXPECT_EQ(Number(bytes, data + row.content.size() + 40, 2), row.mode) << row.name;
    }
}

TEST(ZipArchiveWriterTest, PutsADescriptorBehindTheDataOfAPipe) {
    FakeFiles files;
    files.outputs = support::Seekable::No;
    AddSource(files, "source", "Hello, archive!");
    ZipArchiveWriter writer(files);
    ASSERT_EQ(writer.Create(target), ZipResult::Success);
    ASSERT_EQ(writer.AddFile("a.gz", "source"), ZipResult::Success);
    ASSERT_EQ(writer.Close(), ZipResult::Success);
    const std::string& bytes = files.files[target].bytes;
    EXPECT_EQ(Number(bytes, 6, 2), 8U);
    EXPECT_EQ(Number(bytes, 14, 4), 0U);
    EXPECT_EQ(Number(bytes, 18, 4), 15U);
    EXPECT_EQ(bytes.substr(30 + 4 + 17 + 15, 16), FromHex("50 4B 07 08 FE 17 57 75 0F 00 00 00 0F 00 00 00"));
    EXPECT_EQ(Number(bytes, 30 + 4 + 17 + 15 + 16 + 8, 2), 8U);
}

TEST(ZipArchiveWriterTest, RefusesAfterAFailureAndAfterTheEnd) {
    FakeFiles files;
    AddSource(files, "source", "x");
    ZipArchiveWriter writer(files);
    EXPECT_EQ(writer.Close(), ZipResult::FaultyArguments);
    ASSERT_EQ(writer.Create(target), ZipResult::Success);
    EXPECT_EQ(writer.Create("second"), ZipResult::NotInitialised);
    EXPECT_EQ(files.files.count("second"), 0U);
    ASSERT_EQ(writer.AddFile("a", "source"), ZipResult::Success);
    EXPECT_EQ(writer.AddFile("b", "missing"), ZipResult::FileNotOpened);
    EXPECT_EQ(zip::LastResult(), ZipResult::FileNotOpened);
    const int operations = files.operations;
    EXPECT_EQ(writer.AddFile("c", "source"), ZipResult::PreviousError);
    EXPECT_EQ(files.operations, operations);
    EXPECT_EQ(zip::LastResult(), ZipResult::PreviousError);
    ASSERT_EQ(writer.Close(), ZipResult::Success);
    EXPECT_EQ(zip::LastResult(), ZipResult::Success);
    const std::string& bytes = files.files[target].bytes;
    EXPECT_EQ(Number(bytes, bytes.size() - 22 + 10, 2), 1U);

    ZipArchiveWriter second(files);
    ASSERT_EQ(second.Create(target), ZipResult::Success);
    ASSERT_EQ(second.Close(), ZipResult::Success);
    EXPECT_EQ(second.AddFile("a", "source"), ZipResult::AdditionsEnded);
    EXPECT_EQ(second.Close(), ZipResult::FaultyArguments);
    for (const std::string& name : {std::string(), std::string("a\0b", 3), std::string(1, '\0')}) {
        ZipArchiveWriter third(files);
        ASSERT_EQ(third.Create(target), ZipResult::Success);
        EXPECT_EQ(third.AddFile(name, "source"), ZipResult::FaultyArguments);
        EXPECT_TRUE(files.files[target].bytes.empty());
    }
}

TEST(ZipArchiveWriterTest, ChecksHandles) {
    EXPECT_EQ(zip::AddFile(nullptr, "a", "b"), ZipResult::FaultyArguments);
    EXPECT_EQ(zip::LastResult(), ZipResult::FaultyArguments);
    EXPECT_EQ(zip::Close(nullptr), ZipResult::FaultyArguments);
    zip::ZipHandle reader;
    reader.kind = zip::HandleKind::Reader;
    EXPECT_EQ(zip::AddFile(&reader, "a", "b"), ZipResult::MixedCreationAndOpening);
    EXPECT_EQ(zip::Create("no such folder/out.zip"), nullptr);
    EXPECT_EQ(zip::LastResult(), ZipResult::FileNotOpened);
}

// Reads as the file said, fewer, more, without end, and none at all.
TEST(ZipArchiveWriterTest, NoticesASourceOfAnotherSize) {
    struct Case {
        const char* name;
        std::uint64_t announced;
        std::size_t delivered; // in reads of 1,000 bytes that the work buffer takes whole
        ZipResult result;
    };
    const Case cases[] = {{"equal", 16384, 16384, ZipResult::Success},
                          {"one less", 16384, 16383, ZipResult::SizeChanged},
                          {"one more", 16384, 16385, ZipResult::SizeChanged},
                          {"vanished", 16384, 0, ZipResult::SizeChanged},
                          {"grown from nothing", 0, 1, ZipResult::SizeChanged}};
    for (const char* entryName : {"a.gz", "a.xml"}) {
        for (const Case& row : cases) {
            FakeFiles files;
            AddSource(files, "source", std::string(row.delivered, 's'));
            files.files["source"].facts.sizeBytes = row.announced;
            ZipArchiveWriter writer(files);
            ASSERT_EQ(writer.Create(target), ZipResult::Success);
            EXPECT_EQ(writer.AddFile(entryName, "source"), row.result) << entryName << ", " << row.name;
            ASSERT_EQ(writer.Close(), ZipResult::Success);
            const std::string& bytes = files.files[target].bytes;
            EXPECT_EQ(Number(bytes, bytes.size() - 22 + 10, 2), row.result == ZipResult::Success ? 1U : 0U) << row.name;
            EXPECT_EQ(files.openFiles, 0);
        }
    }
}

TEST(ZipArchiveWriterTest, EndsASourceThatGrowsForEver) {
    for (const char* entryName : {"a.gz", "a.xml"}) {
        FakeFiles files;
        AddSource(files, "source", "");
        files.files["source"].facts.sizeBytes = 40;
        files.files["source"].content = [](std::size_t) { return std::string(1 << 18, 'x'); };
        ZipArchiveWriter writer(files);
        ASSERT_EQ(writer.Create(target), ZipResult::Success);
        EXPECT_EQ(writer.AddFile(entryName, "source"), ZipResult::SizeChanged);
    }
}

struct Outcome {
    ZipResult create = ZipResult::Success;
    unsigned added = 0;
    ZipResult add = ZipResult::Success;
    ZipResult close = ZipResult::Success;
};

Outcome WriteThree(FakeFiles& files) {
    AddSource(files, "source", std::string(70000, 's') + "tail");
    ZipArchiveWriter writer(files);
    Outcome outcome;
    outcome.create = writer.Create(target);
    if (outcome.create != ZipResult::Success) return outcome;
    for (const char* name : {"one.xml", "two.gz", "three.xml"}) {
        outcome.add = writer.AddFile(name, "source");
        if (outcome.add != ZipResult::Success) break;
        ++outcome.added;
    }
    outcome.close = writer.Close();
    return outcome;
}

// Whatever fails, some answer says so, nothing stays open, and a directory names only finished entries.
TEST(ZipArchiveWriterTest, TellsOfEveryOperationThatFails) {
    FakeFiles whole;
    ASSERT_EQ(WriteThree(whole).added, 3U);
    for (const bool staysBroken : {false, true}) {
        for (int failAt = 0; failAt < whole.operations; ++failAt) {
            FakeFiles files;
            files.failAt = failAt;
            files.staysBroken = staysBroken;
            const Outcome outcome = WriteThree(files);
            SCOPED_TRACE(testing::Message() << "operation " << failAt << (staysBroken ? " and all after it" : ""));
            EXPECT_EQ(files.openFiles, 0);
            const bool isTold = outcome.create != ZipResult::Success || outcome.add != ZipResult::Success ||
                                outcome.close != ZipResult::Success;
            EXPECT_TRUE(isTold);
            if (outcome.create != ZipResult::Success) continue;
            if (staysBroken) {
                EXPECT_EQ(outcome.close, ZipResult::WriteFailed);
            } else if (outcome.close == ZipResult::Success) {
                const std::string& bytes = files.files[target].bytes;
                const std::size_t end = bytes.size() - 22;
                EXPECT_EQ(Number(bytes, end, 4), 0x06054B50U);
                EXPECT_EQ(Number(bytes, end + 10, 2), outcome.added);
                EXPECT_EQ(Number(bytes, end + 12, 4) + Number(bytes, end + 16, 4), end);
            }
        }
    }
}

TEST(ZipArchiveWriterTest, RefusesTheEntryThatItsCountCannotHold) {
    FakeFiles files;
    AddSource(files, "source", "");
    ZipArchiveWriter writer(files);
    ASSERT_EQ(writer.Create(target), ZipResult::Success);
    for (int i = 0; i < 65535; ++i) {
        ASSERT_EQ(writer.AddFile(std::to_string(i) + ".gz", "source"), ZipResult::Success) << i;
    }
    const std::size_t size = files.files[target].bytes.size();
    EXPECT_EQ(writer.AddFile("65535.gz", "source"), ZipResult::WriteFailed);
    EXPECT_EQ(files.files[target].bytes.size(), size);
    ASSERT_EQ(writer.Close(), ZipResult::Success);
    const std::string& bytes = files.files[target].bytes;
    EXPECT_EQ(Number(bytes, bytes.size() - 22 + 8, 4), 0xFFFFFFFFU);
}

TEST(ZipArchiveWriterTest, RefusesWhatItsFieldsCannotHold) {
    struct Case {
        const char* name;
        std::string entryName;
        std::uint64_t size;
        ZipResult result;
    };
    const Case cases[] = {
        {"longest name", std::string(65535, 'n'), 0, ZipResult::Success},
        {"name one longer", std::string(65536, 'n'), 0, ZipResult::WriteFailed},
        {"deflated size past 32 bits", "a", 0x100000000, ZipResult::WriteFailed},
        {"stored size past 32 bits", "a.gz", 0x100000000, ZipResult::WriteFailed},
        {"stored size that leaves no room for its header", "a.gz", 0xFFFFFFFF, ZipResult::WriteFailed}};
    for (const Case& row : cases) {
        FakeFiles files;
        AddSource(files, "source", "");
        files.files["source"].facts.sizeBytes = row.size;
        ZipArchiveWriter writer(files);
        ASSERT_EQ(writer.Create(target), ZipResult::Success);
        EXPECT_EQ(writer.AddFile(row.entryName, "source"), row.result) << row.name;
        if (row.result != ZipResult::Success) {
            EXPECT_TRUE(files.files[target].bytes.empty()) << row.name;
        }
        EXPECT_EQ(writer.Close(), ZipResult::Success);
    }
}

// One stored entry fills the archive up to the last offset but for the room that the directory of 46 + 4 + 9 bytes and
// the end of 22 need, once exactly and once one byte short.
TEST(ZipArchiveWriterTest, WritesNoDirectoryPastTheLastOffset) {
    for (const std::uint32_t room : {81U, 80U}) {
        FakeFiles files;
        files.discardsOutput = true;
        AddSource(files, "source", "");
        support::FakeFile& source = files.files["source"];
        source.facts.sizeBytes = 0xFFFFFFFFU - (30 + 4 + 17) - room;
        std::uint64_t left = source.facts.sizeBytes + 16384; // the look at the beginning is read again
        const std::string part(16384, '\0');
        source.content = [left, &part](std::size_t) mutable {
            const std::size_t now = static_cast<std::size_t>(std::min<std::uint64_t>(left, part.size()));
            left -= now;
            return now == part.size() ? part : part.substr(0, now);
        };
        ZipArchiveWriter writer(files);
        ASSERT_EQ(writer.Create(target), ZipResult::Success);
        ASSERT_EQ(writer.AddFile("a.gz", "source"), ZipResult::Success);
        const int operations = files.operations;
        EXPECT_EQ(writer.Close(), room == 81 ? ZipResult::Success : ZipResult::WriteFailed);
        // seek, write, flush, close; no write where there is no room
        EXPECT_EQ(files.operations - operations, room == 81 ? 4 : 3);
    }
}

} // namespace
