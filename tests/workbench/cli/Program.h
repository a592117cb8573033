// Runs the kelvarnix program as a user does: arguments in, texts and exit code out, no shell in between.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace clitest {

struct Finished {
    int code = -1; ///< exit code; 1000 + signal when it was killed
    std::string output;
    std::string errors;
    long peakKiB = 0; ///< largest resident memory of the program and of its children
};

struct Surroundings {
    std::string outputPath;        ///< where standard output goes; empty: into Finished::output
    std::function<bool()> prepare; ///< in the new process before the program starts; false ends it with code 99
};

[[nodiscard]] Finished Kelvarnix(const std::vector<std::string>& arguments, const Surroundings& surroundings = {});

[[nodiscard]] bool Contains(const std::string& text, const std::string& part);

/// Fails the test unless the program ended with the code and said one plain sentence that names the file or argument
/// and holds the part.
void ExpectRefusal(const Finished& finished, int code, const std::string& name, const std::string& part);

} // namespace clitest
