// What goes wrong with project files: each fault gets a plain sentence, and what existed is as it was.
#include "StoreTestSupport.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#include <thread>

namespace {

using namespace workbench;
using namespace std::chrono_literals;

std::string OpenFailure(const std::filesystem::path& file) {
    OpenedProject opened = OpenProjectFile(file, KeepChanges::InMemory);
    EXPECT_EQ(opened.project, nullptr) << file;
    return opened.failure;
}

bool Says(const std::string& sentence, const std::string& part) {
    return sentence.find(part) != std::string::npos;
}

/// Runs the body in a child process and answers its exit status; the body answers 0 for success.
template <typename Body>
int InChild(Body body) {
    const pid_t child = fork();
    if (child == 0) _exit(body());
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(StoreFaults, FilesThatAreNoProject) {
    const test::Folder folder;
    EXPECT_TRUE(Says(OpenFailure(folder / "missing.kvp"), "no such file"));
    EXPECT_TRUE(Says(OpenFailure(folder.path), "no such file"));
    test::WriteAll(folder / "empty.kvp", "");
    EXPECT_TRUE(Says(OpenFailure(folder / "empty.kvp"), "no Kelvarnix project"));
    test::WriteAll(folder / "text.kvp", std::string(5000, 'x'));
    EXPECT_TRUE(Says(OpenFailure(folder / "text.kvp"), "no Kelvarnix project"));
    SQLite::Database(folder / "other.kvp", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec("CREATE TABLE t (x)");
    EXPECT_TRUE(Says(OpenFailure(folder / "other.kvp"), "no Kelvarnix project"));
    // Saving leaves files of others alone.
    for (const char* name : {"text.kvp", "other.kvp"}) {
        const std::string before = test::ReadAll(folder / name);
        EXPECT_TRUE(Says(SaveProject(*test::MakeProject(1), folder / name), "no Kelvarnix project")) << name;
        EXPECT_EQ(test::ReadAll(folder / name), before);
    }
    EXPECT_TRUE(Says(SaveProject(*test::MakeProject(1), folder.path), "is a folder"));
    EXPECT_NE(SaveProject(*test::MakeProject(1), folder / "no/such/folder/a.kvp"), "");
}

TEST(StoreFaults, ANewerFormatIsRefusedAndKept) {
    const test::Folder folder;
    const auto file = folder / "a.kvp";
    ASSERT_EQ(SaveProject(*test::MakeProject(3), file), "");
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec("PRAGMA user_version = 3");
    const std::string before = test::ReadAll(file);
    EXPECT_TRUE(Says(OpenFailure(file), "newer version"));
    EXPECT_TRUE(Says(SaveProject(*test::MakeProject(1), file), "newer version"));
    EXPECT_EQ(test::ReadAll(file), before);
}

TEST(StoreFaults, TruncatedAndDamagedFiles) {
    const test::Folder folder;
    const auto whole = folder / "whole.kvp", cut = folder / "cut.kvp";
    const auto project = test::MakeProject(300);
    ASSERT_EQ(SaveProject(*project, whole), "");
    const std::string content = test::ReadAll(whole);
    for (std::size_t length = 0; length < content.size(); length += 1777) {
        test::WriteAll(cut, content.substr(0, length));
        EXPECT_NE(OpenFailure(cut), "") << length;
    }
    // Flipped bytes: an error or a project, never a crash.
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        std::string damaged = content;
        for (int flips = 0; flips < 8; ++flips)
            damaged[random() % damaged.size()] ^= static_cast<char>(1 << random() % 8);
        test::WriteAll(cut, damaged);
        const OpenedProject opened = OpenProjectFile(cut, KeepChanges::InMemory);
        EXPECT_NE(opened.project == nullptr, opened.failure.empty());
    }
    // Rows that contradict each other count as damage, too.
    for (const char* spoil :
         {"UPDATE components SET building_material = 77", "UPDATE elements SET layer = 0",
          "UPDATE elements SET guid = x'00' WHERE position = 2", "DELETE FROM building_materials",
          "UPDATE layers SET idx = 5", "UPDATE material_values SET type = 99",
          "INSERT INTO components VALUES (999999, 1, 1, 1.0, 1.0)",
          "UPDATE elements SET guid = (SELECT guid FROM elements WHERE position = 1)", "DROP TABLE element_values"}) {
        test::WriteAll(cut, content);
        SQLite::Database(cut, SQLite::OPEN_READWRITE).exec(spoil);
        EXPECT_TRUE(Says(OpenFailure(cut), "the project")) << spoil;
    }
}

TEST(StoreFaults, AReadOnlyFileIsReadAndNotWritten) {
    const test::Folder folder;
    const auto file = folder / "a.kvp";
    ASSERT_EQ(SaveProject(*test::MakeProject(3), file), "");
    std::filesystem::permissions(file, std::filesystem::perms(0444));
    std::filesystem::permissions(folder.path, std::filesystem::perms(0555));
    const std::string before = test::ReadAll(file);
    const int status = InChild([&] {
        if (getuid() == 0 && setuid(65534) != 0) return 9;
        if (!OpenProjectFile(file, KeepChanges::InMemory).project) return 1;
        if (!Says(SaveProject(*test::MakeProject(1), file), "cannot be written")) return 2;
        if (SaveProject(*test::MakeProject(1), folder / "new.kvp").empty()) return 3;
        OpenedProject attached = OpenProjectFile(file, KeepChanges::InFile);
        if (!attached.project) return Says(attached.failure, "written") ? 0 : 4;
        const host::ErrorCode code = attached.project->CallUndoable("x", [&] {
            attached.project->Record({{}, host::PropertyGroup{host::CreateGuid(), "x"}});
            return host::NoError;
        });
        if (code == host::NoError || attached.project->model.GetGroups().size() != 1) return 5;
        return Says(attached.project->GetStoreFailure(), "cannot be written") ? 0 : 6;
    });
    std::filesystem::permissions(folder.path, std::filesystem::perms(0755));
    EXPECT_EQ(status, 0);
    EXPECT_EQ(test::ReadAll(file), before);
    EXPECT_EQ(folder.CountFiles(), 1U);
}

TEST(StoreFaults, AFullDiskKeepsTheOlderState) {
    if (getuid() != 0) GTEST_SKIP() << "mounting a small disk needs root";
    const test::Folder folder;
    const int status = InChild([&] {
        if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("tmpfs", folder.path.c_str(), "tmpfs", 0, "size=1m") != 0)
            return 9;
        const auto small = test::MakeProject(100);
        const auto large = test::MakeProject(30000);
        if (!SaveProject(*small, folder / "a.kvp").empty()) return 1;
        if (!Says(SaveProject(*large, folder / "a.kvp"), "disk is full")) return 2;
        if (test::OpenAndDescribe(folder / "a.kvp") != test::Describe(small->model)) return 3;
        if (!Says(SaveProject(*large, folder / "b.kvp"), "disk is full")) return 4;
        if (folder.CountFiles() != 1) return 5; // neither a half file nor a journal
        OpenedProject opened = OpenProjectFile(folder / "a.kvp", KeepChanges::InFile);
        const std::string before = test::Describe(opened.project->model);
        const host::ErrorCode code = opened.project->CallUndoable("big", [&] {
            opened.project->Record({{}, host::PropertyGroup{host::CreateGuid(), std::string(3000000, 'x')}});
            return host::NoError;
        });
        if (code == host::NoError || test::Describe(opened.project->model) != before) return 6;
        return test::OpenAndDescribe(folder / "a.kvp") == before ? 0 : 7;
    });
    if (status == 9) GTEST_SKIP() << "this system allows no mount namespace";
    EXPECT_EQ(status, 0);
}

/// Holds the file's write lock in another process until told to end.
class Holder {
public:
    explicit Holder(const std::filesystem::path& file, std::chrono::milliseconds time) {
        int ready[2];
        if (pipe(ready) != 0) return;
        process = fork();
        if (process == 0) {
            SQLite::Database database(file, SQLite::OPEN_READWRITE);
            database.exec("BEGIN EXCLUSIVE");
            [[maybe_unused]] const ssize_t told = write(ready[1], "x", 1);
            std::this_thread::sleep_for(time);
            database.exec("ROLLBACK");
            _exit(0);
        }
        char letter = 0;
        [[maybe_unused]] const ssize_t heard = read(ready[0], &letter, 1);
        close(ready[0]);
        close(ready[1]);
    }
    ~Holder() {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }

