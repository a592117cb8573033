// The one place where exceptions end: every function that the host calls runs its body through here, so that none
// leaves the module and none is lost without a line in the host's report. Counts these calls, because the host may call
// again while one is waiting in a dialog.
#pragma once

#include "General/HostReport.h"

#include <exception>
#include <new>

namespace General {

/// A call of the host that is under way, one inside the other.
class RunningCallback {
public:
    RunningCallback() { ++count; }
    ~RunningCallback() {
        if (--count == 0 && whenDone != nullptr) whenDone();
    }
    RunningCallback(const RunningCallback&) = delete;
    RunningCallback& operator=(const RunningCallback&) = delete;

    /// Whether another call waits for the present one to end.
    static bool IsNested() { return count > 1; }
    /// Called whenever the outermost call ends; lets no exception out.
    inline static void (*whenDone)() noexcept = nullptr;

private:
    inline static int count = 0;
};

/// Runs a callback's body and answers its result; after an exception answers `onOutOfMemory` or `onFailure`.
template <typename Answer, typename Body>
Answer RunGuarded(host::Host* host, const char* callback, Answer onOutOfMemory, Answer onFailure,
                  Body&& body) noexcept {
    const RunningCallback running;
    try {
        return body();
    } catch (const std::bad_alloc&) {
        ReportFailure(host, callback, "out of memory");
        return onOutOfMemory;
    } catch (const std::exception& failure) {
        ReportFailure(host, callback, failure.what());
    } catch (...) {
        ReportFailure(host, callback, "unknown failure");
    }
    return onFailure;
}

/// The same for callbacks that answer an error code.
template <typename Body>
host::ErrorCode RunGuarded(host::Host* host, const char* callback, Body&& body) noexcept {
    return RunGuarded<host::ErrorCode>(host, callback, host::Errors::OutOfMemory, host::Errors::General, body);
}

} // namespace General
