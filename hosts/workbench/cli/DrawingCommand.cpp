// drawing: a picture of a database with its placed objects.
#include "workbench/app/ModelInput.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Placing.h"
#include "workbench/cli/Waiting.h"
#include "workbench/images/DatabaseDrawing.h"

#include <algorithm>

namespace workbench::cli {

Outcome RunDrawing(const std::string& path, const std::string& name, const std::string& png) {
    ModelInput input;
    host::Database database;
    if (Outcome failure = ReadModel(path, KeepChanges::InMemory, input)) return failure;
    const Model& model = input.project->model;
    if (Outcome failure = FindDatabase(model, "--database", name, database)) return failure;
    const bool isEmpty = std::none_of(model.GetPlacedObjects().begin(), model.GetPlacedObjects().end(),
                                      [&](const PlacedObject& object) { return object.database == database.id; });
    if (isEmpty) PrintNote("nothing is placed there; the picture is empty");
    if (DrawDatabase(model, database.id, png)) return {};
    return Failure{OutputUnwritable, png +
                                         ": the picture cannot be written; check the folder, its rights and the disk, "
                                         "and that the name ends in .png"};
}

} // namespace workbench::cli
