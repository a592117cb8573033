// Writes rows of a model into an open project file. The caller holds the transaction.
#pragma once

#include "workbench/model/Model.h"
#include "workbench/store/Database.h"

namespace workbench {

/// Replaces everything that the file holds. Throws SQLite::Exception.
void WriteModel(SQLite::Database& database, const Model& model);

/// Replaces members, reservations and requests. Throws SQLite::Exception.
void WriteTeamwork(SQLite::Database& database, const Model& model);

/// Gives a file of an older format the tables of the present one, with the model's databases and libraries. Throws
/// SQLite::Exception.
void UpgradeFormat(SQLite::Database& database, const Model& model);

/// Brings one changed row into the file. Throws SQLite::Exception.
void WriteChange(SQLite::Database& database, const Change& change);

} // namespace workbench
