// The LCA property definitions: how each is built, how it is found again in the model, and the values of building
// materials that they carry.
#pragma once

#include "host/Host.h"
#include "host/Properties.h"
#include "lca/GWPCalculation.h"
#include "lca/PropertyKeys.h"

#include <array>
#include <functional>
#include <optional>
#include <vector>

/// A definition as the add-on creates it: name, marker, type, options with new keys, default; without identifier, group
/// and availability. An index outside the key table gives a definition without a value type.
host::PropertyDefinition BuildDefinition(host::Host& host, std::size_t index);

/// The first definition of the model that carries each key's marker.
using LCADefinitions = std::array<std::optional<host::PropertyDefinition>, lca::PropertyKeyCount>;

/// Hands every definition that carries a key's marker to the taker, with its group, in the model's order. A host error
/// ends the walk and is answered.
using DefinitionTaker =
    std::function<void(lca::PropertyKey key, host::PropertyDefinition& definition, const host::PropertyGroup& group)>;
host::ErrorCode WalkDefinitions(host::Host& host, const DefinitionTaker& take);

host::ErrorCode FindDefinitions(host::Host& host, LCADefinitions& definitions);

/// Names in the host's report the definitions that carry the same marker as another one, which alone is stored: they
/// are read as well, so that a change may seem to have no effect.
void WarnOfDoubledDefinitions(host::Host& host);

/// Text of the option that the value chose; empty where the key is none of the options.
std::string GetOptionText(const host::PropertyDefinition& definition, const host::Guid& key);

/// Writes values of a building material, which first gets the add-on's classification when it has none of that system;
/// without it the host would refuse the values. Inside an undoable command.
host::ErrorCode StoreMaterialValues(host::Host& host, host::AttributeIndex material,
                                    const std::vector<host::PropertyValue>& values);
