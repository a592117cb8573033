#include "workbench/store/Database.h"

#include <fcntl.h>
#include <pwd.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <fstream>

namespace workbench {

namespace {

// Where SQLite locks a database file: one page from 1 GiB on (its file format, "Locking").
constexpr off_t LockBytesBegin = 0x40000000;
constexpr off_t LockBytesLength = 512;

pid_t FindLockingProcess(const std::filesystem::path& file) {
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return 0;
    struct flock lock {};
    lock.l_type = F_RDLCK; // conflicts with any writer's lock
    lock.l_whence = SEEK_SET;
    lock.l_start = LockBytesBegin;
    lock.l_len = LockBytesLength;
    const bool isAnswered = fcntl(descriptor, F_GETLK, &lock) == 0;
    close(descriptor);
    return isAnswered && lock.l_type != F_UNLCK && lock.l_pid > 0 ? lock.l_pid : 0;
}

std::string GetUserName(uid_t user) {
    char buffer[1024];
    struct passwd entry {};
    struct passwd* found = nullptr;
    if (getpwuid_r(user, &entry, buffer, sizeof buffer, &found) == 0 && found != nullptr) return found->pw_name;
    return std::to_string(user);
}

} // namespace

SQLite::Database OpenDatabase(const std::filesystem::path& file, FileAccess access) {
    const int flags = SQLite::OPEN_READWRITE | (access == FileAccess::Create ? SQLite::OPEN_CREATE : 0);
    SQLite::Database database(file.string(), flags, BusyMilliseconds);
    database.exec("PRAGMA synchronous = FULL");
    return database;
}

std::string DescribeLockHolder(const std::filesystem::path& file) {
    const pid_t process = FindLockingProcess(file);
    if (process == 0) return {};
    const std::string folder = "/proc/" + std::to_string(process);
    std::string program;
    std::getline(std::ifstream(folder + "/comm"), program);
    struct stat facts {};
    const std::string user = stat(folder.c_str(), &facts) == 0 ? ", user " + GetUserName(facts.st_uid) : std::string();
    return "process " + std::to_string(process) + " (" + program + user + ")";
}

std::string DescribeFailure(const std::filesystem::path& file, const SQLite::Exception& failure) {
    const std::string name = file.string() + ": ";
    switch (failure.getErrorCode()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED: {
        const std::string holder = DescribeLockHolder(file);
        return name + "the project is being written by " + (holder.empty() ? "another program" : holder) +
               "; wait until it has finished and try again";
    }
    case SQLITE_FULL:
        return name + "the disk is full; free some space and try again";
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return name + "the project cannot be written; ask for the right to write it, or save under another name";
    case SQLITE_CANTOPEN:
        return name + "the file cannot be opened; check that it exists and may be used";
    case SQLITE_NOTADB:
        return name + "this is no Kelvarnix project; name a .kvp file or an .ifc file";
    case SQLITE_CORRUPT:
        return name + "the project is damaged and cannot be read; take it from a backup";
    case SQLITE_IOERR:
        return name + "reading or writing the disk failed (" + failure.getErrorStr() +
               "); check the disk and try again";
    default:
        break;
    }
    return name + "the project cannot be used (" + failure.what() + ")";
}

void Require(bool condition, const char* what) {
    if (!condition) throw SQLite::Exception(what, SQLITE_CORRUPT);
}

void BindGuid(SQLite::Statement& statement, int parameter, const host::Guid& guid) {
    statement.bind(parameter, guid.bytes.data(), static_cast<int>(guid.bytes.size()));
}

host::Guid ReadGuid(const SQLite::Column& column) {
    host::Guid guid;
    Require(column.getBytes() == static_cast<int>(guid.bytes.size()), "an identifier has not 16 bytes");
    std::memcpy(guid.bytes.data(), column.getBlob(), guid.bytes.size());
    return guid;
}

void BindVariant(SQLite::Statement& statement, int typeParameter, const host::Variant& value) {
    const int valueParameter = typeParameter + 1;
    statement.bind(typeParameter, static_cast<int>(value.type));
    switch (value.type) {
    case host::ValueType::Integer:
        statement.bind(valueParameter, value.integer);
        return;
    case host::ValueType::Real:
        statement.bind(valueParameter, value.real);
        return;
    case host::ValueType::String:
        statement.bind(valueParameter, value.text);
        return;
    case host::ValueType::Boolean:
        statement.bind(valueParameter, value.boolean ? 1 : 0);
        return;
    case host::ValueType::Guid:
        BindGuid(statement, valueParameter, value.guid);
        return;
    case host::ValueType::None:
        statement.bind(valueParameter);
        return;
    }
}

host::Variant ReadVariant(const SQLite::Column& type, const SQLite::Column& value) {
    switch (static_cast<host::ValueType>(type.getInt())) {
    case host::ValueType::Integer:
        return host::Variant::OfInteger(value.getInt());
    case host::ValueType::Real:
        return host::Variant::OfReal(value.getDouble());
    case host::ValueType::String:
        return host::Variant::OfText(value.getString());
    case host::ValueType::Boolean:
        return host::Variant::OfBoolean(value.getInt() != 0);
    case host::ValueType::Guid:
        return host::Variant::OfGuid(ReadGuid(value));
    case host::ValueType::None:
        return {};
    }
    throw SQLite::Exception("a value has an unknown type", SQLITE_CORRUPT);
}

} // namespace workbench
