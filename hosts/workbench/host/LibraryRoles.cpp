#include "workbench/host/LibraryRoles.h"

#include <utility>

namespace workbench {

namespace {

/// Length of the first of an identifier pair. The second is the revision: any of a part's revisions stands for it.
constexpr std::size_t MainIdentifierLength = 38;

/// An index of 0 where the part is not loaded.
host::LibraryPartIndex FindPart(const Model& model, const std::string& identifier) {
    const std::string main = identifier.substr(0, MainIdentifierLength);
    for (std::size_t i = 0; i < model.libraryParts.size(); ++i)
        if (model.libraryParts[i].identifier.substr(0, MainIdentifierLength) == main)
            return {static_cast<std::int32_t>(i + 1)};
    return {};
}

const LibraryPart* GetPart(const Model& model, host::LibraryPartIndex index) {
    const bool isInside = index.value >= 1 && static_cast<std::size_t>(index.value) <= model.libraryParts.size();
    return isInside ? &model.libraryParts[static_cast<std::size_t>(index.value - 1)] : nullptr;
}

/// Null where there is none of an object.
const FavouriteRow* FindFavourite(const Model& model, const std::string& name) {
    for (const FavouriteRow& row : model.favourites)
        if (row.name == name && row.isObject) return &row;
    return nullptr;
}

/// What an object of the source starts as, without identifier and place; BadName or BadId where there is none.
host::ErrorCode MakeObject(const Model& model, const host::ObjectSource& source, PlacedObject& object) {
    object = {};
    const LibraryPart* part = GetPart(model, source.libraryPart);
    if (source.favourite.empty()) {
        if (part == nullptr) return host::Errors::BadId;
        object.libraryPart = part->identifier;
        object.parameters = part->parameters;
        return host::NoError;
    }
    const FavouriteRow* row = FindFavourite(model, source.favourite);
    if (row == nullptr) return host::Errors::BadName;
    part = GetPart(model, FindPart(model, row->libraryPart));
    if (part == nullptr) return host::Errors::BadId;
    object.libraryPart = part->identifier;
    object.angle = row->angle;
    object.xRatio = row->xRatio;
    object.yRatio = row->yRatio;
    object.parameters = row->parameters;
    return host::NoError;
}

} // namespace

host::ErrorCode LibrariesRole::FindObject(const std::string& identifier, host::LibraryPartIndex& part) {
    if (project == nullptr) return host::Errors::NoProject;
    part = FindPart(project->model, identifier);
    return part.value == 0 ? host::Errors::BadId : host::NoError;
}

host::ErrorCode LibrariesRole::ListFavourites(const std::string& mainIdentifier, std::vector<std::string>& names) {
    if (project == nullptr) return host::Errors::NoProject;
    names.clear();
    for (const FavouriteRow& row : project->model.favourites)
        if (row.isObject && row.libraryPart.substr(0, MainIdentifierLength) == mainIdentifier)
            names.push_back(row.name);
    return host::NoError;
}

host::ErrorCode LibrariesRole::ReadParameters(const host::ObjectSource& source,
                                              std::vector<host::ObjectParameter>& parameters) {
    if (project == nullptr) return host::Errors::NoProject;
    PlacedObject object;
    if (const host::ErrorCode error = MakeObject(project->model, source, object)) return error;
    parameters = std::move(object.parameters);
    return host::NoError;
}

host::ErrorCode PlacedObjectsRole::ReadLibraryPart(const host::Guid& object, host::LibraryPartIndex& part) {
    if (project == nullptr) return host::Errors::NoProject;
    const PlacedObject* found = Find(object);
    if (found == nullptr) return host::Errors::BadId;
    part = FindPart(project->model, found->libraryPart);
    return host::NoError;
}

host::ErrorCode PlacedObjectsRole::ReadParameters(const host::Guid& object,
                                                  std::vector<host::ObjectParameter>& parameters) {
    if (project == nullptr) return host::Errors::NoProject;
    const PlacedObject* found = Find(object);
    if (found == nullptr) return host::Errors::BadId;
    parameters = found->parameters;
    return host::NoError;
}

host::ErrorCode PlacedObjectsRole::WriteParameters(const host::Guid& object,
                                                   const std::vector<host::ObjectParameter>& parameters) {
    if (project == nullptr) return host::Errors::NoProject;
    if (!project->IsInCommand()) return host::Errors::NeedsUndoScope;
    const PlacedObject* found = Find(object);
    if (found == nullptr) return host::Errors::BadId;
    if (found->parameters == parameters) return host::NoError;
    PlacedObject changed = *found;
    changed.parameters = parameters;
    project->Record({*found, std::move(changed)});
    return host::NoError;
}

host::ErrorCode PlacedObjectsRole::Create(const host::ObjectSource& source, const host::Point& position,
                                          const std::vector<host::ObjectParameter>& parameters, host::Guid& object) {
    if (project == nullptr) return host::Errors::NoProject;
    if (!project->IsInCommand()) return host::Errors::NeedsUndoScope;
    if (databases.GetCurrent().type == host::DatabaseType::Model3D) return host::Errors::BadDatabase;
    PlacedObject created;
    if (const host::ErrorCode error = MakeObject(project->model, source, created)) return error;
    created.guid = object = host::CreateGuid();
    created.database = databases.GetCurrent().id;
    created.position = position;
    for (host::ObjectParameter& own : created.parameters)
        for (const host::ObjectParameter& given : parameters)
            if (given.name == own.name) own = given;
    project->Record({{}, std::move(created)});
    return host::NoError;
}

const PlacedObject* PlacedObjectsRole::Find(const host::Guid& object) const {
    for (const PlacedObject& one : project->model.GetPlacedObjects())
        if (one.guid == object && one.database == databases.GetCurrent().id) return &one;
    return nullptr;
}

} // namespace workbench
