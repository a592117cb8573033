// Loads the project record from the model and stores it there, as default values of the "LCA Project" definitions.
#pragma once

#include "host/Host.h"
#include "host/Properties.h"
#include "lca/LCAProjectData.h"
#include "lca/PropertyKeys.h"

/// Without definitions the record stays as it was, apart from its floor maps, which are cleared.
host::ErrorCode LoadProjectData(host::Host& host, lca::LCAProjectData& record);

/// Writes the record as one undoable command; without definitions nothing is written.
host::ErrorCode StoreProjectData(host::Host& host, const lca::LCAProjectData& record);

/// What a project definition's default value is under this record.
host::Variant GetStoredDefault(lca::PropertyKey key, const lca::LCAProjectData& record);

/// Identifier of the group of this name; null where there is none.
host::ErrorCode FindPropertyGroup(host::Host& host, const std::string& name, host::Guid& guid);
