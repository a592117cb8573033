// Loads the project record from the model and stores it there, as default values of the "LCA Project" definitions.
#pragma once

#include "host/Host.h"
#include "host/Properties.h"
#include "lca/LCAProjectData.h"
#include "lca/PropertyKeys.h"

#include <functional>

/// Takes the model's state into the record, whole or, after an error, not at all. Without definitions the record stays
/// as it was, apart from its floor maps, which are cleared; a definition without a usable default value leaves its
/// fields as they were and is named in the host's report.
host::ErrorCode LoadProjectData(host::Host& host, lca::LCAProjectData& record);

/// Applies a change to the model's present state and stores what it changed, nothing else, as one undoable command; the
/// record is then that state with the change. Without definitions nothing is written. After an error the record stays.
/// BadValue for a number that is not finite.
host::ErrorCode ChangeProjectData(host::Host& host, lca::LCAProjectData& record,
                                  const std::function<void(lca::LCAProjectData&)>& change);

/// What a project definition's default value is under this record.
host::Variant GetStoredDefault(lca::PropertyKey key, const lca::LCAProjectData& record);
