// Why a file cannot be imported, and what can be told of that from its header alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/ifc/IfcImport.h"
#include "workbench/ifc/archive/Unpacking.h"
#include "workbench/ifc/step/Header.h"
#include "workbench/ifc/step/Problem.h"

namespace workbench::ifc {

/// The middle of a sentence that starts with the file's name, and what to do.
struct ImportProblem {
    ImportError code = ImportError::NotIfc;
    std::string what; ///< "is empty", "is cut off in line 12"
    std::string advice;
};

[[nodiscard]] ImportProblem ProblemOf(const step::Problem& problem);

[[nodiscard]] ImportProblem ProblemOf(archive::UnpackProblem problem);

/// The problem of a file whose schema is not read.
[[nodiscard]] std::optional<ImportProblem> RefuseSchema(const step::Header& header);

/// The same, and that of a file that is no STEP file. START is as for step::ReadHeader. Of a compressed file nothing is
/// known before it is unpacked.
[[nodiscard]] std::optional<ImportProblem> RefuseStart(std::string_view start);

} // namespace workbench::ifc
