// Files, folders and their facts on the operating system's own file system.
#include "support/FakeFiles.h"
#include "support/TestFolder.h"

#include "platform/System.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <thread>
#include <vector>

namespace {

using platform::FactsOf;
using platform::FileFacts;
using platform::OperatingSystemFiles;
using support::ContentOf;
using support::TestFolder;

constexpr std::uint64_t ticksPerSecond = 10000000;

std::uint64_t Now() {
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return 116444736000000000 + std::chrono::duration_cast<std::chrono::microseconds>(since1970).count() * 10;
}

TEST(FilesTest, WritesSeeksAndReadsBack) {
    const TestFolder folder;
    const std::string path = folder.Write("file", "something that is longer than what follows");
    auto output = OperatingSystemFiles().CreateOrTruncate(path);
    ASSERT_NE(output, nullptr);
    EXPECT_TRUE(output->CanSeek());
    EXPECT_TRUE(output->Write("0123456789", 10));
    EXPECT_TRUE(output->Seek(4));
    EXPECT_TRUE(output->Write("xy", 2));
    EXPECT_TRUE(output->Seek(12));
    EXPECT_TRUE(output->Write("!", 1));
    EXPECT_TRUE(output->Flush());
    EXPECT_TRUE(output->Close());
    EXPECT_FALSE(output->Close());
    output.reset();
    EXPECT_EQ(ContentOf(path), std::string("0123xy6789\0\0!", 13));

    auto input = OperatingSystemFiles().OpenForReading(path);
    ASSERT_NE(input, nullptr);
    char bytes[20];
    EXPECT_EQ(input->Read(bytes, 4), std::size_t{4});
    EXPECT_TRUE(input->Seek(9));
    EXPECT_EQ(input->Read(bytes, sizeof bytes), std::size_t{4});
    EXPECT_EQ(std::string(bytes, 4), std::string("9\0\0!", 4));
    EXPECT_EQ(input->Read(bytes, sizeof bytes), std::size_t{0});
}

TEST(FilesTest, TellsAFilesFacts) {
    const TestFolder folder;
    const std::uint64_t before = Now() - 2 * ticksPerSecond; // file systems round down
    const std::string path = folder.Write("file", "12345");
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::hours(30));
    const std::uint64_t after = Now() + 2 * ticksPerSecond;
    const auto input = OperatingSystemFiles().OpenForReading(path);
    ASSERT_NE(input, nullptr);
    const std::optional<FileFacts> ofFile = input->Facts();
    const std::optional<FileFacts> ofPath = FactsOf(path);
    ASSERT_TRUE(ofFile && ofPath);
    for (const FileFacts& facts : {*ofFile, *ofPath}) {
        EXPECT_EQ(facts.sizeBytes, 5U);
        EXPECT_EQ(facts.attributes & ~platform::Archive, 0U);
        EXPECT_GE(facts.lastWriteTime, before - 30 * 3600 * ticksPerSecond);
        EXPECT_LE(facts.lastWriteTime, after - 30 * 3600 * ticksPerSecond);
        EXPECT_GE(facts.lastAccessTime, before);
        EXPECT_LE(facts.lastAccessTime, after);
        EXPECT_LE(facts.creationTime, after);
    }
    EXPECT_FALSE(FactsOf(folder / "missing").has_value());
}

TEST(FilesTest, TellsAttributes) {
    namespace fs = std::filesystem;
    const TestFolder folder;
    const std::string path = folder.Write("file", "");
    const fs::perms writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(path, writing, fs::perm_options::remove);
    EXPECT_EQ(FactsOf(path)->attributes & (platform::ReadOnly | platform::Directory), platform::ReadOnly);
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
    EXPECT_EQ(FactsOf(path)->attributes & (platform::ReadOnly | platform::Directory), 0U);
    EXPECT_EQ(FactsOf(folder.Path())->attributes & (platform::ReadOnly | platform::Directory), platform::Directory);
    EXPECT_EQ(OperatingSystemFiles().OpenForReading(folder.Path()), nullptr);
    EXPECT_EQ(OperatingSystemFiles().CreateOrTruncate(folder.Path()), nullptr);
}

