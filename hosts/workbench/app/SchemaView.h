// The LCA definitions of an open project as a person finds them in the host's property manager: by their markers.
#pragma once

#include "lca/LCAProjectData.h"
#include "lca/PropertyKeys.h"
#include "workbench/model/Model.h"

#include <optional>

namespace workbench {

/// The first definition with the key's marker; null where the project has none.
const host::PropertyDefinition* FindLCADefinition(const Model& model, lca::PropertyKey key);

/// Key of the option with this text; null where there is none.
host::Guid FindOption(const host::PropertyDefinition& definition, const std::string& text);

/// The record as it stands in the model.
lca::LCAProjectData ReadRecord(const Model& model);

/// Own value of a material; null where it was never given one.
const host::Variant* FindMaterialValue(const Model& model, host::AttributeIndex material, lca::PropertyKey key);
/// Own text of a material's GWP per unit; empty where it was never given one.
std::string GetMaterialGWPText(const Model& model, host::AttributeIndex material);
/// Text of a material's unit; "m3" where it was never given one.
std::string GetMaterialUnit(const Model& model, host::AttributeIndex material);

} // namespace workbench
