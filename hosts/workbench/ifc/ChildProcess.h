// Runs one child program with limits and reads what it writes to its answer pipe.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define KELVARNIX_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KELVARNIX_ADDRESS_SANITIZER
#endif
#endif

namespace workbench::ifc {

/// The file descriptor on which the child writes its answer.
inline constexpr int AnswerDescriptor = 3;

/// The address sanitizer maps terabytes, so a program that carries it gets no limit on its address space.
#if defined(KELVARNIX_ADDRESS_SANITIZER)
inline constexpr bool LimitsAddressSpace = false;
#else
inline constexpr bool LimitsAddressSpace = true;
#endif

struct ChildCommand {
    std::filesystem::path program;
    std::vector<std::string> arguments;
    std::uint64_t memoryBytes = 0; ///< address space; 0 for no limit
    std::chrono::steady_clock::time_point deadline;
};

enum class ChildEnding : std::uint8_t { Exited, Killed, OutOfTime, Stopped, NotStarted };

struct ChildReport {
    ChildEnding ending = ChildEnding::NotStarted;
    int exitCode = 0; ///< where Exited
    int signal = 0;   ///< where Killed by a signal that is not of this function's sending
};

/// Called with each piece of the answer, and with an empty piece every tenth of a second while nothing comes; false
/// stops the child.
using ChildListener = std::function<bool(std::string_view piece)>;

/// The child has no input and writes to nowhere but the answer pipe; it dies with the calling thread. Blocks until it
/// has ended and is reaped. Exceptions of the listener end the child and pass through.
[[nodiscard]] ChildReport RunChild(const ChildCommand& command, const ChildListener& listener);

} // namespace workbench::ifc
