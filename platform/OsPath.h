// Paths as calls of the operating system take them: up to the first NUL.
#pragma once

#include <string>

namespace platform {

/// A path with a NUL inside, which would be cut there, gives the empty path, which every call refuses.
[[nodiscard]] inline const char* OsPath(const std::string& path) {
    return path.find('\0') == std::string::npos ? path.c_str() : "";
}

} // namespace platform
