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

struct CommandParameter {
    using Value = std::variant<bool, std::int32_t, std::string, const void*>;

    std::string name;
    Value value;
};

/// What a command hands over: a list of parameters, or a block in a form that both sides agreed on. Both are the
/// caller's and live until the call ends; either may be missing.
struct CommandParameters {
    ParameterListId list;
    void* block = nullptr;
};

/// Answers an error code and lets no exception out. A silent call shows nothing to the user.
using CommandHandler = ErrorCode (*)(const CommandParameters& parameters, bool silent);

class AddOnCommands {
public:
    virtual ~AddOnCommands() = default;

    /// Each list needs its freeing, on all paths.
    virtual ErrorCode CreateParameterList(ParameterListId& list) = 0;
    /// BadName when the list has a parameter of this name, BadParameters when there is no such list.
    virtual ErrorCode AddParameter(ParameterListId list, const CommandParameter& parameter) = 0;
    /// BadName when the list has none of this name.
    virtual ErrorCode ReadParameter(ParameterListId list, const std::string& name, CommandParameter& parameter) = 0;
    /// Gives a parameter of the list another value.
    virtual ErrorCode ChangeParameter(ParameterListId list, const CommandParameter& parameter) = 0;
    virtual ErrorCode FreeParameterList(ParameterListId list) = 0;

    /// Answers what the called add-on's handler answers; ModuleNotInstalled, CommandNotSupported or
    /// CommandVersionNotSupported when there is nobody to call.
    virtual ErrorCode Call(const ModuleId& target, std::uint32_t code, std::int32_t version,
                           const CommandParameters& parameters, bool silent) = 0;
};

} // namespace host
