// The writer on a file system in memory: bytes, rules, values that stand in the records, and every operation failing in
// turn. What the operating system's files do is tested with them and with workbooks.
#include "zip/ZipArchiveWriter.h"
#include "ArchiveReader.h"
#include "FixedTexts.h"
#include "support/ApprovedText.h"
#include "support/FakeFiles.h"
#include "zip/ZipEntryRecord.h"
#include "zip/ZipHandle.h"

#include <sstream>

namespace {

using support::FakeFiles;
using zip::ZipArchiveWriter;
using zip::ZipResult;
using zip_test::Entry;
using zip_test::Number;

const std::string Target = "out.zip";

class ZipArchiveWriterTest : public testing::Test {
protected:
    support::FakeFile& AddSource(const std::string& content) {
        support::FakeFile& file = files.AddFile("source", content);
        file.facts.lastWriteTime = 134285967310000000; // 2026-07-15 13:45:31 UTC, 0x6A578EFB Unix seconds
        file.facts.lastAccessTime = file.facts.lastWriteTime + 600000000;  // one minute later: 0x6A578F37
        file.facts.creationTime = file.facts.lastWriteTime - 864000000000; // one day earlier: 0x6A563D7B
        return file;
    }

    /// The source under each of the names, up to the first that is refused.
    ZipResult Pack(const std::vector<std::string>& names) {
        ZipArchiveWriter writer(files);
        create = writer.Create(Target);
        if (create != ZipResult::Success) return create;
        ZipResult result = ZipResult::Success;
        for (added = 0; added < names.size() && result == ZipResult::Success; ++added)
            result = writer.AddFile(names[added], "source");
        if (result != ZipResult::Success) --added;
        close = writer.Close();
        return result;
    }

    const std::string& Bytes() { return files.files[Target].bytes; }

    /// The archive's entries; fails where it contradicts itself.
    std::vector<Entry> Entries() {
        const std::optional<std::vector<Entry>> entries = zip_test::ReadArchive(Bytes());
        EXPECT_TRUE(entries.has_value());
        return entries.value_or(std::vector<Entry>());
    }

    FakeFiles files;
    std::size_t added = 0;
    ZipResult create = ZipResult::Success, close = ZipResult::Success;
};

std::string HexLines(const std::string& bytes) {
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        text += {Digits[byte / 16], Digits[byte % 16], at % 32 == 31 || at + 1 == bytes.size() ? '\n' : ' '};
    }
    return text;
}

// The second archive is that of docs/zip-archive.md.
TEST_F(ZipArchiveWriterTest, WritesTheLayoutByteForByte) {
    std::string text = "an empty archive\n";
    EXPECT_EQ(Pack({}), ZipResult::Success);
    text += HexLines(Bytes());
    AddSource("Hello, archive!");
    for (const auto seekable : {support::Seekable::Yes, support::Seekable::No}) {
        files.outputs = seekable;
        EXPECT_EQ(Pack({"b\\a.gz"}), ZipResult::Success);
        text += seekable == support::Seekable::Yes ? "stored\n" : "stored through a pipe\n";
        text += HexLines(Bytes());
    }
    files.outputs = support::Seekable::Yes;
    AddSource("").facts.attributes |= platform::ReadOnly;
    EXPECT_EQ(Pack({"e.xml"}), ZipResult::Success);
    text += "deflated, empty and not to be written\n" + HexLines(Bytes());
    support::ExpectApproved("zip/approved/archives.txt", text);
    EXPECT_EQ(files.openFiles, 0);
    EXPECT_EQ(files.flushes, 4);
}

TEST_F(ZipArchiveWriterTest, DeflatesAtLevel8) {
    const std::string text = zip_test::Passages(250);
    AddSource(text);
    EXPECT_EQ(Pack({"a"}), ZipResult::Success);
    EXPECT_TRUE(Bytes().substr(30 + 1 + 17, Number(Bytes(), 18, 4)) == zip_test::Deflated(text, 8));
}

