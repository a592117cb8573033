// From an object to what the file relates to it: its type, the whole that it is part of, its parts.
#pragma once

#include <vector>

#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

/// None where there is none; of several the first.
[[nodiscard]] entities::Entity TypeOf(const entities::Model& model, const entities::Entity& object);
[[nodiscard]] entities::Entity WholeOf(const entities::Model& model, const entities::Entity& object);
[[nodiscard]] std::vector<entities::Entity> PartsOf(const entities::Model& model, const entities::Entity& object);

} // namespace workbench::ifc
