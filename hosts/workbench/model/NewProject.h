// What a project of the workbench begins with: pens, fills, surfaces, and the classification of elements by their kind.
#pragma once

#include "workbench/model/Project.h"

namespace workbench {

/// Pens, fills and surfaces, the system "Workbench Elements" with an item per kind of element, the report library and
/// the default databases.
std::unique_ptr<Project> CreateProject();

/// Name of a kind of element in that system; null where it has none.
const char* FindElementKindName(host::ElementType type);

/// Item of "Workbench Elements" for a kind of element; null in a project without that system.
host::Guid FindElementClassification(const Model& model, host::ElementType type);

} // namespace workbench
