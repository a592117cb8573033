// Looks at the text of an IFC file before the reading library does: refuses what is no whole IFC file of a schema that
// the library reads, and hands the library a plain form of the text, because it loses letters, doubles apostrophes and
// takes noise for entities.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/ifc/IfcImport.h"

namespace workbench::ifc {

/// What is wrong with the file: the middle of a sentence that starts with the file's name, and what to do.
struct StepProblem {
    ImportError code = ImportError::NotIfc;
    std::string what; ///< "is empty", "is cut off in line 12"
    std::string advice;
};

/// One density in the older schema's own entity, in the file's units.
struct StatedDensity {
    int material = 0; ///< entity number
    double value = 0.0;
};

struct PreparedStep {
    std::string schema; ///< "IFC2X3" or "IFC4"
    /// The whole file, one statement a line, without comments. A string with anything but letters, digits, blanks and
    /// "_$.,:+-" is written as '~N', N an index into STRINGS.
    std::string text;
    std::vector<std::string> strings;    ///< decoded, UTF-8
    std::map<std::string, int> keywords; ///< how many entities by keyword
    std::vector<StatedDensity> densities;
};

struct StepHeader {
    std::string schema;         ///< "IFC2X3" or "IFC4"
    std::size_t dataOffset = 0; ///< behind "DATA;"
};

/// At most this much of a file's start is looked at for the header.
inline constexpr std::size_t HeaderLimit = 1 << 20;

/// START is the file's first bytes, all of them or at least HeaderLimit. Either the header or PROBLEM is set.
[[nodiscard]] std::optional<StepHeader> ReadStepHeader(std::string_view start, StepProblem& problem);

/// FILE is the whole text. Either the prepared text or PROBLEM is set. Needs about twice the file's size in memory.
[[nodiscard]] std::optional<PreparedStep> PrepareStep(std::string_view file, StepProblem& problem);

/// The decoded text of a string in PREPARED's text, given without its apostrophes.
[[nodiscard]] std::string ResolveString(const std::vector<std::string>& strings, std::string_view written);

} // namespace workbench::ifc
