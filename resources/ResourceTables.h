// The tables that the resource compiler writes; only the look-ups use them.
#pragma once

#include "resources/ResourceData.h"

namespace Resources {

extern const ConstantList<StringList> StringListsTable;
extern const ConstantList<DialogLayout> DialogsTable;
extern const ConstantList<Icon> IconsTable;
extern const ModuleId StoredModuleId;

} // namespace Resources
