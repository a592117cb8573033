// The tables through which a host and the module find each other. Both begin with version and size, so that a side
// built from another state of the interface is refused instead of called wrongly.
#pragma once

#include "host/Values.h"

namespace host {

class Host;

/// Raised whenever a role gains, loses or reorders an operation.
inline constexpr std::uint32_t InterfaceVersion = 5;

/// What the environment check learns of the host, and what it tells of the add-on.
struct Environment {
    std::int32_t applicationCode = 0; ///< 1 is the application that this add-on is made for
    std::string addOnName;
    std::string addOnDescription;
};

inline constexpr std::int32_t ArchiCADApplicationCode = 1;

/// Answers of the environment check by the host's numbers.
enum class AddOnType : std::int32_t { DoNotRegister = 0, Normal = 1, Preload = 2 };

/// From the host to the module.
struct ImportedFunctions {
    std::uint32_t version = InterfaceVersion;
    std::uint32_t size = sizeof(ImportedFunctions);
    Host* host = nullptr; ///< the host's; outlives the module
};

/// From the module to the host, after the other table. The host fills in version and size, the module checks them and
/// fills in the rest.
struct ExportedFunctions {
    std::uint32_t version = InterfaceVersion;
    std::uint32_t size = sizeof(ExportedFunctions);
    ModuleId moduleId; ///< by which other add-ons call this one
    AddOnType (*checkEnvironment)(Environment& environment) = nullptr;
    ErrorCode (*registerInterface)() = nullptr;
    ErrorCode (*initialise)() = nullptr;
    ErrorCode (*freeData)() = nullptr;
};

/// Whether a table came, and from a side of the same state.
template <typename Table>
bool IsOfThisInterface(const Table* table) {
    return table != nullptr && table->version == InterfaceVersion && table->size == sizeof(Table);
}

/// The module's two exports, which answer an error code as a bare number. BadParameters for a null table or one of
/// another version or size.
using SetImportedFunctions = std::int32_t (*)(const ImportedFunctions* functions);
using GetExportedFunctions = std::int32_t (*)(ExportedFunctions* functions);
inline constexpr char SetImportedFunctionsName[] = "SetImportedFuncAddrs";
inline constexpr char GetExportedFunctionsName[] = "GetExportedFuncAddrs";

} // namespace host
