// What the workbench is told to refuse, so that the add-on meets a host that is less kind.
#pragma once

#include "host/Values.h"

#include <functional>
#include <string>

namespace workbench {

/// Which operations of the add-on are refused.
class Refusals {
public:
    /// Asked before each operation that may fail, by a name such as "Model.ListElements" and by the element or object
    /// that it is about, null for the others. Another answer than success is the operation's, which then does nothing
    /// else; one that answers no code then opens nothing or is cancelled. Without a rule nothing is refused.
    std::function<host::ErrorCode(const std::string& operation, const host::Guid& subject)> rule;

    host::ErrorCode Ask(const char* operation, const host::Guid& subject = {}) const {
        return rule ? rule(operation, subject) : host::NoError;
    }
};

} // namespace workbench
