// Results of an energy evaluation on their way into the project: what a user does in the energy evaluation add-on.
#pragma once

#include "workbench/app/Session.h"

#include "host/EnergyExchange.h"
#include "host/ObjectState.h"
#include "lca/LCAProjectData.h"

namespace workbench {

/// Menu texts of the registered export targets. A failure when the energy evaluation is not there.
Result<std::vector<std::string>> ListExportTargets(Session& session);

struct EnergyTransfer {
    lca::LCAProjectData before; ///< the record as the project had it
    lca::LCAProjectData after;
    host::ObjectState request; ///< the export settings that the target asked for
};

/// Exports the file to the target of this menu text.
Result<EnergyTransfer> ExportEnergyData(Session& session, const std::string& file, const std::string& target);

/// What counts of a floor quantity before and after.
struct QuantityChange {
    std::string name;
    std::string before;
    std::string after;
    std::string unit;
    std::string source; ///< where the value after is taken from
    bool isChanged = false;
};

std::vector<QuantityChange> ListQuantities(const EnergyTransfer& transfer);
/// A sentence for each quantity that the transfer changed; one when it changed nothing.
std::vector<std::string> DescribeChanges(const EnergyTransfer& transfer, const std::string& file);

} // namespace workbench
