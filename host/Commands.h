// Role: undoable commands and the progress window.
#pragma once

#include "host/Values.h"

#include <functional>

namespace host {

class UndoableCommands {
public:
    virtual ~UndoableCommands() = default;

    /// Runs the command as one undo step and returns its code; any code other than 0 undoes its changes. UndoEmpty if
    /// it changed nothing, which callers treat as success. Commands do not nest (RefusedCommand).
    virtual ErrorCode Call(const std::string& undoName, const std::function<ErrorCode()>& command) = 0;
};

/// Every Open needs a Close, on all paths.
class ProgressWindow {
public:
    virtual ~ProgressWindow() = default;

    virtual ErrorCode Open(const std::string& title) = 0;
    /// maximum is the value at which the phase is done.
    virtual ErrorCode StartPhase(const std::string& text, std::int32_t maximum) = 0;
    virtual ErrorCode SetValue(std::int32_t value) = 0;
    virtual ErrorCode Close() = 0;
};

} // namespace host
