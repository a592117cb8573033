// Turns an imported building into a project of the workbench.
#pragma once

#include "workbench/app/Findings.h"
#include "workbench/ifc/ImportedBuilding.h"
#include "workbench/model/Project.h"

#include <memory>
#include <vector>

namespace workbench {

/// Adds to warnings what could not be taken as it stands, such as an identifier that occurs twice.
std::unique_ptr<Project> CreateProject(const ifc::ImportedBuilding& building, std::vector<Finding>& warnings);

} // namespace workbench
