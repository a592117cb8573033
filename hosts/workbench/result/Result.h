// How an action ends: done or failed, and with a value where it gives one. The workbench's one way to say so beside the
// host's own error codes.
#pragma once

#include "workbench/result/Failure.h"

#include <cassert>
#include <optional>

namespace workbench {

/// Says nothing by itself: whoever gets one asks HasFailed.
class [[nodiscard]] Outcome {
public:
    static Outcome Done() { return {}; }
    Outcome(Failure failure) : failure(std::move(failure)) {}

    bool HasFailed() const { return failure.has_value(); }
    /// Only after a failure.
    const Failure& GetFailure() const {
        assert(failure);
        return *failure;
    }
    ExitCode GetCode() const { return failure ? failure->GetCode() : ExitCode::Done; }
    /// Empty when all went well.
    std::string GetText() const { return failure ? failure->GetText() : std::string(); }

protected:
    Outcome() = default;

private:
    std::optional<Failure> failure;
};

/// A value, or why there is none.
template <typename Value>
class [[nodiscard]] Result : public Outcome {
public:
    Result(Value value) : value(std::move(value)) {}
    Result(Failure failure) : Outcome(std::move(failure)) {}

    // Only where it has not failed.
    const Value& Get() const {
        assert(value);
        return *value;
    }
    Value& Get() {
        assert(value);
        return *value;
    }
    Value Take() {
        assert(value);
        return std::move(*value);
    }

private:
    std::optional<Value> value;
};

} // namespace workbench
