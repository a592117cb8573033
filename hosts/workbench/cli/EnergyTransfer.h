// Results of an energy evaluation on their way into the project: what a user does in the energy evaluation add-on.
#pragma once

#include "workbench/cli/Session.h"

#include "host/EnergyExchange.h"
#include "host/ObjectState.h"
#include "lca/LCAProjectData.h"

namespace workbench::cli {

/// Menu texts of the registered export targets. A failure when the energy evaluation is not there.
Outcome ListExportTargets(Session& session, std::vector<std::string>& menuTexts);

struct EnergyTransfer {
    lca::LCAProjectData before; ///< the record as the project had it
    lca::LCAProjectData after;
    host::ObjectState request; ///< the export settings that the target asked for
};

/// Exports the file to the target of this menu text; an empty text is the only target.
Outcome ExportEnergyData(Session& session, const std::string& file, const std::string& target,
                         EnergyTransfer& transfer);

/// One line a floor quantity: what counts before and after.
std::string WriteQuantities(const EnergyTransfer& transfer);
/// A sentence for each quantity that the transfer changed; one when it changed nothing.
std::vector<std::string> DescribeChanges(const EnergyTransfer& transfer, const std::string& file);

} // namespace workbench::cli
