// Role: commands between add-ons, and the lists of named parameters that travel with them.
#pragma once

#include "host/Values.h"

#include <variant>

namespace host {

/// A parameter list that the host keeps; zero is none.
struct ParameterListId {
    std::int32_t value = 0;

    bool IsNull() const { return value == 0; }
};

/// A host without booleans passes them as 0 or 1, and returns as a boolean what was added as one.
struct CommandParameter {
    using Value = std::variant<bool, std::int32_t, std::string, ModuleId>;

    std::string name;
    Value value;
};

class AddOnCommands {
public:
    virtual ~AddOnCommands() = default;

    /// Every list must be freed, on all paths.
    virtual ErrorCode CreateParameterList(ParameterListId& list) = 0;
    /// The host keeps the parameter until the list is freed. BadName if the list already has a parameter of this name,
    /// BadParameters if there is no such list.
    virtual ErrorCode AddParameter(ParameterListId list, const CommandParameter& parameter) = 0;
    /// BadName if the list has no parameter of this name.
    virtual ErrorCode ReadParameter(ParameterListId list, const std::string& name, CommandParameter& parameter) = 0;
    /// Replaces the value of a parameter in the list.
    virtual ErrorCode ChangeParameter(ParameterListId list, const CommandParameter& parameter) = 0;
    virtual ErrorCode FreeParameterList(ParameterListId list) = 0;

    /// Pass the null list if there are no parameters. A silent call shows nothing to the user. Returns what the handler
    /// of the called add-on returns; ModuleNotInstalled, CommandNotSupported or CommandVersionNotSupported if there is
    /// no handler.
    virtual ErrorCode Call(const ModuleId& target, std::uint32_t code, std::int32_t version, ParameterListId list,
                           bool silent) = 0;
};

} // namespace host
