// What an add-on of the workbench can do with commands beyond the host interface: answer those that come with parameter
// lists, and call those that come with blocks, as other add-ons of a host do.
#pragma once

#include "host/AddOnCommands.h"
#include "host/ObjectState.h"

namespace workbench {

struct SettingsBlock {
    host::ObjectState* settings = nullptr; ///< the caller's slot, which may be empty
};

struct DocumentBlock {
    const std::string* document = nullptr; ///< UTF-8
};

/// What comes with a command. Everything is the caller's and lives until the call ends, and everything may be missing.
struct CommandData {
    host::ParameterListId list;
    const SettingsBlock* settings = nullptr;
    const DocumentBlock* document = nullptr;
};

/// Answers an error code and lets no exception out.
using PartnerHandler = host::ErrorCode (*)(const CommandData& data, bool silent);

class PartnerCommands {
public:
    virtual ~PartnerCommands() = default;

    /// As the installations of host::Registration.
    virtual host::ErrorCode InstallPartnerHandler(std::uint32_t code, std::int32_t version, PartnerHandler handler) = 0;
    /// As AddOnCommands::Call. Handlers of settings and documents are not called without: BadParameters without the
    /// block or the document, SettingsMissing with an empty slot.
    virtual host::ErrorCode CallCommand(const host::ModuleId& target, std::uint32_t code, std::int32_t version,
                                        const CommandData& data, bool silent) const = 0;
};

} // namespace workbench