TEST_F(ZipArchiveWriterTest, TellsAttributesAndWhatCarriesTheMagicOfAProgram) {
    using namespace platform;
    // The beginning's mark, the head's place 40, and there a head; 93 bytes are one more than 40 + 52.
    const std::string program =
        std::string(93, '\0').replace(0, 2, "\xAD\x54").replace(36, 1, "\x28").replace(40, 2, "MZ");
    const auto with = [program](std::size_t at, const char* bytes) {
        return std::string(program).replace(at, std::strlen(bytes), bytes);
    };
    const struct {
        const char* name;
        std::string content;
        std::uint32_t attributes, external;
    } cases[] = {{"program", program, Archive, 0x81C00020},
                 {"program not to be written", program, ReadOnly, 0x81400001},
                 {"second head", with(40, "LE"), 0, 0x81C00000},
                 {"third head", with(40, "NE"), 0, 0x81C00000},
                 {"fourth head", with(40, "PE"), 0, 0x81C00000},
                 {"longer head", with(42, "\x01"), 0, 0x81800000},
                 {"one byte short", program.substr(0, 92), 0, 0x81800000},
                 {"beginning only", program.substr(0, 40), 0, 0x81800000},
                 {"ordinary", with(0, "MZ"), Hidden | System, 0x81800006},
                 {"half a mark", with(1, "S"), Archive | ReadOnly, 0x81000021},
                 {"other head", with(40, "ZM"), Directory, 0x41800010},
                 {"head beyond the end", with(39, "\x7F"), 0x2000, 0x81800000}};
    for (const auto& row : cases) {
        AddSource(row.content).facts.attributes = row.attributes;
        EXPECT_EQ(Pack({"a.gz"}), ZipResult::Success);
        const std::vector<Entry> entries = Entries();
        ASSERT_EQ(entries.size(), 1U) << row.name;
        EXPECT_EQ(entries[0].content, row.content) << row.name;
        EXPECT_EQ(entries[0].attributes, row.external) << row.name;
    }
}

TEST_F(ZipArchiveWriterTest, RefusesAfterAFailureAndAfterTheEnd) {
    AddSource("x");
    ZipArchiveWriter writer(files);
    EXPECT_EQ(writer.Close(), ZipResult::FaultyArguments);
    ASSERT_EQ(writer.Create(Target), ZipResult::Success);
    EXPECT_EQ(writer.Create("second"), ZipResult::NotInitialised);
    EXPECT_EQ(files.files.count("second"), 0U);
    ASSERT_EQ(writer.AddFile("a", "source"), ZipResult::Success);
    EXPECT_EQ(writer.AddFile("b", "missing"), ZipResult::FileNotOpened);
    EXPECT_EQ(zip::GetLastResult(), ZipResult::FileNotOpened);
    const int operations = files.operations;
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(writer.AddFile("c", "source"), ZipResult::PreviousError);
    EXPECT_EQ(files.operations, operations);
    EXPECT_EQ(zip::GetLastResult(), ZipResult::PreviousError);
    ASSERT_EQ(writer.Close(), ZipResult::Success);
    EXPECT_EQ(zip::GetLastResult(), ZipResult::Success);
    EXPECT_EQ(Entries().size(), 1U);
    EXPECT_EQ(writer.Close(), ZipResult::FaultyArguments);
    EXPECT_EQ(writer.Create(Target), ZipResult::NotInitialised);

    ZipArchiveWriter second(files);
    EXPECT_TRUE(second.Create(Target) == ZipResult::Success && second.Close() == ZipResult::Success);
    EXPECT_EQ(second.AddFile("a", "source"), ZipResult::AdditionsEnded);
    EXPECT_EQ(ZipArchiveWriter(files).AddFile("a", "source"), ZipResult::FaultyArguments);
}

TEST(ZipHandleTest, IsChecked) {
    const support::TestFolder folder;
    EXPECT_EQ(zip::AddFile(nullptr, "a", "b"), ZipResult::FaultyArguments);
    EXPECT_EQ(zip::GetLastResult(), ZipResult::FaultyArguments);
    EXPECT_EQ(zip::Close(nullptr), ZipResult::FaultyArguments);
    EXPECT_EQ(zip::Create(folder / "no/such.zip"), nullptr);
    EXPECT_EQ(zip::GetLastResult(), ZipResult::FileNotOpened);
    auto handle = zip::Create(folder / "out.zip");
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(zip::AddFile(handle.get(), "a", folder.GetPath()), ZipResult::FileNotOpened);
    EXPECT_EQ(zip::Close(std::move(handle)), ZipResult::Success);
    EXPECT_EQ(support::ContentOf(folder / "out.zip").size(), 22U);
    auto reader = std::make_unique<zip::ZipHandle>();
    reader->kind = zip::HandleKind::Reader;
    EXPECT_EQ(zip::AddFile(reader.get(), "a", "b"), ZipResult::MixedCreationAndOpening);
    EXPECT_EQ(zip::Close(std::move(reader)), ZipResult::MixedCreationAndOpening);
}

