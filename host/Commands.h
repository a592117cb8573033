// Role: undoable commands and the progress window.
#pragma once

#include "host/Values.h"

#include <functional>

namespace host {

class UndoableCommands {
public:
    virtual ~UndoableCommands() = default;

    /// Runs the command as one undo step and answers its code; a code other than 0 takes its changes back. UndoEmpty
    /// when it changed nothing, which callers treat as success. Commands do not nest (RefusedCommand).
    virtual ErrorCode Call(const std::string& undoName, const std::function<ErrorCode()>& command) = 0;
};

/// Each Open needs its Close, on all paths.
class ProgressWindow {
public:
    virtual ~ProgressWindow() = default;

    virtual ErrorCode Open(const std::string& title) = 0;
    /// maximum is the value that means "done".
    virtual ErrorCode StartPhase(const std::string& text, std::int32_t maximum) = 0;
    virtual ErrorCode SetValue(std::int32_t value) = 0;
    virtual ErrorCode Close() = 0;
};

} // namespace host
