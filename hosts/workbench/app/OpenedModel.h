// A model on which somebody works: read from an IFC file, which becomes a new project, or from a project file; then,
// where that is wanted, open in the add-on's session; at last saved.
#pragma once

#include "workbench/app/Findings.h"
#include "workbench/app/ModelSettings.h"
#include "workbench/app/ProgressObserver.h"
#include "workbench/app/Session.h"
#include "workbench/ifc/ImportedBuilding.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

bool IsProjectFile(const std::string& path);

/// A model and how to read it.
struct ModelFile {
    std::string path;
    std::string codePage = {}; ///< of the texts of an IFC file, by iconv's name; empty: found out from them
    bool everyBody = false;    ///< of an IFC file: computed also where only stated quantities count
};

/// What a user states about a model before it is calculated.
struct StatedValues {
    MaterialTable table;
    RecordSettings settings;
    std::vector<ElementSetting> elements;

    bool IsEmpty() const { return table.GetRows().empty() && settings.IsEmpty() && elements.empty(); }
};

class OpenedModel {
public:
    /// Reads the model; the observer hears how far the reading of an IFC file is. savePath is the project file that
    /// Save writes; where it is the model's own, every change is written as it happens. Empty: nothing is kept.
    static Result<OpenedModel> Open(const ModelFile& file, const std::string& savePath,
                                    const ProgressObserver& observer);

    /// Opens the model in a session of the add-on. Once.
    Outcome Start(Actor actor);
    /// Writes what is stated into the project, after Start. The value tells of what was taken from the model besides.
    Result<std::vector<std::string>> Apply(const StatedValues& values);
    /// Makes sure that the project with all changes is in the file that was named for it.
    Outcome Save() const;

    const std::string& GetPath() const { return path; }
    Project& GetProject() const { return session ? session->GetProject() : *project; }
    const Model& GetModel() const { return GetProject().model; }
    /// After Start.
    Session& GetSession() const { return *session; }
    /// Of an IFC file: its findings; the elements are in the project.
    const std::optional<ifc::ImportedBuilding>& GetBuilding() const { return building; }
    /// What the reading had to say.
    const std::vector<Finding>& GetWarnings() const { return warnings; }
    /// Findings of the import, one an element.
    std::vector<Finding> ListFindings() const;

private:
    OpenedModel(std::string path, std::string savePath) : path(std::move(path)), savePath(std::move(savePath)) {}

    Outcome ReadIfc(const ModelFile& file, const ProgressObserver& observer);
    Outcome ReadProject();

    std::string path;
    std::string savePath;
    std::unique_ptr<Project> project; ///< until the session takes it
    std::unique_ptr<Session> session;
    std::optional<ifc::ImportedBuilding> building;
    std::vector<Finding> warnings;
};

} // namespace workbench
