// Databases, library parts, favourites and placed objects in a project file. Failures are SQLite::Exceptions.
#pragma once

#include "workbench/model/Model.h"
#include "workbench/store/Database.h"

namespace workbench {

void ReadObjectRows(SQLite::Database& database, Model& model);
/// Databases, library parts and favourites, which no command changes, into empty tables.
void WriteLibraryRows(SQLite::Database& database, const Model& model);
void PutPlacedObject(SQLite::Database& database, const PlacedObject& object);
void RemovePlacedObject(SQLite::Database& database, const PlacedObject& object);

} // namespace workbench
