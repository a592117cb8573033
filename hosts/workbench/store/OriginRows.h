// Rows of a project file that version 3 added beside the elements: storeys, where values came from, and triangles.
#pragma once

#include "workbench/model/Model.h"
#include "workbench/store/Database.h"

namespace workbench {

/// Before the elements, which name their storey. Throws SQLite::Exception.
void ReadStoreys(SQLite::Database& database, Model& model);
/// After the elements; hands each its origins. Throws SQLite::Exception.
void ReadProvenance(SQLite::Database& database, Model& model);
void ReadTriangles(SQLite::Database& database, Model& model);

/// Into empty tables. Throws SQLite::Exception.
void WriteStoreys(SQLite::Database& database, const Model& model);
void WriteProvenance(SQLite::Database& database, const Model& model);
void WriteTriangles(SQLite::Database& database, const Model& model);

} // namespace workbench
