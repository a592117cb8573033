// The energy evaluation add-on of the workbench: keeps its export targets and hands the results of an evaluation to one
// of them. It evaluates nothing itself: the results are a document that the user brings. UserCommands gives the user's
// commands.
#pragma once

#include "host/AddOnCommands.h"
#include "host/EnergyExchange.h"
#include "workbench/commands/PartnerCommands.h"

#include <string>
#include <vector>

namespace workbench::energy {

// What the user does in the add-on; the workbench calls these two as commands.

/// Adds the targets' menu texts to the list, in the order of registration, by the names "1", "2" and so on.
inline constexpr std::uint32_t ListTargetsCommand = host::CommandCode("LIST");
/// With the target's menu text in the list, the document, and settings that become what the target asked for: asks the
/// target for its settings, then sends the document. BadName without such a target, RefusedCommand when the target
/// wants no data; else the first code with which the target or the host refused.
inline constexpr std::uint32_t ExportCommand = host::CommandCode("EXPT");
inline constexpr char MenuTextParameter[] = "target";

class EnergyEvaluation {
public:
    EnergyEvaluation(host::AddOnCommands& lists, PartnerCommands& commands) : lists(lists), commands(commands) {}

    // The commands for other add-ons and for the user.
    host::ErrorCode AnswerEnabled(const CommandData& data);
    host::ErrorCode Enable(const CommandData& data);
    /// RefusedCommand while the evaluation is off. A target that registers again gets its new text.
    host::ErrorCode RegisterTarget(const CommandData& data);
    /// BadId when it is not registered.
    host::ErrorCode UnregisterTarget(const CommandData& data);
    host::ErrorCode ListTargets(const CommandData& data);
    host::ErrorCode Export(const CommandData& data);

private:
    struct Target {
        host::ModuleId id;
        std::string menuText;
    };

    /// BadParameters where a parameter is of another type, else as AddOnCommands::ReadParameter.
    template <typename Value>
    host::ErrorCode Read(const CommandData& data, const char* name, Value& value);
    std::vector<Target>::iterator FindTarget(const host::ModuleId& id);

    host::AddOnCommands& lists;
    PartnerCommands& commands;
    bool isEnabled = false;
    std::vector<Target> targets;
};

} // namespace workbench::energy
