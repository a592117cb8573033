// What goes wrong with project files: each fault gets a plain sentence, and what existed is as it was.
#include "StoreTestSupport.h"
#include "support/Noise.h"

#include <sched.h>
#include <sys/mount.h>

#include <random>
#include <thread>

namespace {

using namespace workbench;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

class StoreFaults : public test::Store {
protected:
    /// What opening the file says, then what saving onto it does; the file keeps its content.
    std::string Refuse(const std::string& name) {
        const auto tell = [&](const std::string& sentence) { return sentence.substr(folder.GetPath().size() + 1); };
        const std::string before = fs::is_directory(folder / name) ? "" : support::ContentOf(folder / name);
        const std::string opening = Read(folder / name), saving = SaveProject(*MakeProject(1), folder / name).GetText();
        EXPECT_EQ(saving.empty() || before.empty() ? before : support::ContentOf(folder / name), before) << name;
        return tell(opening) + " // " + (saving.empty() ? "replaced" : tell(saving));
    }
    /// Saves in a process that is killed after a while; whether that stopped it in its work.
    bool SaveAndKill(const Project& project, const std::string& name, std::chrono::microseconds time) {
        test::Child child([&] { return SaveProject(project, name).HasFailed() ? 1 : 0; });
        std::this_thread::sleep_for(time);
        return WIFSIGNALED(child.End(SIGKILL));
    }
};

TEST_F(StoreFaults, EachIsSaid) {
    const auto refuse = [&](const std::string& name) { return Refuse(name); };
    const auto change = [&](const std::string& statement) {
        SQLite::Database(MakeWhole("a.kvp"), SQLite::OPEN_READWRITE).exec(statement);
        return Refuse("a.kvp");
    };
    const auto write = [&](const std::string& content) {
        folder.Write("a.kvp", content);
        return Refuse("a.kvp");
    };
    support::ExpectAnswers("workbench/store/expected/faults.txt",
                           {{"[name]", refuse}, {"[content]", write}, {"[statement]", change}});
}

TEST_F(StoreFaults, CutAndDamagedFiles) {
    ASSERT_EQ(SaveProject(*MakeProject(300), file).GetText(), "");
    const std::string content = support::ContentOf(file);
    for (std::size_t length = 0; length < content.size(); length += 1777)
        EXPECT_TRUE(Open(folder.Write("cut.kvp", content.substr(0, length))).HasFailed()) << length;
    // Flipped bytes: an error or a project, never a crash.
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        std::string damaged = content;
        for (int flips = 0; flips < 8; ++flips)
            support::FlipBit(damaged, random() % damaged.size(), random() % 8);
        EXPECT_NE(Read(folder.Write("cut.kvp", damaged)), "");
    }
}

TEST_F(StoreFaults, AReadOnlyFileIsReadAndNotWritten) {
    MakeWhole("a.kvp");
    fs::permissions(file, fs::perms(0444));
    fs::permissions(folder.GetPath(), fs::perms(0555));
    const std::string before = support::ContentOf(file);
    const auto project = Open(file).Take();
    InChild([&] {
        if (getuid() == 0 && setuid(65534) != 0) return false;
        const std::string refusal =
            file + ": the project cannot be written; ask for the right to write it, or save under another name";
        EXPECT_EQ(SaveProject(*project, file).GetText(), refusal);
        EXPECT_NE(SaveProject(*project, folder / "new.kvp").GetText(), "");
        auto attached = Open(file, KeepChanges::InFile);
        const std::string state = test::Describe(attached.Get()->model);
        EXPECT_NE(Rename(*attached.Get(), "x"), host::NoError);
        EXPECT_EQ(test::Describe(attached.Get()->model), state);
        EXPECT_EQ(attached.Get()->GetStoreOutcome().GetText(), refusal);
        return true;
    });
    fs::permissions(folder.GetPath(), fs::perms(0755));
    EXPECT_EQ(support::ContentOf(file), before);
    EXPECT_EQ(CountFiles(), 1U);
}

TEST_F(StoreFaults, AFullDiskKeepsTheOlderState) {
    const auto small = MakeProject(100), large = MakeProject(30000);
    InChild([&] {
        if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("tmpfs", folder.GetPath().c_str(), "tmpfs", 0, "size=1m") != 0)
            return false;
        const std::string before = test::Describe(small->model), other = folder / "b.kvp";
        EXPECT_EQ(SaveProject(*small, file).GetText(), "");
        for (const std::string& name : {file, other})
            EXPECT_EQ(SaveProject(*large, name).GetText(), name + ": the disk is full; free some space and try again");
        EXPECT_EQ(Read(file), before);
        EXPECT_EQ(CountFiles(), 1U) << "neither a half file nor a journal";
        auto opened = Open(file, KeepChanges::InFile);
        EXPECT_NE(Rename(*opened.Get(), std::string(3000000, 'x')), host::NoError);
        EXPECT_EQ(test::Describe(opened.Get()->model), before);
        EXPECT_EQ(Read(file), before);
        return true;
    });
}

TEST_F(StoreFaults, ASecondWriterWaitsAndSaysWhoHasIt) {
    const auto project = MakeProject(3);
    ASSERT_EQ(SaveProject(*project, file).GetText(), "");
    const std::string isHeld = folder / "held";
    const test::Child holder([&] {
        SQLite::Database database(file, SQLite::OPEN_READWRITE);
        database.exec("BEGIN EXCLUSIVE");
        folder.Write("held", "");
        std::this_thread::sleep_for(8s);
        return 0;
    });
    while (!fs::exists(isHeld))
        std::this_thread::sleep_for(1ms);
    const auto start = std::chrono::steady_clock::now();
    const std::string failure = SaveProject(*project, file).GetText();
    EXPECT_GT(std::chrono::steady_clock::now() - start, 4s);
    const std::string who = "process " + std::to_string(holder.process) + " (wb_store_test, user ";
    EXPECT_EQ(failure.find(file + ": the project is being written by " + who), 0U) << failure;
    EXPECT_TRUE(failure.ends_with("); wait until it has finished and try again")) << failure;
    EXPECT_EQ(SaveProject(*project, file).GetText(), "") << "waits for the end";
}

TEST_F(StoreFaults, KilledWhileSavingItHoldsTheStateBeforeOrAfter) {
    const auto before = MakeProject(3000), after = MakeProject(4000);
    const std::string beforeText = test::Describe(before->model), afterText = test::Describe(after->model);
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(SaveProject(*before, file).GetText(), "");
    const auto duration =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    std::mt19937 random(std::random_device{}());
    int interrupted = 0;
    for (int i = 0; i < 20; ++i) {
        const std::chrono::microseconds time(random() % static_cast<unsigned long>(duration.count() * 2));
        interrupted += SaveAndKill(*after, file, time) ? 1 : 0;
        const std::string now = Read(file);
        EXPECT_TRUE(now == beforeText || now == afterText) << "run " << i;
        ASSERT_EQ(SaveProject(*before, file).GetText(), "");
    }
    EXPECT_GT(interrupted, 0);
    // A save under a new name that is killed leaves no file of that name, and the next save removes the remains.
    const std::string fresh = folder / "fresh.kvp";
    for (int i = 0; i < 5; ++i) {
        SaveAndKill(*after, fresh, duration / 3);
        EXPECT_EQ(fs::exists(fresh) ? Read(fresh) : afterText, afterText);
        ASSERT_EQ(SaveProject(*after, fresh).GetText(), "");
        fs::remove(fresh);
    }
    EXPECT_EQ(CountFiles(), 1U);
}

} // namespace
