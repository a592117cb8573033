// Draws a database with its placed objects, from their parameters alone, as the library parts' own scripts would.
#pragma once

#include "workbench/model/Model.h"
#include "workbench/result/Result.h"

#include <string>

namespace workbench {

/// Pixels of the picture a metre of the drawing.
inline constexpr double DrawingPixelsPerMetre = 40.0;

/// Writes a picture that just holds the database's objects; an empty one where it has none.
/// database  null: the floor plan
Outcome DrawDatabase(const Model& model, const host::Guid& database, const std::string& path);

} // namespace workbench