TEST(FilesTest, CreatesRemovesAndReplaces) {
    platform::FileLayer& files = OperatingSystemFiles();
    const TestFolder folder;
    EXPECT_EQ(files.CreateFolder(folder / "a"), platform::Creation::Created);
    EXPECT_EQ(files.CreateFolder(folder / "a"), platform::Creation::AlreadyThere);
    EXPECT_EQ(files.CreateFolder(folder / "b/c"), platform::Creation::Failed);
    const std::string inner = folder.Write("a/file", "new");
    const std::string outer = folder.Write("file", "old");
    EXPECT_FALSE(files.RemoveFolder(folder / "a"));
    EXPECT_FALSE(files.RemoveFile(folder / "a"));
    EXPECT_TRUE(files.Replace(inner, outer));
    EXPECT_EQ(ContentOf(outer), "new");
    EXPECT_EQ(ContentOf(inner), "(none)");
    EXPECT_FALSE(files.Replace(inner, outer));
    EXPECT_FALSE(files.Replace(outer, folder / "b/file"));
    EXPECT_EQ(ContentOf(outer), "new");
    EXPECT_TRUE(files.RemoveFolder(folder / "a"));
    EXPECT_FALSE(files.RemoveFolder(folder / "a"));
    EXPECT_TRUE(files.RemoveFile(outer));
    EXPECT_FALSE(files.RemoveFile(outer));
}

TEST(FilesTest, CreatesEmptyFilesWhereNothingIs) {
    platform::FileLayer& files = OperatingSystemFiles();
    const TestFolder folder;
    const std::string there = folder.Write("there", "content");
    EXPECT_EQ(files.CreateEmpty(folder / "new", there), platform::Creation::Created);
    EXPECT_EQ(ContentOf(folder / "new"), "");
    EXPECT_EQ(files.CreateEmpty(there, ""), platform::Creation::AlreadyThere);
    EXPECT_EQ(ContentOf(there), "content");
    EXPECT_EQ(files.CreateEmpty(folder / "no/such", there), platform::Creation::Failed);
}

TEST(FilesTest, RefusesPathsWithANul) {
    platform::FileLayer& files = OperatingSystemFiles();
    const TestFolder folder;
    const std::string cut = folder / "x";
    const std::string path = cut + std::string("\0y", 2);
    EXPECT_EQ(files.CreateOrTruncate(path), nullptr);
    EXPECT_EQ(files.CreateEmpty(path, ""), platform::Creation::Failed);
    EXPECT_EQ(files.CreateFolder(path), platform::Creation::Failed);
    EXPECT_FALSE(FactsOf(cut).has_value());
    folder.Write("x", "content");
    EXPECT_EQ(files.OpenForReading(path), nullptr);
    EXPECT_FALSE(FactsOf(path).has_value());
    EXPECT_FALSE(files.RemoveFile(path));
    EXPECT_FALSE(files.Replace(path, folder / "z"));
    EXPECT_FALSE(files.Replace(cut, folder / std::string("z\0y", 3)));
    EXPECT_EQ(ContentOf(cut), "content");
    ASSERT_EQ(files.CreateFolder(folder / "folder"), platform::Creation::Created);
    EXPECT_FALSE(files.RemoveFolder(folder / std::string("folder\0y", 8)));
}

class Environment {
public:
    void Set(const char* name, const std::string& value) {
#ifdef _WIN32
        _putenv_s(name, value.c_str());
#else
        setenv(name, value.c_str(), 1);
#endif
    }
};

TEST(TemporaryFolderTest, FollowsTheVariable) {
    const std::string kept = platform::EnvironmentVariable("TEMP").value_or("");
    Environment environment;
    environment.Set("TEMP", "/some/place");
    EXPECT_EQ(platform::TemporaryRoot(), "/some/place/");
    environment.Set("TEMP", "/some/place/");
    EXPECT_EQ(platform::TemporaryRoot(), "/some/place/");
    environment.Set("TEMP", "");
    const std::string fallback = platform::TemporaryRoot();
    EXPECT_EQ(fallback.back(), '/');
    EXPECT_TRUE(FactsOf(fallback.substr(0, fallback.size() - 1)).has_value()) << fallback;
    environment.Set("TEMP", "/no such folder");
    EXPECT_FALSE(platform::CreatePrivateFolder(OperatingSystemFiles(), "x_").has_value());
    environment.Set("TEMP", kept);
}

