// How a command ends: exit code, and for a failure the sentence that the user reads.
#pragma once

#include <optional>
#include <string>

namespace workbench::cli {

enum ExitCode : int { Done = 0, UsageError = 2, InputUnreadable = 3, StrictFindings = 4, OutputUnwritable = 5 };

struct Failure {
    ExitCode code = UsageError;
    std::string sentence; ///< names the file or argument and says what to do
};

/// Empty: all went well.
using Outcome = std::optional<Failure>;

} // namespace workbench::cli
