// Environment, clock and processes.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

namespace platform {

/// The variable's value as narrow text (see Text.h); none when it is not set, empty when it is set to nothing.
[[nodiscard]] std::optional<std::string> ReadEnvironmentVariable(const std::string& name);

/// Number of the calling thread, unique in the system while the thread lives.
[[nodiscard]] std::uint64_t GetThreadId();

/// Processor time of this process in std::clock ticks.
[[nodiscard]] std::uint64_t GetProcessClockTicks();

/// The time of day here and now, in the fields of std::tm.
[[nodiscard]] std::tm GetLocalTime();

/// What stands before a web address, and before a file's path in double quotes, in a command line that shows it to the
/// user: "cmd.exe /c start " and "cmd.exe /c call " on Windows, "xdg-open " on POSIX.
extern const char* const OpenAddressCommand;
extern const char* const OpenFileCommand;

/// Starts a command line without a window and does not wait for its end. On POSIX blanks separate its words, double
/// quotes hold a word together, in which a doubled one is a double quote, and no shell takes part. False when the
/// program cannot be started.
[[nodiscard]] bool StartHidden(const std::string& commandLine);

} // namespace platform
