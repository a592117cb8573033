#include "workbench/host/LibraryRoles.h"

namespace workbench {

host::ErrorCode LibrariesRole::FindObject(const std::string&, host::LibraryPartIndex&) {
    return host::Errors::BadId;
}

host::ErrorCode LibrariesRole::ReadDefaults(host::LibraryPartIndex, host::ObjectElement&,
                                            std::vector<host::ObjectParameter>&) {
    return host::Errors::BadIndex;
}

host::ErrorCode LibrariesRole::ListFavourites(std::vector<std::string>& names) {
    names.clear();
    return host::NoError;
}

host::ErrorCode LibrariesRole::ReadFavourite(const std::string&, host::Favourite&) {
    return host::Errors::BadName;
}

host::ErrorCode PlacedObjectsRole::Read(const host::Guid&, host::ObjectElement&) {
    return host::Errors::BadId;
}

host::ErrorCode PlacedObjectsRole::ReadParameters(const host::Guid&, std::vector<host::ObjectParameter>&) {
    return host::Errors::BadId;
}

host::ErrorCode PlacedObjectsRole::WriteParameters(const host::Guid&, const std::vector<host::ObjectParameter>&) {
    return host::Errors::BadId;
}

host::ErrorCode PlacedObjectsRole::Create(const host::ObjectElement&, const std::vector<host::ObjectParameter>&,
                                          host::Guid&) {
    return host::Errors::BadId;
}

} // namespace workbench
