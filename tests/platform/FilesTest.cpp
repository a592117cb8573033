// Files, folders and their facts on the operating system's own file system.
#include "support/Environment.h"
#include "support/FakeFiles.h"
#include "support/TestFolder.h"

#include "platform/System.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#ifndef _WIN32
#include "support/ChildProcess.h"
#endif

namespace {

namespace fs = std::filesystem;
using platform::Creation;
using platform::FileFacts;
using platform::GetFactsOf;
using platform::GetOperatingSystemFiles;
using support::ContentOf;
using support::TestFolder;

constexpr std::uint64_t TicksPerSecond = 10000000;

std::uint64_t Now() {
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return 116444736000000000 + std::chrono::duration_cast<std::chrono::microseconds>(since1970).count() * 10;
}

class FilesTest : public testing::Test {
protected:
    platform::FileLayer& files = GetOperatingSystemFiles();
    const TestFolder folder;
};

TEST_F(FilesTest, WritesSeeksAndReadsBack) {
    const std::string path = folder.Write("file", "something that is longer than what follows");
    auto output = files.CreateOrTruncate(path);
    ASSERT_NE(output, nullptr);
    EXPECT_TRUE(output->CanSeek() && output->Write("0123456789", 10) && output->Seek(4) && output->Write("xy", 2));
    EXPECT_TRUE(output->Seek(12) && output->Write("!", 1) && output->Flush() && output->Close());
    EXPECT_FALSE(output->Close());
    EXPECT_EQ(ContentOf(path), std::string("0123xy6789\0\0!", 13));

    auto input = files.OpenForReading(path);
    ASSERT_NE(input, nullptr);
    char bytes[20];
    EXPECT_EQ(input->Read(bytes, 4), std::size_t{4});
    EXPECT_TRUE(input->Seek(9));
    EXPECT_EQ(input->Read(bytes, sizeof bytes), std::size_t{4});
    EXPECT_EQ(std::string(bytes, 4), std::string("9\0\0!", 4));
    EXPECT_EQ(input->Read(bytes, sizeof bytes), std::size_t{0});
}

TEST_F(FilesTest, TellsAFilesFacts) {
    const std::string path = folder.Write("file", "12345");
    fs::last_write_time(path, fs::last_write_time(path) - std::chrono::hours(30));
    const double now = static_cast<double>(Now()), tolerance = 2.0 * TicksPerSecond; // file systems round down
    for (const std::optional<FileFacts>& facts : {files.OpenForReading(path)->GetFacts(), GetFactsOf(path)}) {
        ASSERT_TRUE(facts.has_value());
        EXPECT_EQ(facts->sizeBytes, 5U);
        EXPECT_EQ(facts->attributes & ~platform::Archive, 0U);
        EXPECT_NEAR(static_cast<double>(facts->lastWriteTime), now - 30.0 * 3600 * TicksPerSecond, tolerance);
        EXPECT_NEAR(static_cast<double>(facts->lastAccessTime), now, tolerance);
        EXPECT_LE(static_cast<double>(facts->creationTime), now + tolerance);
    }
    std::vector<fs::perms> writing = {fs::perms::none, fs::perms::owner_write};
#ifndef _WIN32
    writing.insert(writing.end(), {fs::perms::group_write, fs::perms::others_write});
#endif
    for (const fs::perms some : writing) {
        fs::permissions(path, fs::perms::owner_read | some);
        EXPECT_EQ(GetFactsOf(path)->attributes & platform::ReadOnly, some == fs::perms::none ? platform::ReadOnly : 0U);
    }
    EXPECT_EQ(GetFactsOf(folder.GetPath())->attributes & (platform::ReadOnly | platform::Directory),
              platform::Directory);
    EXPECT_FALSE(GetFactsOf(folder / "missing").has_value());
}

TEST_F(FilesTest, CreatesRemovesAndReplaces) {
    EXPECT_EQ(files.CreateFolder(folder / "a"), Creation::Created);
    EXPECT_EQ(files.CreateFolder(folder / "a"), Creation::AlreadyThere);
    EXPECT_EQ(files.CreateFolder(folder / "b/c"), Creation::Failed);
    const std::string inner = folder.Write("a/file", "new");
    const std::string outer = folder.Write("file", "old");
    EXPECT_EQ(files.CreateEmpty(folder / "empty", outer), Creation::Created);
    EXPECT_EQ(ContentOf(folder / "empty"), "");
    EXPECT_EQ(files.CreateEmpty(outer, ""), Creation::AlreadyThere);
    EXPECT_EQ(ContentOf(outer), "old");
    EXPECT_EQ(files.CreateEmpty(folder / "no/such", outer), Creation::Failed);
    EXPECT_EQ(files.OpenForReading(folder / "a"), nullptr);
    EXPECT_EQ(files.OpenForReading(folder / "missing"), nullptr);
    EXPECT_EQ(files.CreateOrTruncate(folder / "a"), nullptr);
    EXPECT_FALSE(files.RemoveFolder(folder / "a"));
    EXPECT_FALSE(files.RemoveFile(folder / "a"));
    EXPECT_TRUE(files.Replace(inner, outer));
    EXPECT_EQ(ContentOf(outer), "new");
    EXPECT_EQ(ContentOf(inner), "(none)");
    EXPECT_FALSE(files.Replace(inner, outer));
    EXPECT_FALSE(files.Replace(outer, folder / "b/file"));
    EXPECT_EQ(ContentOf(outer), "new");
    for (const bool isThere : {true, false}) {
        EXPECT_EQ(files.RemoveFolder(folder / "a"), isThere);
        EXPECT_EQ(files.RemoveFile(outer), isThere);
    }
}

TEST_F(FilesTest, RefusesPathsWithANul) {
    const std::string cut = folder / "x";
    const std::string path = cut + std::string("\0y", 2), folderPath = folder.GetPath() + std::string("\0y", 2);
    EXPECT_TRUE(!files.CreateOrTruncate(path) && files.CreateEmpty(path, "") == Creation::Failed);
    EXPECT_EQ(files.CreateFolder(path), Creation::Failed);
    EXPECT_FALSE(GetFactsOf(cut).has_value());
    EXPECT_FALSE(files.RemoveFolder(folderPath) || GetFactsOf(folderPath).has_value());
    folder.Write("x", "content");
    EXPECT_FALSE(files.OpenForReading(path) || files.RemoveFile(path) || files.Replace(path, folder / "z"));
    EXPECT_FALSE(files.Replace(cut, folder / std::string("z\0y", 3)));
    EXPECT_EQ(ContentOf(cut), "content");
}

#ifdef _WIN32

// What is written shares with nobody, what is read only with readers.
TEST_F(FilesTest, LeavesFilesThatAreOpenElsewhere) {
    const std::string path = folder.Write("file", "content");
    auto reader = files.OpenForReading(path);
    EXPECT_TRUE(reader && files.OpenForReading(path) && !files.CreateOrTruncate(path));
    reader.reset();
    EXPECT_EQ(ContentOf(path), "content");
    const auto writer = files.CreateOrTruncate(path);
    EXPECT_TRUE(writer && !files.CreateOrTruncate(path) && !files.OpenForReading(path));
}

#else

TEST_F(FilesTest, TellsOfAFullDiskAndOfMissingRights) {
    const std::string path = folder.Write("file", "content");
    const auto written = [&](std::size_t sizeBytes) {
        auto output = files.CreateOrTruncate(path);
        return output && output->Write(std::string(sizeBytes, 'x').data(), sizeBytes) ? 1 : 0;
    };
    EXPECT_EQ(support::InChild([&] { return support::LimitFileSizes(1000) ? written(1000) + 2 * written(1001) : 9; }),
              1);
    EXPECT_EQ(support::InChild([&] { return support::GiveUpRights() ? written(1) : 9; }), 0);
    EXPECT_EQ(ContentOf(path), std::string(1000, 'x'));
    const auto device = files.CreateOrTruncate("/dev/full");
    ASSERT_NE(device, nullptr);
    EXPECT_FALSE(device->Write("x", 1));
}

#endif

// Somebody else has taken the first names.
class CrowdedFiles final : public support::FakeFiles {
public:
    std::vector<std::string> tried;
    Creation CreateFolder(const std::string& path) override {
        tried.push_back(path);
        return tried.size() < 4 ? Creation::AlreadyThere : Creation::Created;
    }
};

TEST_F(FilesTest, NamesTemporaryFoldersByThreadAndClock) {
    const support::EnvironmentScope variable("TEMP", "/some/place");
    EXPECT_EQ(platform::GetTemporaryRoot(), "/some/place/");
    variable.Set("/some/place/");
    EXPECT_EQ(platform::GetTemporaryRoot(), "/some/place/");
    CrowdedFiles crowded;
    const std::string start = "/some/place/xlsx_" + std::to_string(platform::GetThreadId()) + "_";
    const std::optional<std::string> made = platform::CreatePrivateFolder(crowded, "xlsx_");
    ASSERT_TRUE(made == crowded.tried.at(3) && crowded.tried.size() == 4);
    const std::uint64_t ticks = std::stoull(crowded.tried[0].substr(start.size()));
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(crowded.tried[i], start + std::to_string(ticks + i));
    variable.Set("/no such folder");
    EXPECT_FALSE(platform::CreatePrivateFolder(files, "x_").has_value());
    variable.Set("");
    const std::string fallback = platform::GetTemporaryRoot();
    EXPECT_EQ(fallback.back(), '/');
    EXPECT_TRUE(GetFactsOf(fallback.substr(0, fallback.size() - 1)).has_value()) << fallback;
}

TEST(SystemTest, KnowsEnvironmentTimeAndThread) {
    const support::EnvironmentScope variable("KELVARNIX_TEST_VALUE", std::string(1000, 'v'));
    EXPECT_EQ(platform::ReadEnvironmentVariable("KELVARNIX_TEST_VALUE"), std::string(1000, 'v'));
    EXPECT_FALSE(platform::ReadEnvironmentVariable("KELVARNIX_TEST_NO_SUCH").has_value());
    const std::uint64_t here = platform::GetThreadId();
    std::uint64_t there = here;
    std::thread([&there] { there = platform::GetThreadId(); }).join();
    EXPECT_NE(here, there);
    const std::uint64_t ticks = platform::GetProcessClockTicks();
    EXPECT_GE(platform::GetProcessClockTicks(), ticks);
#ifndef _WIN32
    const support::EnvironmentScope zone("TZ", "XYZ-5:30"); // so that local time is not the time of Greenwich
    tzset();
#endif
    std::tm local = platform::GetLocalTime();
    EXPECT_NEAR(std::difftime(std::mktime(&local), std::time(nullptr)), 0, 2);
}

#ifdef _WIN32
const std::string WritingCommand = "cmd.exe /c echo started> ";
#else
const std::string WritingCommand = "sh -c \"printf \"\"started\"\" > \"\"$0\"\"\" ";
#endif

TEST_F(FilesTest, StartsACommandLine) {
    std::string path = folder / "blank name";
#ifdef _WIN32
    std::replace(path.begin(), path.end(), '/', '\\');
#endif
    ASSERT_TRUE(platform::StartHidden(WritingCommand + "\"" + path + "\""));
    for (int wait = 0; wait < 200 && ContentOf(path).substr(0, 7) != "started"; ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(ContentOf(path).substr(0, 7), "started");
    EXPECT_FALSE(platform::StartHidden("kelvarnix-no-such-program and words"));
    EXPECT_FALSE(platform::StartHidden(""));
}

} // namespace
