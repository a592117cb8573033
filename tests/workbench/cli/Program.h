// Runs a line as a user types it at a shell.
#pragma once

#include <string>

namespace clitest {

struct Finished {
    int code = -1;      ///< exit code; 1000 + signal when it was killed
    std::string output; ///< both streams, as they come
    long peakKiB = 0;   ///< largest resident memory of the programs
};

/// The line may name the programs, $SAMPLES, $SHARED and the files beside these tests ($HERE); `sql FILE STATEMENT`
/// asks a project file.
[[nodiscard]] Finished Shell(const std::string& folder, const std::string& line);

[[nodiscard]] bool Contains(const std::string& text, const std::string& part);

} // namespace clitest