    pid_t process = -1;
};

TEST(StoreFaults, ASecondWriterWaitsAndThenSaysWhoHasIt) {
    const test::Folder folder;
    const auto file = folder / "a.kvp";
    const auto project = test::MakeProject(3);
    ASSERT_EQ(SaveProject(*project, file), "");
    {
        const Holder holder(file, 1s);
        EXPECT_EQ(SaveProject(*project, file), ""); // waited
    }
    const Holder holder(file, 60s);
    const auto start = std::chrono::steady_clock::now();
    const std::string failure = SaveProject(*project, file);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(Says(failure, "process " + std::to_string(holder.process))) << failure;
    EXPECT_GT(waited, 4s);
    EXPECT_LT(waited, 15s);
}

TEST(StoreFaults, KilledWhileSavingItHoldsTheStateBeforeOrAfter) {
    const test::Folder folder;
    const auto file = folder / "a.kvp";
    const auto before = test::MakeProject(3000), after = test::MakeProject(4000);
    const std::string beforeText = test::Describe(before->model), afterText = test::Describe(after->model);
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(SaveProject(*before, file), "");
    const auto duration =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    std::mt19937 random(std::random_device{}());
    int interrupted = 0;
    for (int i = 0; i < 20; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            SaveProject(*after, file).clear();
            _exit(0);
        }
        std::this_thread::sleep_for(
            std::chrono::microseconds(random() % static_cast<unsigned long>(duration.count() * 2)));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        interrupted += WIFSIGNALED(status) ? 1 : 0;
        const std::string now = test::OpenAndDescribe(file);
        EXPECT_TRUE(now == beforeText || now == afterText) << "run " << i;
        ASSERT_EQ(SaveProject(*before, file), "");
    }
    EXPECT_GT(interrupted, 0);
    // A save under a new name that is killed leaves no file of that name, and the next save removes the remains.
    for (int i = 0; i < 5; ++i) {
        const auto fresh = folder / "fresh.kvp";
        const pid_t child = fork();
        if (child == 0) {
            SaveProject(*after, fresh).clear();
            _exit(0);
        }
        std::this_thread::sleep_for(duration / 3);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        if (std::filesystem::exists(fresh)) {
            EXPECT_EQ(test::OpenAndDescribe(fresh), afterText);
        }
        ASSERT_EQ(SaveProject(*after, fresh), "");
        std::filesystem::remove(fresh);
    }
    EXPECT_EQ(folder.CountFiles(), 1U);
}

} // namespace
