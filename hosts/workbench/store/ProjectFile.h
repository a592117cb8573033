// Opening and saving project files. A file is always in the state before or after a transaction, whatever happens.
#pragma once

#include "workbench/model/Project.h"

#include <filesystem>
#include <memory>

namespace workbench {

/// Whether the undoable commands of an opened project are written to its file as they happen, or live in memory until
/// the project is saved.
enum class KeepChanges { InMemory, InFile };

Result<std::unique_ptr<Project>> OpenProjectFile(const std::filesystem::path& file, KeepChanges keep);

/// Writes the whole project. A new file appears only when it is complete; an existing project file is replaced in one
/// transaction; a file that is no project is left alone.
Outcome SaveProject(const Project& project, const std::filesystem::path& file);

} // namespace workbench
