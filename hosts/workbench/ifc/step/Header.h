// The header of a STEP file: what it says of itself before its data.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/ifc/step/Problem.h"

namespace workbench::step {

struct Header {
    std::vector<std::string> descriptions; ///< of FILE_DESCRIPTION: "ViewDefinition [CoordinationView]"
    std::string fileName;                  ///< these three of FILE_NAME; may be empty
    std::string preprocessor;
    std::string originatingSystem;
    std::string schema;         ///< first name of FILE_SCHEMA in capitals; empty where the file gives none
    std::size_t dataOffset = 0; ///< behind "DATA;"
};

/// At most this much of a file's start need be looked at for the header.
inline constexpr std::size_t HeaderLimit = 1 << 20;

/// START is the file's first bytes, all of them or at least HeaderLimit. Either the header or PROBLEM is set.
[[nodiscard]] std::optional<Header> ReadHeader(std::string_view start, Problem& problem);

/// The problem of a text that ends within a statement that began at AT, and of one that cannot be understood there.
[[nodiscard]] Problem CutOffAt(std::string_view text, std::size_t at);
[[nodiscard]] Problem DamagedAt(std::string_view text, std::size_t at);

} // namespace workbench::step
