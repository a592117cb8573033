#include "workbench/cli/Waiting.h"

#include "workbench/cli/ProgressBar.h"

#include <filesystem>

namespace workbench::cli {

Outcome ReadModel(const std::string& path, KeepChanges keep, ModelInput& input) {
    ProgressBar bar("Reading " + std::filesystem::path(path).filename().string());
    return OpenModel(
        path, keep, [&](double share) { bar.Show(share); }, input);
}

Outcome Calculate(Session& session) {
    ProgressBar bar("Calculating");
    return session.UpdateResults([&](double share) { bar.Show(share); });
}

} // namespace workbench::cli
