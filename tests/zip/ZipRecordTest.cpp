// Values that stand in the records, each worked out by hand from the layout.
#include "zip/ZipEntryRecord.h"
#include "zip/ZipResult.h"

#include <gtest/gtest.h>

namespace {

TEST(ZipRecordTest, ChoosesTheMethodByTheExactExtension) {
    struct Case {
        const char* name;
        std::uint16_t method;
    };
    const Case cases[] = {{"docProps/app.xml", 8},
                          {"a.zip", 0},
                          {"a.gz", 0},
                          {"a.Z", 0},
                          {"a.z", 8},
                          {"a.zoo", 0},
                          {"a.arc", 0},
                          {"a.lzh", 0},
                          {"a.arj", 0},
                          {"a.tgz", 0},
                          {"a.ZIP", 8},
                          {"README", 8},
                          {"a.zip.xml", 8},
                          {"a.tar.gz", 0},
                          {".zip", 0},
                          {"folder.zip/file", 8},
                          {"zip", 8},
                          {"a.zip ", 8},
                          {"a.", 8},
                          {"b.gzip", 8}};
    for (const Case& row : cases) {
        EXPECT_EQ(zip::MethodForName(row.name), row.method) << row.name;
    }
}

TEST(ZipRecordTest, PacksDosTimes) {
    struct Case {
        const char* utc;
        std::uint64_t fileTime;
        std::uint32_t dos;
    };
    const Case cases[] = {
        {"1980-01-01 00:00:00", 119600064000000000, 0x00210000},
        {"1999-12-31 23:59:58", 125911583980000000, 0x279FBF74}, // 58 * 2 = 116, and 31: 20
        {"2000-02-29 23:59:59", 125963423990000000, 0x285DBF76},
        {"2026-07-15 13:45:31", 134285967310000000, 0x5CEF6DBE}, // (13 << 11) + (45 << 5) + 30
        {"2100-03-01 00:00:15", 157520160150000000, 0xF061001E}, // no leap year
        {"2107-12-31 12:30:16", 159992514160000000, 0xFF9F63C0}, // 32 and 31: 0
    };
    for (const Case& row : cases) {
        EXPECT_EQ(zip::DosDateTime(row.fileTime), row.dos) << row.utc;
        EXPECT_EQ(zip::DosDateTime(row.fileTime + 9999999), row.dos) << row.utc;
    }
}

TEST(ZipRecordTest, CountsUnixSeconds) {
    EXPECT_EQ(zip::UnixTime(116444736000000000), 0U);
    EXPECT_EQ(zip::UnixTime(116444736000000000 + 9999999), 0U);
    EXPECT_EQ(zip::UnixTime(134285967310000000), 1784123131U);
    EXPECT_EQ(zip::UnixTime(116444736000000000 + (0x100000000 + 5) * 10000000), 5U);
}

TEST(ZipRecordTest, JoinsAttributesAndMode) {
    using namespace platform;
    struct Case {
        std::uint32_t attributes;
        zip::Executable executable;
        std::uint32_t external;
    };
    const Case cases[] = {{0, zip::Executable::No, 0x81800000},
                          {Archive, zip::Executable::No, 0x81800020},
                          {Archive | ReadOnly, zip::Executable::No, 0x81000021},
                          {Hidden | System, zip::Executable::No, 0x81800006},
                          {Directory, zip::Executable::No, 0x41800010},
                          {Archive, zip::Executable::Yes, 0x81C00020},
                          {ReadOnly, zip::Executable::Yes, 0x81400001},
                          {0x2000 | Archive, zip::Executable::No, 0x81800020}};
    for (const Case& row : cases) {
        EXPECT_EQ(zip::ExternalAttributes(row.attributes, row.executable), row.external) << std::hex << row.external;
    }
}

TEST(ZipResultTest, HasItsExactTexts) {
    struct Case {
        std::uint32_t code;
        const char* text;
    };
    const Case cases[] = {{0x0, "Success"},
                          {0x100, "Culdn't duplicate handle"},
                          {0x200, "Couldn't create/open file"},
                          {0x300, "Failed to allocate memory"},
                          {0x400, "Error writing to file"},
                          {0x500, "File not found in the zipfile"},
                          {0x600, "Still more data to unzip"},
                          {0x700, "Zipfile is corrupt or not a zipfile"},
                          {0x800, "Error reading file"},
                          {0x10000, "Caller: faulty arguments"},
                          {0x20000, "Caller: can only get memory of a memory zipfile"},
                          {0x30000, "Caller: not enough space allocated for memory zipfile"},
                          {0x40000, "Caller: there was a previous error"},
                          {0x50000, "Caller: additions to the zip have already been ended"},
                          {0x60000, "Zip-bug: the anticipated size turned out wrong"},
                          {0x70000, "Caller: the file had already been partially unzipped"},
                          {0x80000, "Caller: mixing creation and opening of zip"},
                          {0x1000000, "Zip-bug: internal initialisation not completed"},
                          {0x2000000, "Zip-bug: trying to seek the unseekable"},
                          {0x4000000, "Zip-bug: tried to change mind, but not allowed"},
                          {0x5000000, "Zip-bug: an internal error during flation"},
                          {0x1, "unknown zip result code"},
                          {0x900, "unknown zip result code"},
                          {0x3000000, "unknown zip result code"},
                          {0xFFFFFFFF, "unknown zip result code"}};
    for (const Case& row : cases) {
        EXPECT_STREQ(zip::ZipResultText(static_cast<zip::ZipResult>(row.code)), row.text);
    }
}

} // namespace
