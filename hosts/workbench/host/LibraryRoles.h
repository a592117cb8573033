// Library parts, favourites and placed objects of the open project.
#pragma once

#include "host/Libraries.h"
#include "workbench/host/Access.h"

namespace workbench {

class LibrariesRole : public host::Libraries {
public:
    host::ErrorCode FindObject(const std::string& identifier, host::LibraryPartIndex& part) override;
    host::ErrorCode ReadDefaults(host::LibraryPartIndex part, host::ObjectElement& element,
                                 std::vector<host::ObjectParameter>& parameters) override;
    host::ErrorCode ListFavourites(std::vector<std::string>& names) override;
    host::ErrorCode ReadFavourite(const std::string& name, host::Favourite& favourite) override;
};

class PlacedObjectsRole : public host::PlacedObjects {
public:
    host::ErrorCode Read(const host::Guid& object, host::ObjectElement& element) override;
    host::ErrorCode ReadParameters(const host::Guid& object, std::vector<host::ObjectParameter>& parameters) override;
    host::ErrorCode WriteParameters(const host::Guid& object,
                                    const std::vector<host::ObjectParameter>& parameters) override;
    host::ErrorCode Create(const host::ObjectElement& element, const std::vector<host::ObjectParameter>& parameters,
                           host::Guid& object) override;
};

} // namespace workbench
