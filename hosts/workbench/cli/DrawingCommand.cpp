// drawing: a picture of a database with its placed objects.
#include "workbench/cli/Commands.h"
#include "workbench/cli/ModelInput.h"
#include "workbench/images/DatabaseDrawing.h"

#include <algorithm>

namespace workbench::cli {

namespace {

constexpr char FloorPlanName[] = "Floor plan";

Outcome FindDatabase(const Model& model, const std::string& name, host::Guid& database) {
    if (name.empty() || name == FloorPlanName) return {};
    std::string names = FloorPlanName;
    for (const DatabaseRow& row : model.databases) {
        names.append(", ").append(row.name);
        if (row.name != name) continue;
        database = row.guid;
        return {};
    }
    return Failure{UsageError, "--database " + name + ": the project has no database of this name; it has " + names};
}

} // namespace

Outcome RunDrawing(const std::string& path, const std::string& name, const std::string& png) {
    ModelInput input;
    host::Guid database;
    if (Outcome failure = OpenModel(path, KeepChanges::InMemory, input)) return failure;
    const Model& model = input.project->model;
    if (Outcome failure = FindDatabase(model, name, database)) return failure;
    const bool isEmpty = std::none_of(model.GetPlacedObjects().begin(), model.GetPlacedObjects().end(),
                                      [&](const PlacedObject& object) { return object.database == database; });
    if (isEmpty) PrintNote("nothing is placed there; the picture is empty");
    if (DrawDatabase(model, database, png)) return {};
    return Failure{OutputUnwritable, png +
                                         ": the picture cannot be written; check the folder, its rights and the disk, "
                                         "and that the name ends in .png"};
}

} // namespace workbench::cli
