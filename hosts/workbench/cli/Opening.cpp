#include "workbench/cli/Opening.h"

#include "workbench/cli/ProgressBar.h"

#include <filesystem>

namespace workbench::cli {

Result<OpenedModel> OpenModel(const ModelFile& file, const std::string& savePath) {
    ProgressBar bar("Reading " + std::filesystem::path(file.path).filename().string());
    return OpenedModel::Open(file, savePath, [&](double share) { bar.Show(share); });
}

Outcome Calculate(Session& session) {
    ProgressBar bar("Calculating");
    return session.UpdateResults([&](double share) { bar.Show(share); });
}

} // namespace workbench::cli
