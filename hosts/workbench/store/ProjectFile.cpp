#include "workbench/store/ProjectFile.h"

#include "workbench/store/Database.h"
#include "workbench/store/Format.h"
#include "workbench/store/ModelReader.h"
#include "workbench/store/ModelWriter.h"

#include <signal.h>
#include <sqlite3.h>
#include <unistd.h>

#include <charconv>

namespace workbench {

namespace {

namespace fs = std::filesystem;

/// Whether this program can use the file.
Outcome CheckFormat(SQLite::Database& database, const fs::path& file, MakeFailure fail) {
    const int application = database.execAndGet("PRAGMA application_id").getInt();
    const int version = database.execAndGet("PRAGMA user_version").getInt();
    if (application != ProjectFormat::ApplicationId)
        return fail(file.string() + ": this is no Kelvarnix project; name a .kvp file or an .ifc file");
    if (version > ProjectFormat::Version)
        return fail(file.string() + ": the project was written by a newer version of Kelvarnix (format " +
                    std::to_string(version) + ", this one reads up to " + std::to_string(ProjectFormat::Version) +
                    "); use that version");
    return Outcome::Done();
}

/// SQLite notices a missing end only where it is read.
void RequireWholeFile(SQLite::Database& database, const fs::path& file) {
    const std::int64_t pages = database.execAndGet("PRAGMA page_count").getInt64();
    const std::int64_t pageSize = database.execAndGet("PRAGMA page_size").getInt64();
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    if (error || size < static_cast<std::uintmax_t>(pages * pageSize))
        throw SQLite::Exception("the file is cut off", SQLITE_CORRUPT);
}

/// Runs the body and answers what it does; an exception of the database becomes a failure.
template <typename Body>
auto RunGuarded(const fs::path& file, MakeFailure fail, Body&& body) -> decltype(body()) {
    try {
        return body();
    } catch (const SQLite::Exception& failure) {
        return fail(DescribeFailure(file, failure));
    }
}

/// Changes with every write of another connection.
int ReadDataVersion(SQLite::Database& database) {
    return database.execAndGet("PRAGMA data_version").getInt();
}

class FileStore : public ChangeStore {
public:
    /// seenVersion  read before the model was, so that a write in between is noticed
    FileStore(SQLite::Database opened, fs::path file, const Model& model, int seenVersion)
        : database(std::move(opened)), file(std::move(file)), model(model), seenVersion(seenVersion) {}

    Outcome Keep(const std::vector<Change>& changes) override {
        return Transact([&] {
            for (const Change& change : changes)
                WriteChange(database, change);
            return true;
        });
    }

    bool HasNews() override {
        bool hasNews = false;
        const Outcome asked = RunGuarded(file, Failure::Output, [&] {
            hasNews = ReadDataVersion(database) != seenVersion;
            return Outcome::Done();
        });
        return !asked.HasFailed() && hasNews;
    }

    Outcome Reload(Model& reloaded) override {
        return RunGuarded(file, Failure::Output, [&] {
            Model fresh;
            const int version = ReadDataVersion(database);
            SQLite::Transaction snapshot(database);
            ReadModel(database, fresh);
            reloaded = std::move(fresh);
            seenVersion = version;
            return Outcome::Done();
        });
    }

    Outcome ChangeTeamwork(Model& changed, const std::function<bool()>& change) override {
        const Model former = TakeTeamwork(changed);
        Outcome outcome = Transact([&] {
            ReadTeamwork(database, changed);
            if (!change()) return false;
            WriteTeamwork(database, changed);
            return true;
        });
        if (outcome.HasFailed()) PutTeamwork(former, changed);
        return outcome;
    }

private:
    static Model TakeTeamwork(const Model& source) {
        Model teamwork;
        PutTeamwork(source, teamwork);
        return teamwork;
    }
    static void PutTeamwork(const Model& source, Model& target) {
        target.members = source.members;
        target.reservations = source.reservations;
        target.requests = source.requests;
    }

    /// Runs the body and commits when it answers true.
    template <typename Body>
    Outcome Transact(Body&& body) {
        return RunGuarded(file, Failure::Output, [&] {
            SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
            UpgradeFormat(database, model);
            if (body()) transaction.commit();
            return Outcome::Done();
        });
    }

