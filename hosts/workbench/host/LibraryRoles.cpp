#include "workbench/host/LibraryRoles.h"

#include <algorithm>

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

} // namespace

host::ErrorCode LibrariesRole::FindObject(const std::string& identifier, host::LibraryPartIndex& part) {
    if (project == nullptr) return host::Errors::NoProject;
    part = FindPart(project->model, identifier);
    return part.value == 0 ? host::Errors::BadId : host::NoError;
}

host::ErrorCode LibrariesRole::ReadDefaults(host::LibraryPartIndex part, host::ObjectElement& element,
                                            std::vector<host::ObjectParameter>& parameters) {
    if (project == nullptr) return host::Errors::NoProject;
    const LibraryPart* found = GetPart(project->model, part);
    if (found == nullptr) return host::Errors::BadIndex;
    element = {};
    element.libraryPart = part;
    parameters = found->parameters;
    return host::NoError;
}

host::ErrorCode LibrariesRole::ListFavourites(std::vector<std::string>& names) {
    if (project == nullptr) return host::Errors::NoProject;
    names.clear();
    for (const FavouriteRow& row : project->model.favourites)
        names.push_back(row.name);
    return host::NoError;
}

host::ErrorCode LibrariesRole::ReadFavourite(const std::string& name, host::Favourite& favourite) {
    if (project == nullptr) return host::Errors::NoProject;
    const std::vector<FavouriteRow>& rows = project->model.favourites;
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const FavouriteRow& one) { return one.name == name; });
    if (row == rows.end()) return host::Errors::BadName;
    favourite = {};
    favourite.isObject = row->isObject;
    favourite.libraryPartId = row->libraryPart;
    favourite.element = {FindPart(project->model, row->libraryPart), {}, row->angle, row->xRatio, row->yRatio};
    favourite.parameters = row->parameters;
    return host::NoError;
}

host::ErrorCode PlacedObjectsRole::Read(const host::Guid& object, host::ObjectElement& element) {
    if (project == nullptr) return host::Errors::NoProject;
    const PlacedObject* found = Find(object);
    if (found == nullptr) return host::Errors::BadId;
    element = {FindPart(project->model, found->libraryPart), found->position, found->angle, found->xRatio,
               found->yRatio};
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

host::ErrorCode PlacedObjectsRole::Create(const host::ObjectElement& element,
                                          const std::vector<host::ObjectParameter>& parameters, host::Guid& object) {
    if (project == nullptr) return host::Errors::NoProject;
    if (!project->IsInCommand()) return host::Errors::NeedsUndoScope;
    const LibraryPart* part = GetPart(project->model, element.libraryPart);
    if (part == nullptr) return host::Errors::BadId;
    if (databases.GetCurrent().type == host::DatabaseType::Model3D) return host::Errors::BadDatabase;
    object = host::CreateGuid();
    project->Record({{},
                     PlacedObject{object, databases.GetCurrent().id, part->identifier, element.position, element.angle,
                                  element.xRatio, element.yRatio, parameters}});
    return host::NoError;
}

const PlacedObject* PlacedObjectsRole::Find(const host::Guid& object) const {
    for (const PlacedObject& one : project->model.GetPlacedObjects())
        if (one.guid == object && one.database == databases.GetCurrent().id) return &one;
    return nullptr;
}

} // namespace workbench
