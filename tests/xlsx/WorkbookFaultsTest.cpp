// What goes wrong while a workbook is written: the answer is false, the older file stays, nothing temporary is left.
#include "WrittenWorkbook.h"
#include "support/TestFolder.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <thread>

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

using namespace Xlsx;
using support::ContentOf;
using support::TestFolder;
using xlsx_test::KeepingFiles;

std::wstring Wide(const std::string& narrow) {
    return platform::WideFromNarrow(narrow).value();
}

void Fill(CWorkbook& workbook, const std::wstring& picture, unsigned rows) {
    CWorksheet& sheet = workbook.AddSheet("A");
    for (unsigned row = 0; row < rows; ++row) {
        sheet.BeginRow();
        sheet.AddCell("text " + std::to_string(row * 7919));
        sheet.AddCell(row * 0.7311);
        sheet.AddCell("=B1");
    }
    Comment comment;
    comment.text = {{"note", {}}};
    sheet.AddComment(comment);
    workbook.AddPicture(sheet, picture, ImageKind::Png, AbsoluteAnchor{});
    workbook.AddChartsheet("B").Chart().main.kind = DiagramKind::Pie;
}

struct Attempt {
    bool isSaved = false;
    int operations = 0;
    std::string target;
    std::size_t filesLeft = 0;
    std::size_t foldersLeft = 0;
    bool removedWhileOpen = false;
    int openFiles = 0;
};

Attempt SaveWithFault(int failAt, bool staysBroken) {
    const std::string target = "no-such-folder/report.xlsx";
    KeepingFiles files;
    files.inner.AddFile(target, "older report");
    files.inner.AddFile("picture.png", "bytes");
    files.inner.failAt = failAt;
    files.inner.staysBroken = staysBroken;
    Attempt attempt;
    {
        CWorkbook workbook("Author", files);
        Fill(workbook, L"picture.png", 5);
        attempt.isSaved = workbook.Save(Wide(target));
    }
    attempt.operations = files.inner.operations;
    attempt.target = files.inner.files[target].bytes;
    attempt.filesLeft = files.inner.files.size();
    attempt.foldersLeft = files.inner.folders.size();
    attempt.removedWhileOpen = files.removedWhileOpen;
    attempt.openFiles = files.inner.openFiles;
    return attempt;
}

TEST(WorkbookFaultsTest, SurvivesEachFailingOperation) {
    const Attempt good = SaveWithFault(-1, false);
    ASSERT_TRUE(good.isSaved);
    ASSERT_GT(good.operations, 100);
    ASSERT_EQ(good.target.substr(0, 4), "PK\x03\x04");
    for (int failAt = 0; failAt < good.operations; ++failAt) {
        for (const bool staysBroken : {false, true}) {
            const Attempt attempt = SaveWithFault(failAt, staysBroken);
            ASSERT_FALSE(attempt.isSaved) << failAt;
            ASSERT_EQ(attempt.target, "older report") << failAt;
            ASSERT_EQ(attempt.filesLeft, 2U) << failAt;
            ASSERT_EQ(attempt.foldersLeft, 0U) << failAt;
            ASSERT_FALSE(attempt.removedWhileOpen) << failAt;
            ASSERT_EQ(attempt.openFiles, 0) << failAt;
        }
    }
}

TEST(WorkbookFaultsTest, SavesOnceOnly) {
    const TestFolder folder;
    CWorkbook workbook;
    CWorksheet& sheet = workbook.AddSheet("A");
    ASSERT_TRUE(workbook.Save(Wide(folder / "out.xlsx")));
    const std::string first = ContentOf(folder / "out.xlsx");
    sheet.BeginRow();
    sheet.AddCell("late");
    workbook.AddSheet("late");
    EXPECT_FALSE(workbook.Save(Wide(folder / "out.xlsx")));
    EXPECT_FALSE(workbook.Save(Wide(folder / "other.xlsx")));
    EXPECT_EQ(ContentOf(folder / "out.xlsx"), first);
    EXPECT_EQ(ContentOf(folder / "other.xlsx"), "(none)");
}

TEST(WorkbookFaultsTest, RefusesAMissingPicture) {
    const TestFolder folder;
    const std::string target = folder.Write("out.xlsx", "older report");
    CWorkbook workbook;
    workbook.AddPicture(workbook.AddSheet("A"), Wide(folder / "missing.png"), ImageKind::Png, AbsoluteAnchor{});
    EXPECT_FALSE(workbook.Save(Wide(target)));
    EXPECT_EQ(ContentOf(target), "older report");
}