// Sources that deliver as much as their facts said, less, more, nothing, and without end.
TEST_F(ZipArchiveWriterTest, NoticesASourceOfAnotherSize) {
    const struct {
        std::uint64_t announced;
        std::string delivered;
    } cases[] = {{16384, std::string(16384, 's')},
                 {16384, std::string(16383, 's')},
                 {16384, std::string(16385, 's')},
                 {16384, ""},
                 {0, "s"},
                 {40, "for ever"}};
    for (const char* entryName : {"a.gz", "a.xml"}) {
        for (const auto& [announced, delivered] : cases) {
            support::FakeFile& source = AddSource(delivered);
            source.facts.sizeBytes = announced;
            source.content = nullptr;
            if (delivered == "for ever") source.content = [](std::size_t) { return std::string(1 << 18, 'x'); };
            const bool isEqual = announced == delivered.size();
            EXPECT_EQ(Pack({entryName}), isEqual ? ZipResult::Success : ZipResult::SizeChanged) << delivered.size();
            EXPECT_EQ(close, ZipResult::Success);
            EXPECT_EQ(Number(Bytes(), Bytes().size() - 22 + 10, 2), isEqual ? 1U : 0U) << delivered.size();
            EXPECT_EQ(files.openFiles, 0);
        }
    }
}

// Whatever fails, some answer says so, nothing stays open, and a directory names only finished entries.
TEST_F(ZipArchiveWriterTest, TellsOfEveryOperationThatFails) {
    const std::string content = support::RandomBytes(70000, 8);
    const std::vector<std::string> names = {"one.xml", "two.gz", "three.xml"};
    AddSource(content);
    ASSERT_EQ(Pack(names), ZipResult::Success);
    const std::vector<Entry> whole = Entries();
    ASSERT_EQ(whole.size(), 3U);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        EXPECT_EQ(whole[i].name, names[i]);
        EXPECT_TRUE(whole[i].content == content);
    }
    const int operations = files.operations;
    for (int round = 0; round < 3 * operations; ++round) {
        const int mode = round % 3, failAt = round / 3;
        // Creating, flushing and closing need no memory.
        if (mode == 2 && (failAt == 0 || failAt >= operations - 2)) continue;
        files = FakeFiles();
        AddSource(content);
        files.failAt = failAt;
        files.staysBroken = mode == 1;
        files.throwsOnFailure = mode == 2;
        const ZipResult result = Pack(names);
        SCOPED_TRACE(testing::Message() << "operation " << failAt << ", mode " << mode);
        EXPECT_EQ(files.openFiles, 0);
        EXPECT_TRUE(result != ZipResult::Success || close != ZipResult::Success);
        EXPECT_EQ(result == ZipResult::OutOfMemory || close == ZipResult::OutOfMemory, mode == 2);
        if (create != ZipResult::Success) continue;
        EXPECT_TRUE(close == ZipResult::WriteFailed || !files.staysBroken);
        const bool isWhole = close == ZipResult::Success;
        EXPECT_TRUE(!isWhole || Number(Bytes(), Bytes().size() - 22 + 10, 2) == added);
    }
}

TEST_F(ZipArchiveWriterTest, RefusesTheEntryThatItsCountCannotHold) {
    std::vector<std::string> names(65536);
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = std::to_string(i) + ".gz";
    AddSource("");
    EXPECT_EQ(Pack(names), ZipResult::WriteFailed);
    EXPECT_EQ(added, 65535U);
    EXPECT_EQ(close, ZipResult::Success);
    const std::vector<Entry> entries = Entries();
    ASSERT_EQ(entries.size(), 65535U);
    EXPECT_EQ(entries.back().name, "65534.gz");
}

TEST_F(ZipArchiveWriterTest, RefusesWhatItsFieldsCannotHold) {
    const struct {
        const char* name;
        std::string entryName;
        std::uint64_t size;
        ZipResult result;
    } cases[] = {{"longest name", std::string(65535, 'n'), 0, ZipResult::Success},
                 {"name one longer", std::string(65536, 'n'), 0, ZipResult::WriteFailed},
                 {"no name", "", 0, ZipResult::FaultyArguments},
                 {"a NUL in the name", std::string("a\0b", 3), 0, ZipResult::FaultyArguments},
                 {"deflated size past 32 bits", "a", 0x100000000, ZipResult::WriteFailed},
                 {"stored size past 32 bits", "a.gz", 0x100000000, ZipResult::WriteFailed},
                 {"stored size that leaves no room for its header", "a.gz", 0xFFFFFFFF, ZipResult::WriteFailed}};
    for (const auto& row : cases) {
        AddSource("").facts.sizeBytes = row.size;
        EXPECT_EQ(Pack({row.entryName}), row.result) << row.name;
        EXPECT_EQ(close, ZipResult::Success) << row.name;
        EXPECT_EQ(Entries().size(), row.result == ZipResult::Success ? 1U : 0U) << row.name;
        EXPECT_EQ(Bytes().size() == 22, row.result != ZipResult::Success) << row.name;
    }
}

