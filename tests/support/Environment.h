// A variable of the process's environment, for the time of a test.
#pragma once

#include <cstdlib>
#include <string>

namespace support {

class EnvironmentScope {
public:
    EnvironmentScope(const char* name, const std::string& value) : name(name) {
        const char* const found = std::getenv(name);
        if (found != nullptr) former = found;
        Set(value);
    }
    ~EnvironmentScope() { Set(former); }
    EnvironmentScope(const EnvironmentScope&) = delete;
    EnvironmentScope& operator=(const EnvironmentScope&) = delete;

    void Set(const std::string& value) const {
#ifdef _WIN32
        _putenv_s(name, value.c_str());
#else
        setenv(name, value.c_str(), 1);
#endif
    }

private:
    const char* name;
    std::string former;
};

} // namespace support
