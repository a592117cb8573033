// The writer on the operating system's own files: faults that a machine really has.
#include "support/TestFolder.h"
#include "zip/ZipArchiveWriter.h"
#include "zip/ZipHandle.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <csignal>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

using support::ContentOf;
using support::TestFolder;
using zip::ZipResult;

const std::string endRecordStart = "PK\x05\x06";

TEST(ZipRealFilesTest, ReplacesALongerFileAtTheTarget) {
    const TestFolder folder;
    const std::string target = folder.Write("out.zip", std::string(5000, 'o'));
    auto handle = zip::Create(target);
    ASSERT_NE(handle, nullptr);
    ASSERT_EQ(zip::AddFile(handle.get(), "a", folder.Write("source", "content")), ZipResult::Success);
    ASSERT_EQ(zip::Close(std::move(handle)), ZipResult::Success);
    const std::string bytes = ContentOf(target);
    EXPECT_LT(bytes.size(), 300U);
    EXPECT_EQ(bytes.substr(bytes.size() - 22, 4), endRecordStart);
}

TEST(ZipRealFilesTest, RefusesSourcesThatAreMissingOrFolders) {
    const TestFolder folder;
    for (const std::string& source : {folder / "missing", folder.Path(), folder / "no/such/folder"}) {
        zip::ZipArchiveWriter writer;
        ASSERT_EQ(writer.Create(folder / "out.zip"), ZipResult::Success);
        EXPECT_EQ(writer.AddFile("a", source), ZipResult::FileNotOpened) << source;
        EXPECT_EQ(writer.Close(), ZipResult::Success);
        EXPECT_EQ(ContentOf(folder / "out.zip").size(), 22U);
    }
}

TEST(ZipRealFilesTest, TakesPathsWithLettersOutsideAscii) {
    const TestFolder folder;
    // Letters that a western code page and UTF-8 both have.
    const std::optional<std::string> name = platform::NarrowFromWide(L"gr\u00FC\u00DFe \u00E9t\u00E9");
    ASSERT_TRUE(name.has_value());
    ASSERT_EQ(platform::OperatingSystemFiles().CreateFolder(folder / *name), platform::Creation::Created);
    const std::string source = folder.Write(*name + "/" + *name + ".txt", "content");
    const std::string target = folder / (*name + "/" + *name + ".xlsx");
    zip::ZipArchiveWriter writer;
    ASSERT_EQ(writer.Create(target), ZipResult::Success);
    EXPECT_EQ(writer.AddFile("a.txt", source), ZipResult::Success);
    EXPECT_EQ(writer.Close(), ZipResult::Success);
    const std::optional<platform::FileFacts> facts = platform::FactsOf(target);
    ASSERT_TRUE(facts.has_value());
    EXPECT_GT(facts->sizeBytes, 100U);
}

#ifdef _WIN32

// Share mode none: a file that somebody has open is neither opened nor emptied.
TEST(ZipRealFilesTest, LeavesATargetThatIsOpenElsewhere) {
    const TestFolder folder;
    const std::string target = folder.Write("out.zip", "older report");
    {
        const auto reader = platform::OperatingSystemFiles().OpenForReading(target);
        ASSERT_NE(reader, nullptr);
        EXPECT_EQ(zip::Create(target), nullptr);
        EXPECT_EQ(zip::LastResult(), ZipResult::FileNotOpened);
    }
    EXPECT_EQ(ContentOf(target), "older report");
    zip::ZipArchiveWriter first;
    ASSERT_EQ(first.Create(target), ZipResult::Success);
    zip::ZipArchiveWriter second;
    EXPECT_EQ(second.Create(target), ZipResult::FileNotOpened);
    EXPECT_EQ(platform::OperatingSystemFiles().OpenForReading(target), nullptr);
    EXPECT_EQ(first.Close(), ZipResult::Success);
    EXPECT_EQ(ContentOf(target).size(), 22U);
}

