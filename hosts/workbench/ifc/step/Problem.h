// What is wrong with a text that should be a STEP file.
#pragma once

#include <cstdint>
#include <string>

namespace workbench::step {

enum class ProblemKind : std::uint8_t {
    NotStep, ///< empty, noise, or a file of another kind
    Damaged  ///< begins as a STEP file, and is cut off or disturbed
};

/// The middle of a sentence that starts with the file's name, and what to do.
struct Problem {
    ProblemKind kind = ProblemKind::NotStep;
    std::string what;   ///< "is empty", "is cut off in line 12"
    std::string advice; ///< a sentence of its own
};

} // namespace workbench::step
