// What a user does in the energy evaluation, given to it as commands.
#pragma once

#include "host/AddOnCommands.h"
#include "host/ObjectState.h"
#include "workbench/commands/PartnerCommands.h"

#include <string>
#include <vector>

namespace workbench::energy {

/// Menu texts of the export targets, in the order of registration.
host::ErrorCode ListTargets(host::AddOnCommands& lists, std::vector<std::string>& menuTexts);

/// Exports a UTF-8 document to the target of this menu text; settings become what the target asked for, or stay empty
/// while it was not asked.
host::ErrorCode ExportDocument(host::AddOnCommands& lists, const PartnerCommands& commands, const std::string& menuText,
                               const std::string& document, host::ObjectState& settings);

} // namespace workbench::energy
