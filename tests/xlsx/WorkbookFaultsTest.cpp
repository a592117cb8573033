// What goes wrong while a workbook is written: the answer is false, the older file stays, nothing temporary is left.
#include "WrittenWorkbook.h"
#include "support/Environment.h"
#include "support/TestFolder.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <thread>

#ifndef _WIN32
#include "support/ChildProcess.h"

#include <sys/stat.h>
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
    sheet.AddComment({{}, "", {{"note", {}}}, {}, {}});
    workbook.AddPicture(sheet, picture, ImageKind::Png, AbsoluteAnchor{});
    workbook.AddChartsheet("B").GetChart().main.kind = DiagramKind::Pie;
}

bool SavesOneSheet(const std::string& target) {
    CWorkbook workbook("Author");
    workbook.AddSheet("A");
    return workbook.Save(Wide(target));
}

std::size_t EntriesIn(const std::string& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

/// Files in memory, of which one operation fails.
struct Attempt {
    KeepingFiles files;
    bool isSaved = false;

    explicit Attempt(int failAt, bool staysBroken) {
        files.AddFile(xlsx_test::Target, "older report");
        files.AddFile("picture.png", "bytes");
        files.failAt = failAt;
        files.staysBroken = staysBroken;
        CWorkbook workbook("Author", files);
        Fill(workbook, L"picture.png", 5);
        isSaved = workbook.Save(Wide(xlsx_test::Target));
    }
};

TEST(WorkbookInMemory, SurvivesEachFailingOperation) {
    const Attempt good(-1, false);
    ASSERT_TRUE(good.isSaved);
    ASSERT_GT(good.files.operations, 100);
    ASSERT_EQ(good.files.files.at(xlsx_test::Target).bytes.substr(0, 4), "PK\x03\x04");
    for (int failAt = 0; failAt < good.files.operations; ++failAt) {
        for (const bool staysBroken : {false, true}) {
            Attempt attempt(failAt, staysBroken);
            ASSERT_FALSE(attempt.isSaved) << failAt;
            ASSERT_EQ(attempt.files.files[xlsx_test::Target].bytes, "older report") << failAt;
            ASSERT_EQ(attempt.files.files.size(), 2U) << failAt;
            ASSERT_EQ(attempt.files.folders.size(), 0U) << failAt;
            ASSERT_FALSE(attempt.files.removedWhileOpen) << failAt;
            ASSERT_EQ(attempt.files.openFiles, 0) << failAt;
        }
    }
}

TEST(WorkbookInMemory, TakesNobodysNameForTheFileBesideTheTarget) {
    KeepingFiles files;
    for (const char letter : std::string("0123456789abcdefghijklmnopqrstuvwxyz"))
        files.AddFile(std::string("no-such-folder/") + letter, "somebody's");
    CWorkbook workbook("Author", files);
    workbook.AddSheet("A");
    EXPECT_FALSE(workbook.Save(L"no-such-folder/r"));
    EXPECT_EQ(files.files.size(), 36U);
    for (const auto& [path, file] : files.files)
        EXPECT_EQ(file.bytes, "somebody's") << path;
}

/// A folder with an older report and a picture, and one for temporary files that is empty in the end.
class WorkbookFaultsTest : public testing::Test {
protected:
    TestFolder folder, temporary;
    const support::EnvironmentScope variable{"TEMP", temporary.GetPath()};
    const std::string target = folder.Write("out.xlsx", "older report");
    const std::string picture = folder.Write("picture.png", std::string(100, 'p'));

    void ExpectNothingChanged(const std::string& what) {
        EXPECT_EQ(ContentOf(target), "older report") << what;
        EXPECT_EQ(EntriesIn(folder.GetPath()), 2U) << what;
        EXPECT_EQ(EntriesIn(temporary.GetPath()), 0U) << what;
    }
    void TearDown() override { EXPECT_EQ(EntriesIn(temporary.GetPath()), 0U); }
};

// A name is never cut at a NUL.
TEST_F(WorkbookFaultsTest, RefusesPathsThatLeadNowhere) {
    const std::wstring tail(L"\0.xlsx", 6);
    const struct {
        const char* name;
        std::wstring picture, target;
        const char* reason;
    } cases[] = {{"a missing picture", Wide(folder / "missing.png"), Wide(target), "picture '"},
                 {"a NUL in the picture's path", Wide(picture) + tail, Wide(target), "picture '"},
                 {"a NUL in the path", Wide(picture), Wide(folder / "out") + tail, "is no path"},
                 {"a missing folder", Wide(picture), Wide(folder / "no/such.xlsx"), "cannot be written"},
                 {"a folder", Wide(picture), Wide(folder.GetPath()), "cannot be written"}};
    for (const auto& row : cases) {
        CWorkbook workbook;
        Fill(workbook, row.picture, 1);
        EXPECT_FALSE(workbook.Save(row.target)) << row.name;
        EXPECT_NE(workbook.GetFailure().find(row.reason), std::string::npos)
            << row.name << ": " << workbook.GetFailure();
        ExpectNothingChanged(row.name);
    }
}

TEST_F(WorkbookFaultsTest, SavesOnceOnly) {
    CWorkbook workbook, notSaved;
    Fill(workbook, Wide(picture), 3);
    Fill(notSaved, Wide(picture), 3);
    EXPECT_EQ(EntriesIn(temporary.GetPath()), 2U); // one folder for each
    ASSERT_TRUE(workbook.Save(Wide(target)));
    EXPECT_EQ(EntriesIn(temporary.GetPath()), 1U);
    const std::string first = ContentOf(target);
    EXPECT_EQ(first.substr(0, 2), "PK");
    workbook.AddSheet("late").BeginRow();
    EXPECT_FALSE(workbook.Save(Wide(target)));
    EXPECT_FALSE(workbook.Save(Wide(folder / "other.xlsx")));
    EXPECT_EQ(ContentOf(target), first);
    EXPECT_EQ(EntriesIn(folder.GetPath()), 2U);
}

TEST_F(WorkbookFaultsTest, WritesWorkbooksSideBySide) {
    std::vector<std::thread> threads;
    std::vector<char> saved(8, 0);
    for (std::size_t i = 0; i < saved.size(); ++i) {
        threads.emplace_back([&, i] {
            CWorkbook workbook;
            Fill(workbook, Wide(picture), 500);
            saved[i] = workbook.Save(Wide(folder / (std::to_string(i) + ".xlsx"))) ? 1 : 0;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(saved, std::vector<char>(8, 1));
    EXPECT_EQ(EntriesIn(folder.GetPath()), 2U + 8U);
}

// The file beside the target has no more room for its name than the target has.
TEST_F(WorkbookFaultsTest, SavesUnderNamesOfEachKind) {
#ifdef _WIN32
    const std::size_t longest = 259 - (folder.GetPath().size() + 1); // of the whole path
#else
    const std::size_t longest = 255;
#endif
    std::vector<std::wstring> names = {L"gr\u00FC\u00DFe \u00E9t\u00E9.xlsx"}; // in the western code page, too
    for (const std::size_t letters : {std::size_t{1}, std::size_t{2}, std::size_t{12}, std::size_t{245}, longest})
        names.emplace_back(std::min(letters, longest), L'x');
    for (const std::wstring& name : names) {
        const std::string path = folder / platform::NarrowFromWide(name).value();
        EXPECT_TRUE(SavesOneSheet(path)) << name.size();
        EXPECT_TRUE(SavesOneSheet(path)) << name.size();
        EXPECT_EQ(ContentOf(path).substr(0, 2), "PK") << name.size();
        std::filesystem::remove(path);
        ExpectNothingChanged(path);
    }
}

#ifdef _WIN32

TEST_F(WorkbookFaultsTest, LeavesATargetThatIsOpenElsewhere) {
    const auto reader = platform::GetOperatingSystemFiles().OpenForReading(target);
    ASSERT_NE(reader, nullptr);
    EXPECT_FALSE(SavesOneSheet(target));
    EXPECT_FALSE(SavesOneSheet("NUL")); // a device
    ExpectNothingChanged("open elsewhere");
}

#else

// No file may grow beyond so many bytes: a part is cut, or only the archive, or its very end.
TEST_F(WorkbookFaultsTest, KeepsTheOlderFileWhenTheDiskIsFull) {
    const auto save = [&](rlim_t most) {
        return support::InChild([&] {
            if (!support::LimitFileSizes(most)) return 100;
            CWorkbook workbook("Author");
            Fill(workbook, Wide(picture), 1);
            for (unsigned i = 0; i < 60; ++i) // small parts, a long directory
                workbook.AddSheet("Sheet " + std::to_string(i));
            return workbook.Save(Wide(target)) ? 0 : 1;
        });
    };
    ASSERT_EQ(save(RLIM_INFINITY), 0);
    const rlim_t whole = std::filesystem::file_size(target);
    folder.Write("out.xlsx", "older report");
    // The time of saving moves the size by a few bytes: 12 before the end is within the end record in any case.
    for (const rlim_t most : {rlim_t{0}, rlim_t{1000}, rlim_t{5000}, whole / 2, whole - 5000, whole - 40, whole - 12}) {
        EXPECT_EQ(save(most), 1) << most;
        ExpectNothingChanged(std::to_string(most));
    }
    EXPECT_EQ(save(whole + 100), 0);
}

TEST_F(WorkbookFaultsTest, KeepsPermissions) {
    struct stat found {};
    const mode_t mask = umask(027);
    std::filesystem::remove(target);
    for (const mode_t mode : {0640U, 0600U, 0644U, 0666U, 0755U}) { // the first as the user's mask says
        ASSERT_EQ(mode == 0640U ? 0 : chmod(target.c_str(), mode), 0);
        EXPECT_TRUE(SavesOneSheet(target));
        ASSERT_EQ(stat(target.c_str(), &found), 0);
        EXPECT_EQ(found.st_mode & 07777, mode);
    }
    umask(mask);
    if (geteuid() != 0) return; // the rest needs somebody else
    ASSERT_EQ(chown(target.c_str(), 65534, 65533), 0);
    EXPECT_TRUE(SavesOneSheet(target));
    ASSERT_EQ(stat(target.c_str(), &found), 0);
    EXPECT_EQ(found.st_uid, 65534U);
    EXPECT_EQ(found.st_gid, 65533U);
}

TEST_F(WorkbookFaultsTest, FollowsSymbolicLinks) {
    namespace fs = std::filesystem;
    const std::string inner = folder / "inner";
    fs::create_directory(inner);
    const struct {
        const char* name;
        std::string target;
        const char* place; ///< where the workbook has to be; null: nowhere
    } cases[] = {{"relative", "inner/there.xlsx", "inner/there.xlsx"},
                 {"absolute", inner + "/there.xlsx", "inner/there.xlsx"},
                 {"dangling", "inner/new.xlsx", "inner/new.xlsx"},
                 {"to a link", "relative", "inner/there.xlsx"},
                 {"in a circle", "in a circle", nullptr},
                 {"into a folder that is missing", "missing/new.xlsx", nullptr},
                 {"to a folder", "inner", nullptr}};
    for (const auto& row : cases) {
        folder.Write("inner/there.xlsx", "older report");
        fs::create_symlink(row.target, folder / row.name);
        EXPECT_EQ(SavesOneSheet(folder / row.name), row.place != nullptr) << row.name;
        EXPECT_EQ(fs::read_symlink(folder / row.name), row.target) << row.name;
        const std::string written = row.place != nullptr ? ContentOf(folder / row.place).substr(0, 2) : "PK";
        EXPECT_EQ(written, "PK") << row.name;
    }
    EXPECT_EQ(EntriesIn(folder.GetPath()), 2U + std::size(cases) + 1U);
    EXPECT_EQ(EntriesIn(inner), 2U);
}

TEST_F(WorkbookFaultsTest, RefusesWhatIsNoOrdinaryFile) {
    const std::string pipe = folder / "pipe.xlsx", socket = folder / "socket.xlsx", link = folder / "link.xlsx";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
    ASSERT_EQ(mknod(socket.c_str(), S_IFSOCK | 0666, 0), 0);
    std::filesystem::create_symlink(pipe, link);
    for (const std::string& path : {pipe, socket, link}) {
        const auto kind = std::filesystem::status(path).type();
        EXPECT_FALSE(SavesOneSheet(path)) << path;
        EXPECT_EQ(std::filesystem::status(path).type(), kind) << path;
    }
    EXPECT_EQ(EntriesIn(folder.GetPath()), 2U + 3U);
}

TEST_F(WorkbookFaultsTest, LeavesATargetThatTheUserMayNotWrite) {
    ASSERT_EQ(chmod(temporary.GetPath().c_str(), 0777), 0);
    const auto save = [&] { return !support::GiveUpRights() ? 100 : SavesOneSheet(target) ? 0 : 1; };
    const struct {
        mode_t folder, file;
        int answer;
    } cases[] = {{0555, 0666, 1}, {0777, 0444, 1}, {0777, 0666, 0}};
    for (const auto& row : cases) {
        ASSERT_EQ(chmod(folder.GetPath().c_str(), row.folder), 0);
        ASSERT_EQ(chmod(target.c_str(), row.file), 0);
        EXPECT_EQ(support::InChild(save), row.answer) << std::oct << row.folder;
        if (row.answer != 0) ExpectNothingChanged("may not write");
    }
    EXPECT_EQ(chmod(folder.GetPath().c_str(), 0755), 0);
}

#endif

} // namespace
