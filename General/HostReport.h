// Lines in the host's report: what failed while the add-on goes on. Nothing here throws, so that a failure can be
// reported while another one is handled.
#pragma once

#include "host/Dialogs.h"
#include "host/Host.h"
#include "host/Values.h"

#include <cstdio>
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

} // namespace General