TEST(TemporaryFolderTest, NamesFoldersByThreadAndClockAndSharesNone) {
    platform::FileLayer& files = OperatingSystemFiles();
    const std::string start = platform::TemporaryRoot() + "xlsx_" + std::to_string(platform::ThreadId()) + "_";
    std::set<std::string> folders;
    for (int i = 0; i < 50; ++i) { // faster than the clock ticks
        const std::optional<std::string> folder = platform::CreatePrivateFolder(files, "xlsx_");
        ASSERT_TRUE(folder.has_value());
        EXPECT_EQ(folder->compare(0, start.size(), start), 0) << *folder;
        EXPECT_EQ(folder->find_first_not_of("0123456789", start.size()), std::string::npos) << *folder;
        folders.insert(*folder);
    }
    EXPECT_EQ(folders.size(), 50U);
    for (const std::string& folder : folders) {
        EXPECT_TRUE(files.RemoveFolder(folder));
    }
}

// Somebody else has taken the first names.
class CrowdedFiles final : public support::FakeFiles {
public:
    std::vector<std::uint64_t> ticksTried;
    platform::Creation CreateFolder(const std::string& path) override {
        ticksTried.push_back(std::stoull(path.substr(path.rfind('_') + 1)));
        return ticksTried.size() < 4 ? platform::Creation::AlreadyThere : platform::Creation::Created;
    }
};

TEST(TemporaryFolderTest, TakesTheNextNameWhenOneIsTaken) {
    CrowdedFiles files;
    ASSERT_TRUE(platform::CreatePrivateFolder(files, "xlsx_").has_value());
    ASSERT_EQ(files.ticksTried.size(), 4U);
    for (std::size_t i = 1; i < 4; ++i) {
        EXPECT_EQ(files.ticksTried[i], files.ticksTried[0] + i);
    }
}

TEST(SystemTest, ReadsTheEnvironment) {
    Environment environment;
    environment.Set("KELVARNIX_TEST_VALUE", std::string(1000, 'v'));
    EXPECT_EQ(platform::EnvironmentVariable("KELVARNIX_TEST_VALUE"), std::string(1000, 'v'));
    EXPECT_FALSE(platform::EnvironmentVariable("KELVARNIX_TEST_NO_SUCH").has_value());
}

TEST(SystemTest, KnowsTimeAndThread) {
    const std::uint64_t here = platform::ThreadId();
    std::uint64_t there = here;
    std::thread([&there] { there = platform::ThreadId(); }).join();
    EXPECT_NE(here, there);
    const std::uint64_t ticks = platform::ProcessClockTicks();
    EXPECT_GE(platform::ProcessClockTicks(), ticks);
    std::tm local = platform::LocalTime();
    EXPECT_NEAR(std::difftime(std::mktime(&local), std::time(nullptr)), 0, 2);
}

#ifdef _WIN32
const std::string writingCommand = "cmd.exe /c echo started> ";
#else
const std::string writingCommand = "sh -c \"echo started > $0\" ";
#endif

TEST(SystemTest, StartsACommandLine) {
    const TestFolder folder;
    std::string path = folder / "blank name";
#ifdef _WIN32
    std::replace(path.begin(), path.end(), '/', '\\');
#endif
    ASSERT_TRUE(platform::StartHidden(writingCommand + "\"" + path + "\""));
    for (int wait = 0; wait < 200 && ContentOf(path).substr(0, 7) != "started"; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    EXPECT_EQ(ContentOf(path).substr(0, 7), "started");
    EXPECT_FALSE(platform::StartHidden("kelvarnix-no-such-program and words"));
    EXPECT_FALSE(platform::StartHidden(""));
}

} // namespace
