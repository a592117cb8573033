// The energy evaluation add-on of the workbench: keeps its export targets and hands the results of an evaluation to one
// of them. It evaluates nothing itself: the results are a document that the user brings.
#pragma once

#include "host/EnergyExchange.h"
#include "host/Host.h"

#include <string>
#include <vector>

namespace workbench::energy {

// What the user does in the add-on; the workbench calls these two as commands.

/// With a TargetsBlock.
inline constexpr std::uint32_t ListTargetsCommand = host::CommandCode("LIST");
/// With an ExportBlock: asks the target for its settings, then sends the document. BadName without such a target,
/// RefusedCommand when the target wants no data; else the first code with which the target or the host refused.
inline constexpr std::uint32_t ExportCommand = host::CommandCode("EXPT");

struct TargetsBlock {
    std::vector<std::string> menuTexts; ///< in the order of registration
};

struct ExportBlock {
    std::string menuText;                  ///< the target to export to
    const std::string* document = nullptr; ///< XML; the caller's
    host::ObjectState settings;            ///< out: what the target asked for; empty while it was not asked
};

class EnergyEvaluation {
public:
    explicit EnergyEvaluation(host::Host& host) : host(host) {}

    // The commands for other add-ons and for the user.
    host::ErrorCode AnswerEnabled(const host::CommandParameters& parameters);
    host::ErrorCode Enable(const host::CommandParameters& parameters);
    /// RefusedCommand while the evaluation is off. A target that registers again gets its new text.
    host::ErrorCode RegisterTarget(const host::CommandParameters& parameters);
    /// BadId when it is not registered.
    host::ErrorCode UnregisterTarget(const host::CommandParameters& parameters);
    host::ErrorCode ListTargets(const host::CommandParameters& parameters);
    host::ErrorCode Export(const host::CommandParameters& parameters);

private:
    struct Target {
        host::ModuleId id;
        std::string menuText;
    };

    host::ErrorCode ReadTargetId(const host::CommandParameters& parameters, host::ModuleId& id);
    std::vector<Target>::iterator FindTarget(const host::ModuleId& id);

    host::Host& host;
    bool isEnabled = false;
    std::vector<Target> targets;
};

} // namespace workbench::energy