// One stored entry fills the archive up to the last offset but for the room that the directory of 46 + 4 + 9 bytes and
// the end of 22 need, once exactly and once one byte short.
TEST_F(ZipArchiveWriterTest, WritesNoDirectoryPastTheLastOffset) {
    files.discardsOutput = true;
    for (const std::uint32_t room : {81U, 80U}) {
        support::FakeFile& source = AddSource("");
        source.facts.sizeBytes = 0xFFFFFFFFU - (30 + 4 + 17) - room;
        const std::uint64_t whole = source.facts.sizeBytes / 16384 + 1; // the look at the beginning is read again
        const std::string part(16384, '\0'), rest = part.substr(0, source.facts.sizeBytes % 16384);
        source.content = [&](std::size_t read) { return read < whole ? part : rest; };
        ZipArchiveWriter writer(files);
        ASSERT_EQ(writer.Create(Target), ZipResult::Success);
        ASSERT_EQ(writer.AddFile("a.gz", "source"), ZipResult::Success);
        const int operations = files.operations;
        EXPECT_EQ(writer.Close(), room == 81 ? ZipResult::Success : ZipResult::WriteFailed);
        // seek, write, flush, close; no write where there is no room
        EXPECT_EQ(files.operations - operations, room == 81 ? 4 : 3);
    }
}

TEST(ZipRecordTest, ChoosesTheMethodByTheExactExtension) {
    for (const char* stored : {"a.zip", "a.gz", "a.Z", "a.zoo", "a.arc", "a.lzh", "a.arj", "a.tgz", "a.tar.gz", ".zip"})
        EXPECT_EQ(zip::MethodForName(stored), 0) << stored;
    for (const char* deflated : {"docProps/app.xml", "a.z", "a.ZIP", "README", "a.zip.xml", "folder.zip/file", "zip",
                                 "a.zip ", "a.", "b.gzip"})
        EXPECT_EQ(zip::MethodForName(deflated), 8) << deflated;
}

TEST(ZipRecordTest, PacksTimes) {
    const struct {
        const char* utc;
        std::uint64_t fileTime;
        std::uint32_t dos, unixSeconds;
    } cases[] = {
        {"1980-01-01 00:00:00", 119600064000000000, 0x00210000, 315532800},
        {"1999-12-31 23:59:58", 125911583980000000, 0x279FBF74, 946684798}, // 58 * 2 = 116, and 31: 20
        {"2000-02-29 23:59:59", 125963423990000000, 0x285DBF76, 951868799},
        {"2026-07-15 13:45:31", 134285967310000000, 0x5CEF6DBE, 1784123131}, // (13 << 11) + (45 << 5) + 30
        {"2100-03-01 00:00:15", 157520160150000000, 0xF061001E, 4107542415}, // no leap year
        {"2107-12-31 12:30:16", 159992514160000000, 0xFF9F63C0, 59810520},   // 32 and 31: 0; 4354777816 and 32 bits
    };
    for (const auto& row : cases) {
        for (const std::uint64_t ticks : {0, 9999999}) {
            EXPECT_EQ(zip::DosDateTime(row.fileTime + ticks), row.dos) << row.utc;
            EXPECT_EQ(zip::UnixTime(row.fileTime + ticks), row.unixSeconds) << row.utc;
        }
    }
    EXPECT_EQ(zip::UnixTime(116444736000000000), 0U);
}

// Codes are one to fifteen in one of the four bytes.
TEST(ZipResultTest, HasTheApprovedTexts) {
    std::ostringstream text;
    for (std::uint32_t i = 0; i < 64; ++i) {
        const std::uint32_t code = i % 16 << i / 16 * 8;
        text << std::hex << code << " " << zip::ZipResultText(static_cast<ZipResult>(code)) << "\n";
    }
    support::ExpectApproved("zip/approved/result-texts.txt", text.str());
}

} // namespace
