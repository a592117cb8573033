// Where temporary files go, and a folder there that belongs to one owner alone.
#pragma once

#include "platform/Files.h"

#include <optional>
#include <string>

namespace platform {

/// The value of "TEMP", with a "/" added when it does not end with one. Where that is unset or empty: "TMPDIR" and then
/// "/tmp" on POSIX, the system's own answer on Windows.
[[nodiscard]] std::string GetTemporaryRoot();

/// Creates a folder in GetTemporaryRoot() that was not there before: prefix, thread id, "_", process clock ticks. A
/// name that is taken gives way to the next tick, so that two owners never share one. returns  its path without a
/// closing
/// "/"; none when no folder can be created there
[[nodiscard]] std::optional<std::string> CreatePrivateFolder(FileLayer& files, const std::string& prefix);

} // namespace platform
