// The LCA definitions of an open project as a person finds them in the host's property manager: by their markers.
#pragma once

#include "lca/LCAProjectData.h"
#include "lca/PropertyKeys.h"
#include "lca/RecordEncodings.h"
#include "workbench/model/Model.h"

#include <optional>

namespace workbench {

/// The first definition with the key's marker; null where the project has none.
const host::PropertyDefinition* FindLCADefinition(const Model& model, lca::PropertyKey key);

/// Key of the option with this text; null where there is none.
host::Guid FindOption(const host::PropertyDefinition& definition, const std::string& text);

/// What a project definition stores.
lca::StoredValue GetStoredValue(const host::PropertyDefinition& definition);
/// The stored value as text, in the record's own forms.
std::string WriteStoredText(lca::PropertyKey key, const host::PropertyDefinition& definition);

/// The record as it stands in the model.
lca::LCAProjectData ReadRecord(const Model& model);

/// Own text of a material's GWP per unit; empty where it was never given one.
std::string GetMaterialGWPText(const Model& model, host::AttributeIndex material);
/// Text of a material's unit; "m3" where it was never given one.
std::string GetMaterialUnit(const Model& model, host::AttributeIndex material);

} // namespace workbench
