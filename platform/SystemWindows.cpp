#include "platform/System.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace platform {

const char* const OpenAddressCommand = "cmd.exe /c start ";
const char* const OpenFileCommand = "cmd.exe /c call ";

std::optional<std::string> ReadEnvironmentVariable(const std::string& name) {
    std::string value;
    DWORD size = 128;
    while (true) {
        value.resize(size);
        SetLastError(ERROR_SUCCESS);
        const DWORD needed = GetEnvironmentVariableA(name.c_str(), value.data(), size);
        if (needed == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) return std::nullopt;
        if (needed < size) {
            value.resize(needed);
            return value;
        }
        size = needed;
    }
}

std::uint64_t GetThreadId() {
    return GetCurrentThreadId();
}

std::uint64_t GetProcessClockTicks() {
    return static_cast<std::uint64_t>(std::clock());
}

std::tm GetLocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    localtime_s(&fields, &now);
    return fields;
}

// Values above 31 say that the program was started.
bool StartHidden(const std::string& commandLine) {
    return WinExec(commandLine.c_str(), SW_HIDE) > 31;
}

} // namespace platform
