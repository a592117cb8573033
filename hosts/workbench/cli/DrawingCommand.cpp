// drawing: a picture of a database with its placed objects.
#include "workbench/cli/Commands.h"
#include "workbench/cli/Opening.h"
#include "workbench/cli/Options.h"
#include "workbench/images/DatabaseDrawing.h"

#include <algorithm>

namespace workbench::cli {

Outcome RunDrawing(const std::string& path, const std::string& name, const std::string& png) {
    const Result<OpenedModel> opened = OpenModel({path});
    if (opened.HasFailed()) return opened;
    const Model& model = opened.Get().GetModel();
    Result<host::Database> database = FindDatabase(model, "--database", name);
    if (database.HasFailed()) return database;
    const host::Guid& id = database.Get().id;
    const bool isEmpty = std::none_of(model.GetPlacedObjects().begin(), model.GetPlacedObjects().end(),
                                      [&](const PlacedObject& object) { return object.database == id; });
    if (isEmpty) PrintNote("nothing is placed there; the picture is empty");
    const Outcome drawn = DrawDatabase(model, id, png);
    return drawn.HasFailed() ? Failure::Output(drawn.GetText() + ", and that the name ends in .png") : drawn;
}

} // namespace workbench::cli
