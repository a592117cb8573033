// How an action ends: done, or a failure whose kind a program tells by its exit code, with a sentence for the user.
#pragma once

#include <optional>
#include <string>

namespace workbench {

enum ExitCode : int { Done = 0, UsageError = 2, InputUnreadable = 3, StrictFindings = 4, OutputUnwritable = 5 };

struct Failure {
    ExitCode code = UsageError;
    std::string sentence; ///< names the file or argument and says what to do
};

/// Empty: all went well.
using Outcome = std::optional<Failure>;

} // namespace workbench
