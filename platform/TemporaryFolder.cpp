#include "platform/TemporaryFolder.h"

#include "platform/System.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif

namespace platform {

namespace {

constexpr int Attempts = 10000;

std::string FallbackRoot() {
#ifdef _WIN32
    char path[MAX_PATH + 1];
    const DWORD size = GetTempPathA(sizeof path, path);
    return size > 0 && size < sizeof path ? std::string(path, size) : ".";
#else
    const std::optional<std::string> folder = ReadEnvironmentVariable("TMPDIR");
    return folder && !folder->empty() ? *folder : "/tmp";
#endif
}

} // namespace

std::string GetTemporaryRoot() {
    const std::optional<std::string> named = ReadEnvironmentVariable("TEMP");
    std::string root = named && !named->empty() ? *named : FallbackRoot();
    if (root.back() != '/') root += '/';
    return root;
}

std::optional<std::string> CreatePrivateFolder(FileLayer& files, const std::string& prefix) {
    const std::string start = GetTemporaryRoot() + prefix + std::to_string(GetThreadId()) + "_";
    std::uint64_t ticks = GetProcessClockTicks();
    for (int attempt = 0; attempt < Attempts; ++attempt, ++ticks) {
        std::string path = start + std::to_string(ticks);
        switch (files.CreateFolder(path)) {
        case Creation::Created:
            return path;
        case Creation::AlreadyThere:
            continue;
        case Creation::Failed:
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace platform
