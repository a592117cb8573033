// Reads a whole model from an open project file.
#pragma once

#include "workbench/model/Model.h"
#include "workbench/store/Database.h"

namespace workbench {

/// Throws SQLite::Exception; rows that contradict each other count as damage.
void ReadModel(SQLite::Database& database, Model& model);

} // namespace workbench
