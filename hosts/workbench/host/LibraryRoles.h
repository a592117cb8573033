// Library parts, favourites and placed objects of the open project.
#pragma once

#include "host/Libraries.h"
#include "workbench/host/Access.h"
#include "workbench/host/DatabasesRole.h"

namespace workbench {

/// A part's index is its position in the project's list, counted from 1.
class LibrariesRole : public host::Libraries {
public:
    explicit LibrariesRole(Project*& project) : project(project) {}

    host::ErrorCode FindObject(const std::string& identifier, host::LibraryPartIndex& part) override;
    host::ErrorCode ListFavourites(const std::string& mainIdentifier, std::vector<std::string>& names) override;
    host::ErrorCode ReadParameters(const host::ObjectSource& source,
                                   std::vector<host::ObjectParameter>& parameters) override;

private:
    Project*& project;
};

class PlacedObjectsRole : public host::PlacedObjects {
public:
    PlacedObjectsRole(Project*& project, const DatabasesRole& databases) : project(project), databases(databases) {}

    host::ErrorCode ReadLibraryPart(const host::Guid& object, host::LibraryPartIndex& part) override;
    host::ErrorCode ReadParameters(const host::Guid& object, std::vector<host::ObjectParameter>& parameters) override;
    host::ErrorCode WriteParameters(const host::Guid& object,
                                    const std::vector<host::ObjectParameter>& parameters) override;
    host::ErrorCode Create(const host::ObjectSource& source, const host::Point& position,
                           const std::vector<host::ObjectParameter>& parameters, host::Guid& object) override;

private:
    /// In the current database; null where there is none.
    const PlacedObject* Find(const host::Guid& object) const;

    Project*& project;
    const DatabasesRole& databases;
};

} // namespace workbench
