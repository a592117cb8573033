// The tables through which a host and the module find each other. Both begin with version and size, so that a side
// built against another version of the interface is refused rather than called incorrectly.
#pragma once

#include "host/Values.h"

namespace host {

class Host;

/// Must be raised whenever a role gains, loses or reorders an operation.
inline constexpr std::uint32_t InterfaceVersion = 6;

/// What the environment check learns about the host and tells it about the add-on.
struct Environment {
    std::int32_t applicationCode = 0; ///< 1 is the application that this add-on is made for
    std::string addOnName;
    std::string addOnDescription;
};

inline constexpr std::int32_t ArchiCADApplicationCode = 1;

/// Results of the environment check; the numbers are the host's.
enum class AddOnType : std::int32_t { DoNotRegister = 0, Normal = 1, Preload = 2 };

/// From the host to the module.
struct ImportedFunctions {
    std::uint32_t version = InterfaceVersion;
    std::uint32_t size = sizeof(ImportedFunctions);
    Host* host = nullptr; ///< owned by the host; outlives the module
};

/// From the module to the host, after the other table. The host fills in version and size; the module checks them and
/// fills in the rest.
struct ExportedFunctions {
    std::uint32_t version = InterfaceVersion;
    std::uint32_t size = sizeof(ExportedFunctions);
    ModuleId moduleId; ///< other add-ons call this one by it
    AddOnType (*checkEnvironment)(Environment& environment) = nullptr;
    ErrorCode (*registerInterface)() = nullptr;
    ErrorCode (*initialise)() = nullptr;
    ErrorCode (*freeData)() = nullptr;
};

/// Whether the table is present and from a side with the same version of the interface.
template <typename Table>
bool IsOfThisInterface(const Table* table) {
    return table != nullptr && table->version == InterfaceVersion && table->size == sizeof(Table);
}

/// The module's two exports, which return an error code as a plain number: BadParameters for a null table or a table of
/// another version or size.
using SetImportedFunctions = std::int32_t (*)(const ImportedFunctions* functions);
using GetExportedFunctions = std::int32_t (*)(ExportedFunctions* functions);
inline constexpr char SetImportedFunctionsName[] = "SetImportedFuncAddrs";
inline constexpr char GetExportedFunctionsName[] = "GetExportedFuncAddrs";

} // namespace host
