// What may take a while, under a progress bar: it shows on a terminal after a second.
#pragma once

#include "workbench/app/ModelInput.h"
#include "workbench/app/Session.h"

namespace workbench::cli {

Outcome ReadModel(const std::string& path, KeepChanges keep, ModelInput& input);
Outcome Calculate(Session& session);

} // namespace workbench::cli
