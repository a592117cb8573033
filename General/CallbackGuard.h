// The one place where exceptions end: every function that the host calls runs its body through here, so that none
// leaves the module and none is lost without a line in the host's report. Counts these calls, because the host may call
// again while one is waiting in a dialog.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"
#include "host/Values.h"

#include <cstdio>
#include <exception>
#include <new>
#include <string>

namespace General {

/// Writes to the host's report; says nothing where there is no host or the report itself fails.
inline void ReportFailure(host::Host* host, const char* callback, const char* reason) noexcept {
    if (host == nullptr) return;
    try {
        host->GetAlerts().WriteReport(std::string(callback) + ": " + reason);
    } catch (...) {
        return; // no memory for a line of text: there is nobody left to tell
    }
}

/// The same for what the host answered to an operation whose caller goes on. Success says nothing, and neither does a
/// command that had nothing to change.
inline void ReportHostError(host::Host& host, const char* what, host::ErrorCode error) noexcept {
    if (error == host::NoError || error == host::Errors::UndoEmpty) return;
    constexpr std::size_t Longest = 48;
    char reason[Longest];
    std::snprintf(reason, Longest, "ended with host error %s", host::WriteErrorCode(error).c_str());
    ReportFailure(&host, what, reason);
}

/// Failures of one kind in a walk that goes on: how many, and the code of the first.
class CountedFailures {
public:
    /// Answers whether it was one.
    bool Note(host::ErrorCode error) {
        if (!error) return false;
        if (count++ == 0) first = error;
        return true;
    }
    std::size_t GetCount() const { return count; }
    host::ErrorCode GetFirst() const { return first; }
    /// One line of the host's report, "<what>: N (first host error E)"; none where there were no failures.
    void Report(host::Host& host, const char* callback, const char* what) const noexcept {
        if (count == 0) return;
        constexpr std::size_t Longest = 192;
        char line[Longest];
        std::snprintf(line, Longest, "%s: %lu (first host error %s)", what, static_cast<unsigned long>(count),
                      host::WriteErrorCode(first).c_str());
        ReportFailure(&host, callback, line);
    }

private:
    std::size_t count = 0;
    host::ErrorCode first;
};

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