    SQLite::Database database;
    fs::path file;
    const Model& model; ///< of the project that owns this store
    int seenVersion;
};

Outcome ReplaceProject(const Project& project, const fs::path& file) {
    return RunGuarded(file, Failure::Output, [&] {
        SQLite::Database database = OpenDatabase(file, FileAccess::Existing);
        if (Outcome refusal = CheckFormat(database, file, Failure::Output); refusal.HasFailed()) return refusal;
        SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
        UpgradeFormat(database, project.model);
        WriteModel(database, project.model);
        transaction.commit();
        return Outcome::Done();
    });
}

/// Unfinished files stand beside the target; their names end with the process that writes them.
std::string GetUnfinishedPrefix(const fs::path& file) {
    std::string prefix(".");
    prefix.append(file.filename().string()).append(".new-");
    return prefix;
}

/// Removes what killed processes left beside the target.
void RemoveAbandoned(const fs::path& file) {
    const std::string prefix = GetUnfinishedPrefix(file);
    std::error_code ignored;
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
        const std::string name = entry.path().filename().string();
        if (name.compare(0, prefix.size(), prefix) != 0) continue;
        pid_t process = 0;
        std::from_chars(name.data() + prefix.size(), name.data() + name.size(), process);
        if (process > 0 && kill(process, 0) != 0 && errno == ESRCH) fs::remove(entry.path(), ignored);
    }
}

Outcome CreateProjectFile(const Project& project, const fs::path& file) {
    RemoveAbandoned(file);
    const fs::path unfinished = file.parent_path() / (GetUnfinishedPrefix(file) + std::to_string(getpid()));
    std::error_code error;
    Outcome outcome = RunGuarded(file, Failure::Output, [&] {
        SQLite::Database database = OpenDatabase(unfinished, FileAccess::Create);
        database.exec("PRAGMA journal_mode = MEMORY"); // nobody sees the file before it is whole
        SQLite::Transaction transaction(database);
        database.exec("PRAGMA application_id = " + std::to_string(ProjectFormat::ApplicationId));
        database.exec("PRAGMA user_version = " + std::to_string(ProjectFormat::Version));
        database.exec(ProjectFormat::CreateTables);
        database.exec(ProjectFormat::CreateTablesOfVersion2);
        database.exec(ProjectFormat::CreateTablesOfVersion3);
        WriteModel(database, project.model);
        transaction.commit();
        return Outcome::Done();
    });
    if (!outcome.HasFailed()) {
        fs::rename(unfinished, file, error);
        if (error)
            outcome = Failure::Output(file.string() + ": the project cannot be written (" + error.message() + ")");
    }
    if (outcome.HasFailed()) fs::remove(unfinished, error);
    return outcome;
}

} // namespace

Result<std::unique_ptr<Project>> OpenProjectFile(const fs::path& file, KeepChanges keep) {
    std::error_code error;
    if (!fs::is_regular_file(file, error))
        return Failure::Input(file.string() + ": there is no such file; check the name");
    return RunGuarded(file, Failure::Input, [&]() -> Result<std::unique_ptr<Project>> {
        SQLite::Database database = OpenDatabase(file, FileAccess::Existing);
        if (const Outcome refusal = CheckFormat(database, file, Failure::Input); refusal.HasFailed())
            return refusal.GetFailure();
        auto project = std::make_unique<Project>();
        const int version = ReadDataVersion(database);
        {
            SQLite::Transaction snapshot(database);
            RequireWholeFile(database, file);
            ReadModel(database, project->model);
        }
        if (keep == KeepChanges::InFile)
            project->store = std::make_unique<FileStore>(std::move(database), file, project->model, version);
        return project;
    });
}

Outcome SaveProject(const Project& project, const fs::path& file) {
    std::error_code error;
    if (fs::is_directory(file, error))
        return Failure::Output(file.string() + ": this is a folder; name a file to save to");
    return fs::exists(file, error) ? ReplaceProject(project, file) : CreateProjectFile(project, file);
}

} // namespace workbench
