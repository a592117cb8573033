// What may take a while, under a progress bar: it shows on a terminal after a second.
#pragma once

#include "workbench/app/OpenedModel.h"

namespace workbench::cli {

/// file and savePath as for OpenedModel::Open.
Result<OpenedModel> OpenModel(const ModelFile& file, const std::string& savePath = {});
Outcome Calculate(Session& session);

} // namespace workbench::cli
