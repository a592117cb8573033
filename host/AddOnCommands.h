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

/// A host without booleans passes 0 or 1 for them, and answers as a boolean what was added as one.
struct CommandParameter {
    using Value = std::variant<bool, std::int32_t, std::string, ModuleId>;

    std::string name;
    Value value;
};

class AddOnCommands {
public:
    virtual ~AddOnCommands() = default;

    /// Each list needs its freeing, on all paths.
    virtual ErrorCode CreateParameterList(ParameterListId& list) = 0;
    /// The host keeps what it is given until the list is freed. BadName when the list has a parameter of this name,
    /// BadParameters when there is no such list.
    virtual ErrorCode AddParameter(ParameterListId list, const CommandParameter& parameter) = 0;
    /// BadName when the list has none of this name.
    virtual ErrorCode ReadParameter(ParameterListId list, const std::string& name, CommandParameter& parameter) = 0;
    /// Gives a parameter of the list another value.
    virtual ErrorCode ChangeParameter(ParameterListId list, const CommandParameter& parameter) = 0;
    virtual ErrorCode FreeParameterList(ParameterListId list) = 0;

    /// Without parameters the list is none. A silent call shows nothing to the user. Answers what the called add-on's
    /// handler answers; ModuleNotInstalled, CommandNotSupported or CommandVersionNotSupported when there is nobody to
    /// call.
    virtual ErrorCode Call(const ModuleId& target, std::uint32_t code, std::int32_t version, ParameterListId list,
                           bool silent) = 0;
};

} // namespace host
