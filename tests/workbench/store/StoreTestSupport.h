// Projects for the store's tests, and processes that get in each other's way.
#pragma once

#include "../ModelText.h"
#include "support/Answers.h"
#include "support/TestFolder.h"
#include "workbench/store/ProjectFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace test {

inline const std::string Sources = KELVARNIX_SOURCE_DIR "/tests/workbench/store/";

/// Runs a body in another process, which goes with the object.
class Child {
public:
    template <typename Body>
    explicit Child(Body body) : process(fork()) {
        if (process == 0) _exit(body());
    }
    ~Child() {
        if (isThere) End(SIGKILL);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    /// What waiting for its end answers, after the signal; 0 only waits.
    int End(int signal) {
        kill(process, signal);
        isThere = false;
        int status = 0;
        waitpid(process, &status, 0);
        return status;
    }

    const pid_t process;

private:
    bool isThere = true;
};

class Store : public testing::Test {
protected:
    /// A file made by these scripts of this folder, one after another.
    std::string MakeFile(const std::string& name, const std::vector<std::string>& scripts) {
        std::filesystem::remove(folder / name);
        SQLite::Database database(folder / name, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec("PRAGMA synchronous = OFF");
        for (const std::string& script : scripts)
            database.exec(support::ContentOf(Sources + script));
        return folder / name;
    }
    /// A file with a row of every kind.
    std::string MakeWhole(const std::string& name) {
        return MakeFile(name, {"version-1.sql", "version-2.sql", "every-kind.sql", "version-3.sql"});
    }
    /// A project with a row of every kind and some walls.
    std::unique_ptr<workbench::Project> MakeProject(int walls) {
        const std::string file = MakeWhole("project.sql");
        std::unique_ptr<workbench::Project> project = Open(file).Take();
        std::filesystem::remove(file);
        for (int i = 0; i < walls; ++i) {
            workbench::Element wall;
            wall.guid = host::CreateGuid();
            wall.layer = {1};
            wall.name = "wall " + std::to_string(i);
            const host::MaterialComponent parts[] = {{{1 + i % 2}, 0.1 * i, 1.0 / (i + 1)}, {{1}, 1e-9, 2}};
            const double layers[] = {0.125, 0.0};
            const auto count = static_cast<std::size_t>(i % 3);
            project->model.AddElement(wall, std::span(parts).first(count), std::span(layers).first(count));
        }
        return project;
    }
    static workbench::Result<std::unique_ptr<workbench::Project>>
    Open(const std::string& file, workbench::KeepChanges keep = workbench::KeepChanges::InMemory) {
        return workbench::OpenProjectFile(file, keep);
    }
    /// What the file holds; the failure when it cannot be opened.
    static std::string Read(const std::string& file) {
        const auto opened = Open(file);
        EXPECT_EQ(opened.HasFailed(), !opened.GetText().empty());
        return opened.HasFailed() ? opened.GetText() : Describe(opened.Get()->model);
    }
    static host::ErrorCode Rename(workbench::Project& project, const std::string& name) {
        return project.CallUndoable("rename", [&] {
            host::PropertyGroup changed = project.model.GetGroups()[0];
            changed.name = name;
            project.Record({project.model.GetGroups()[0], changed});
            return host::NoError;
        });
    }
    /// Runs the body in a process of its own, in which its checks count as in this one.
    template <typename Body>
    void InChild(Body body) {
        constexpr int NotHere = 77;
        const int status = Child([&] {
                               const bool isPossible = body();
                               std::fflush(nullptr);
                               return isPossible ? int{HasFailure()} : NotHere;
                           }).End(0);
        if (WIFEXITED(status) && WEXITSTATUS(status) == NotHere) GTEST_SKIP() << "not possible on this machine";
        EXPECT_EQ(status, 0);
    }
    std::size_t CountFiles() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.GetPath()), {}));
    }

    support::TestFolder folder;
    const std::string file = folder / "a.kvp";
};

} // namespace test
