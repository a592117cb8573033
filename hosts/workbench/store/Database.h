// An SQLite connection to a project file, and its failures as plain sentences.
#pragma once

#include "host/Properties.h"
#include "host/Values.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <string>

namespace workbench {

/// Existing files are opened for writing where that is allowed, also to finish what a killed process left half done.
enum class FileAccess { Existing, Create };

/// How long a writer waits for another one.
inline constexpr int BusyMilliseconds = 5000;

/// Opens a connection. Throws SQLite::Exception.
SQLite::Database OpenDatabase(const std::filesystem::path& file, FileAccess access);

/// What to tell the user: the file's name, what happened and what to do. Names who holds a busy file.
std::string DescribeFailure(const std::filesystem::path& file, const SQLite::Exception& failure);

/// Process and user that hold a lock on the file, as text; empty where nobody can be named. Only while this process has
/// no transaction on the file, since looking drops this process's own locks.
std::string DescribeLockHolder(const std::filesystem::path& file);

/// Throws SQLite::Exception, of a damaged file, where the condition does not hold.
void Require(bool condition, const char* what);

void BindGuid(SQLite::Statement& statement, int parameter, const host::Guid& guid);
host::Guid ReadGuid(const SQLite::Column& column);
/// Type and value go into two parameters.
void BindVariant(SQLite::Statement& statement, int typeParameter, const host::Variant& value);
host::Variant ReadVariant(const SQLite::Column& type, const SQLite::Column& value);

} // namespace workbench
