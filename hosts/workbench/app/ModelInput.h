// Opens what the user names as MODEL: an IFC file, which becomes a new project, or a project file.
#pragma once

#include "workbench/app/Outcome.h"
#include "workbench/app/ProgressObserver.h"
#include "workbench/ifc/ImportedBuilding.h"
#include "workbench/model/Project.h"
#include "workbench/store/ProjectFile.h"

#include <memory>
#include <string>
#include <vector>

namespace workbench {

struct ModelInput {
    std::unique_ptr<Project> project;
    std::optional<ifc::ImportedBuilding> building; ///< of an IFC file: its findings; the elements are in the project
    std::vector<std::string> warnings;             ///< whole sentences
};

bool IsProjectFile(const std::string& path);
/// Whether both name the same existing file.
bool IsSameFile(const std::string& a, const std::string& b);

/// The observer hears how far the reading of an IFC file is.
Outcome OpenModel(const std::string& path, KeepChanges keep, const ProgressObserver& observer, ModelInput& input);

/// Findings of the import as sentences, one an element.
std::vector<std::string> ListFindings(const ifc::ImportedBuilding& building);

} // namespace workbench
