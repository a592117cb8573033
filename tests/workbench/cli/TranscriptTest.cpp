// Lines of a user at a shell and all that comes back: the reviewed transcripts in expected/ hold both.
#include "Program.h"

#include "support/Answers.h"
#include "support/PeakMemory.h"
#include "support/TestFolder.h"

namespace {

class Transcript : public testing::TestWithParam<const char*> {};

/// What differs from run to run.
std::string Mask(const std::string& text) {
    const std::string time = support::Masked(text, "####-##-## ##:##:##", "TIME");
    return support::Masked(time, "kelvarnix-charts-??????", "kelvarnix-charts-XXXXXX");
}

/// A line that begins with "$ " is typed, with the lines that begin with "> " after it; those with "# " before it are
/// comments. What follows is the answer, and the exit code where it is not 0.
TEST_P(Transcript, IsAsReviewed) {
    const support::TestFolder folder;
    const std::string file = std::string("workbench/cli/expected/") + GetParam() + ".txt";
    std::istringstream reviewed(support::ApprovedText(file));
    std::string found, line;
    for (std::getline(reviewed, line); reviewed;) {
        const bool isTyped = line.compare(0, 2, "$ ") == 0;
        if (isTyped || line.compare(0, 1, "#") == 0) found += line + "\n";
        std::string typed = isTyped ? line.substr(2) : "";
        while (std::getline(reviewed, line) && isTyped && line.compare(0, 2, "> ") == 0) {
            typed.append("\n").append(line.substr(2));
            found += line + "\n";
        }
        if (!isTyped) continue;
        const clitest::Finished finished = clitest::Shell(folder.GetPath(), typed);
        EXPECT_LT(finished.peakKiB, support::GibibyteInKiB) << typed;
        found += Mask(finished.output);
        if (!found.ends_with('\n')) found += '\n';
        if (finished.code != 0) found.append("[").append(std::to_string(finished.code)).append("]\n");
    }
    support::ExpectApproved(file, found);
}

INSTANTIATE_TEST_SUITE_P(Cli, Transcript,
                         testing::Values("assess", "settings", "overviews", "quantities", "refusals", "energy",
                                         "reports", "teamwork", "odd-models", "large-files"),
                         [](const auto& info) {
                             std::string name = info.param;
                             std::erase(name, '-');
                             return name;
                         });

} // namespace
