// The tables that the resource compiler writes; only the look-ups use them.
#pragma once

#include "resources/ResourceData.h"

namespace Resources {

extern const ConstantList<StringList> stringListsTable;
extern const ConstantList<DialogLayout> dialogsTable;
extern const ConstantList<Icon> iconsTable;
extern const ModuleId moduleId;

} // namespace Resources