/// Temporary files go below a folder of the test's own for its time.
class TemporaryRootScope {
public:
    explicit TemporaryRootScope(const std::string& root) { Set(root); }
    ~TemporaryRootScope() { Set(""); }
    TemporaryRootScope(const TemporaryRootScope&) = delete;
    TemporaryRootScope& operator=(const TemporaryRootScope&) = delete;

private:
    static void Set(const std::string& value) {
#ifdef _WIN32
        _putenv_s("TEMP", value.c_str());
#else
        setenv("TEMP", value.c_str(), 1);
#endif
    }
};

std::size_t EntriesIn(const std::string& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

TEST(WorkbookFaultsTest, LeavesNothingInTheTemporaryFolder) {
    const TestFolder folder;
    const std::string root = folder / "temp";
    std::filesystem::create_directory(root);
    const TemporaryRootScope scope(root);
    const std::string picture = folder.Write("picture.png", "bytes");
    {
        CWorkbook first;
        CWorkbook second;
        Fill(first, Wide(picture), 3);
        Fill(second, Wide(picture), 3);
        EXPECT_EQ(EntriesIn(root), 2U); // one folder for each
        EXPECT_TRUE(first.Save(Wide(folder / "first.xlsx")));
        EXPECT_EQ(EntriesIn(root), 1U);
        EXPECT_FALSE(second.Save(Wide(folder / "no/such/folder.xlsx")));
        EXPECT_EQ(EntriesIn(root), 0U);
        CWorkbook notSaved;
        Fill(notSaved, Wide(picture), 3);
        EXPECT_EQ(EntriesIn(root), 1U);
    }
    EXPECT_EQ(EntriesIn(root), 0U);
    EXPECT_EQ(EntriesIn(folder.Path()), 3U);
}

TEST(WorkbookFaultsTest, WritesWorkbooksSideBySide) {
    const TestFolder folder;
    const std::string picture = folder.Write("picture.png", "bytes");
    std::vector<std::thread> threads;
    std::vector<char> saved(8, 0);
    for (std::size_t i = 0; i < saved.size(); ++i) {
        threads.emplace_back([&, i] {
            CWorkbook workbook;
            Fill(workbook, Wide(picture), 500);
            saved[i] = workbook.Save(Wide(folder / (std::to_string(i) + ".xlsx"))) ? 1 : 0;
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(saved, std::vector<char>(8, 1));
    EXPECT_EQ(EntriesIn(folder.Path()), 9U);
}

// A name is never cut at a NUL.
TEST(WorkbookFaultsTest, RefusesPathsWithANul) {
    const TestFolder folder;
    const std::string picture = folder.Write("picture.png", "bytes");
    const std::wstring tail(L"\0.xlsx", 6);
    {
        CWorkbook workbook;
        workbook.AddSheet("A");
        EXPECT_FALSE(workbook.Save(Wide(folder / "out") + tail));
        EXPECT_NE(workbook.Failure().find("is no path"), std::string::npos) << workbook.Failure();
    }
    CWorkbook workbook;
    workbook.AddPicture(workbook.AddSheet("A"), Wide(picture) + tail, ImageKind::Png, AbsoluteAnchor{});
    EXPECT_FALSE(workbook.Save(Wide(folder / "out.xlsx")));
    EXPECT_EQ(EntriesIn(folder.Path()), 1U);
}

TEST(WorkbookFaultsTest, TakesPathsWithLettersOutsideAscii) {
    const TestFolder folder;
    const std::wstring name = L"gr\u00FC\u00DFe \u00E9t\u00E9"; // in the western code page, too
    const std::string picture = folder.Write(platform::NarrowFromWide(name).value() + ".png", "bytes");
    CWorkbook workbook;
    Fill(workbook, Wide(picture), 1);
    const std::wstring target = Wide(folder / "") + name + L".xlsx";
    EXPECT_TRUE(workbook.Save(target));
    const std::optional<platform::FileFacts> facts = platform::FactsOf(platform::NarrowFromWide(target).value());
    ASSERT_TRUE(facts.has_value());
    EXPECT_GT(facts->sizeBytes, 3000U);
}

bool SavesOneSheet(const std::string& target) {
    CWorkbook workbook("Author");
    workbook.AddSheet("A");
    return workbook.Save(Wide(target));
}

// The file beside the target has no more room for its name than the target has.
TEST(WorkbookFaultsTest, SavesUnderTheShortestAndTheLongestNames) {
    const TestFolder folder;
#ifdef _WIN32
    const std::size_t longest = 259 - (folder.Path().size() + 1); // of the whole path
#else
    const std::size_t longest = 255;
#endif
    for (const std::size_t letters : {std::size_t{1}, std::size_t{2}, std::size_t{12}, std::size_t{245}, longest}) {
        if (letters > longest) continue;
        const std::string target = folder / std::string(letters, 'x');
        EXPECT_TRUE(SavesOneSheet(target)) << letters;
        EXPECT_TRUE(SavesOneSheet(target)) << letters;
        EXPECT_EQ(ContentOf(target).substr(0, 2), "PK") << letters;
        EXPECT_EQ(EntriesIn(folder.Path()), 1U) << letters;
        std::filesystem::remove(target);
    }
}

TEST(WorkbookFaultsTest, TakesNobodysNameForTheFileBesideTheTarget) {
    KeepingFiles files;
    for (const char letter : std::string("0123456789abcdefghijklmnopqrstuvwxyz")) {
        files.inner.AddFile(std::string("no-such-folder/") + letter, "somebody's");
    }
    CWorkbook workbook("Author", files);
    workbook.AddSheet("A");
    EXPECT_FALSE(workbook.Save(L"no-such-folder/r"));
    EXPECT_EQ(files.inner.files.size(), 36U);
    for (const auto& [path, file] : files.inner.files) {
        EXPECT_EQ(file.bytes, "somebody's") << path;
    }
}

#ifdef _WIN32

TEST(WorkbookFaultsTest, RefusesADevice) {
    EXPECT_FALSE(SavesOneSheet("NUL"));
}

TEST(WorkbookFaultsTest, LeavesATargetThatIsOpenElsewhere) {
    const TestFolder folder;
    const std::string target = folder.Write("out.xlsx", "older report");
    {
        const auto reader = platform::OperatingSystemFiles().OpenForReading(target);
        ASSERT_NE(reader, nullptr);
        CWorkbook workbook;
        workbook.AddSheet("A");
        EXPECT_FALSE(workbook.Save(Wide(target)));
    }
    EXPECT_EQ(ContentOf(target), "older report");
    EXPECT_EQ(EntriesIn(folder.Path()), 1U);
}

#else

/// Runs a check in a process of its own, which may give up rights, and answers what the check answers.
int InChild(const std::function<int()>& check) {
    const pid_t child = fork();
    if (child == 0) _exit(check());
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

// No file may grow beyond so many bytes: a part is cut, or only the archive, or its very end.
TEST(WorkbookFaultsTest, KeepsTheOlderFileWhenTheDiskIsFull) {
    const TestFolder folder;
    const std::string root = folder / "temp";
    std::filesystem::create_directory(root);
    const TemporaryRootScope scope(root);
    const std::string picture = folder.Write("picture.png", std::string(100, 'p'));
    const std::string target = folder / "out.xlsx";
    const auto save = [&](rlim_t most) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{most, most};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 100;
        CWorkbook workbook("Author");
        Fill(workbook, Wide(picture), 1);
        for (unsigned i = 0; i < 60; ++i) { // small parts, a long directory
            workbook.AddSheet("Sheet " + std::to_string(i));
        }
        return workbook.Save(Wide(target)) ? 0 : 1;
    };
    ASSERT_EQ(InChild([&] { return save(RLIM_INFINITY); }), 0);
    const rlim_t whole = std::filesystem::file_size(target);
    folder.Write("out.xlsx", "older report");
    // The time of saving moves the size by a few bytes: 12 before the end is within the end record in any case.
    for (const rlim_t most : {rlim_t{0}, rlim_t{1000}, rlim_t{5000}, whole / 2, whole - 5000, whole - 40, whole - 12}) {
        EXPECT_EQ(InChild([&] { return save(most); }), 1) << most;
        EXPECT_EQ(ContentOf(target), "older report") << most;
        EXPECT_EQ(EntriesIn(root), 0U) << most;
        EXPECT_EQ(EntriesIn(folder.Path()), 3U) << most;
    }
    EXPECT_EQ(InChild([&] { return save(whole + 100); }), 0);
}

TEST(WorkbookFaultsTest, KeepsPermissions) {
    const TestFolder folder;
    const std::string target = folder / "out.xlsx";
    const auto mode = [&] {
        struct stat found {};
        return stat(target.c_str(), &found) == 0 ? found.st_mode & 07777 : 0;
    };
    const mode_t mask = umask(027);
    EXPECT_TRUE(SavesOneSheet(target));
    EXPECT_EQ(mode(), 0640U); // a new one: as the user's mask says
    for (const mode_t each : {0600U, 0644U, 0666U, 0755U}) {
        ASSERT_EQ(chmod(target.c_str(), each), 0);
        EXPECT_TRUE(SavesOneSheet(target));
        EXPECT_EQ(mode(), each);
    }
    umask(mask);
    if (geteuid() != 0) return; // the rest needs somebody else
    ASSERT_EQ(chown(target.c_str(), 65534, 65533), 0);
    EXPECT_TRUE(SavesOneSheet(target));
    struct stat found {};
    ASSERT_EQ(stat(target.c_str(), &found), 0);
    EXPECT_EQ(found.st_uid, 65534U);
    EXPECT_EQ(found.st_gid, 65533U);
}

TEST(WorkbookFaultsTest, FollowsSymbolicLinks) {
    namespace fs = std::filesystem;
    const TestFolder folder;
    const std::string inner = folder / "inner";
    fs::create_directory(inner);
    struct Case {
        const char* name;
        std::string target;
        const char* place; ///< where the workbook has to be; null: nowhere
    };
    const Case cases[] = {{"relative", "inner/there.xlsx", "inner/there.xlsx"},
                          {"absolute", inner + "/there.xlsx", "inner/there.xlsx"},
                          {"dangling", "inner/new.xlsx", "inner/new.xlsx"},
                          {"to a link", "relative", "inner/there.xlsx"},
                          {"in a circle", "in a circle", nullptr},
                          {"into a folder that is missing", "missing/new.xlsx", nullptr},
                          {"to a folder", "inner", nullptr}};
    for (const Case& row : cases) {
        folder.Write("inner/there.xlsx", "older report");
        fs::create_symlink(row.target, folder / row.name);
        EXPECT_EQ(SavesOneSheet(folder / row.name), row.place != nullptr) << row.name;
        EXPECT_EQ(fs::read_symlink(folder / row.name), row.target) << row.name;
        const std::string written = row.place != nullptr ? ContentOf(folder / row.place).substr(0, 2) : "PK";
        EXPECT_EQ(written, "PK") << row.name;
    }
    EXPECT_EQ(EntriesIn(folder.Path()), std::size(cases) + 1);
    EXPECT_EQ(EntriesIn(inner), 2U);
}

TEST(WorkbookFaultsTest, RefusesWhatIsNoOrdinaryFile) {
    const TestFolder folder;
    const std::string pipe = folder / "pipe.xlsx", socket = folder / "socket.xlsx", link = folder / "link.xlsx";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
    ASSERT_EQ(mknod(socket.c_str(), S_IFSOCK | 0666, 0), 0);
    std::filesystem::create_symlink(pipe, link);
    for (const std::string& target : {pipe, socket, link, folder.Path()}) {
        const auto kind = std::filesystem::status(target).type();
        EXPECT_FALSE(SavesOneSheet(target)) << target;
        EXPECT_EQ(std::filesystem::status(target).type(), kind) << target;
    }
    EXPECT_EQ(EntriesIn(folder.Path()), 3U);
}

TEST(WorkbookFaultsTest, LeavesATargetThatTheUserMayNotWrite) {
    const TestFolder folder;
    const TestFolder temporary; // where everybody may write
    ASSERT_EQ(chmod(temporary.Path().c_str(), 0777), 0);
    const TemporaryRootScope scope(temporary.Path());
    const std::string target = folder.Write("out.xlsx", "older report");
    const auto save = [&] {
        const bool isRoot = geteuid() == 0;
        if (isRoot && (setgid(65534) != 0 || setuid(65534) != 0)) return 100;
        CWorkbook workbook("Author");
        workbook.AddSheet("A");
        return workbook.Save(Wide(target)) ? 0 : 1;
    };
    struct Case {
        const char* name;
        mode_t folder;
        mode_t file;
    };
    for (const Case& row : {Case{"folder", 0555, 0666}, Case{"file", 0777, 0444}}) {
        ASSERT_EQ(chmod(folder.Path().c_str(), row.folder), 0);
        ASSERT_EQ(chmod(target.c_str(), row.file), 0);
        EXPECT_EQ(InChild(save), 1) << row.name;
        EXPECT_EQ(ContentOf(target), "older report") << row.name;
        EXPECT_EQ(EntriesIn(folder.Path()), 1U) << row.name;
    }
    ASSERT_EQ(chmod(target.c_str(), 0666), 0);
    EXPECT_EQ(InChild(save), 0);
    EXPECT_EQ(chmod(folder.Path().c_str(), 0755), 0);
}

#endif

} // namespace
