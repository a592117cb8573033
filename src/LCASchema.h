// Creates in the model what the add-on's data need: the classification system with its item for building materials, the
// property groups, and the definitions.
#pragma once

#include "host/Host.h"
#include "host/Properties.h"

/// The add-on's classification system and the item that its building materials carry; null where the model has none.
struct MaterialClassification {
    host::Guid system;
    host::Guid item;
};

host::ErrorCode FindMaterialClassification(host::Host& host, MaterialClassification& classification);

/// Completes the schema in one undoable command. A definition that carries a marker keeps its identifier, name, group
/// and option keys; where nothing is missing nothing is written. In a shared project it is left as it is while the set
/// of classifications and properties is not held by this user.
host::ErrorCode EnsureSchema(host::Host& host);