TEST(ZipRealFilesTest, SharesASourceForReadingOnly) {
    const TestFolder folder;
    const std::string source = folder.Write("source", "content");
    const auto writing = platform::OperatingSystemFiles().CreateOrTruncate(source);
    zip::ZipArchiveWriter writer;
    ASSERT_EQ(writer.Create(folder / "out.zip"), ZipResult::Success);
    EXPECT_EQ(writer.AddFile("a", source), ZipResult::FileNotOpened);
    EXPECT_EQ(writer.Close(), ZipResult::Success);
}

#else

std::string Noise(std::size_t size) {
    std::string bytes(size, '\0');
    std::uint32_t state = 1;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

/// Runs a check in a process of its own, which may give up rights, and answers what the check answers.
int InChild(const std::function<int()>& check) {
    const pid_t child = fork();
    if (child == 0) _exit(check());
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

// The file may grow to this size only: within the first part, the second, the directory, the end record, and not at
// all.
TEST(ZipRealFilesTest, TellsOfAFullDisk) {
    const TestFolder folder;
    const std::string source = folder.Write("source", Noise(100000));
    const std::string target = folder / "out.zip";
    const auto write = [&](rlim_t most) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{most, most};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 100;
        zip::ZipArchiveWriter writer;
        if (writer.Create(target) != ZipResult::Success) return 101;
        ZipResult add = writer.AddFile("a.gz", source);
        if (add == ZipResult::Success) add = writer.AddFile("b.gz", source);
        const ZipResult close = writer.Close();
        for (const ZipResult result : {add, close}) {
            if (result != ZipResult::Success && result != ZipResult::WriteFailed) return 102;
        }
        return (add == ZipResult::Success ? 0 : 1) + (close == ZipResult::Success ? 0 : 2);
    };
    const rlim_t entry = 30 + 4 + 17 + 100000;
    const rlim_t whole = 2 * entry + 2 * (46 + 4 + 9) + 22;
    struct Case {
        rlim_t most;
        int answer; // 1 for the entries, 2 for the end
    };
    const Case cases[] = {{0, 3},         {10, 3},         {50000, 1},     {entry, 3}, {2 * entry - 1, 1},
                          {2 * entry, 2}, {whole - 22, 2}, {whole - 1, 2}, {whole, 0}};
    for (const Case& row : cases) {
        const int answer = InChild([&] { return write(row.most); });
        // What a failed entry leaves may give way to the directory of the finished ones.
        if (row.answer == 1)
            EXPECT_TRUE(answer == 1 || answer == 3) << row.most;
        else
            EXPECT_EQ(answer, row.answer) << row.most;
        if (row.answer == 2) {
            const std::string bytes = ContentOf(target);
            ASSERT_LT(bytes.size(), whole);
            EXPECT_NE(bytes.substr(bytes.size() - 22, 4), endRecordStart) << row.most;
        }
    }
    zip::ZipArchiveWriter writer;
    ASSERT_EQ(writer.Create("/dev/full"), ZipResult::Success);
    EXPECT_EQ(writer.AddFile("a", source), ZipResult::WriteFailed);
    EXPECT_EQ(writer.Close(), ZipResult::WriteFailed);
}

TEST(ZipRealFilesTest, LeavesATargetThatTheUserMayNotWrite) {
    const TestFolder folder;
    const std::string target = folder.Write("out.zip", "older report");
    ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
    ASSERT_EQ(chmod(target.c_str(), 0444), 0);
    const int answer = InChild([&] {
        const bool isRoot = geteuid() == 0;
        if (isRoot && (setgid(65534) != 0 || setuid(65534) != 0)) return 100;
        const bool isRefused = !zip::Create(target) && zip::LastResult() == ZipResult::FileNotOpened;
        const bool isNewRefused = !zip::Create(folder / "new.zip");
        return (isRefused ? 0 : 1) + (isNewRefused ? 0 : 2);
    });
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(ContentOf(target), "older report");
    EXPECT_EQ(chmod(folder.Path().c_str(), 0755), 0);
}

#endif

} // namespace
