// Reads a whole model from an open project file.
#pragma once

#include "workbench/model/Model.h"
#include "workbench/store/Database.h"

namespace workbench {

/// Into an empty model. A file of an older format gets the databases and libraries of a new project. Throws
/// SQLite::Exception; rows that contradict each other count as damage.
void ReadModel(SQLite::Database& database, Model& model);

/// Replaces the model's members, reservations and requests by the file's. Throws SQLite::Exception.
void ReadTeamwork(SQLite::Database& database, Model& model);

} // namespace workbench
