// What an entity is to the import, by its type.
#pragma once

#include <cstdint>

#include "workbench/ifc/entities/Entity.h"

namespace workbench::ifc {

enum class EntityRole : std::uint8_t { Other, Element, Door, Window, LeftOut, Project };

[[nodiscard]] EntityRole RoleOf(const entities::Entity& entity);

} // namespace workbench::ifc
