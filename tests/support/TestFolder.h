// A folder of its own for each test that needs real files, removed with all it holds.
#pragma once

#include "platform/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace support {

class TestFolder {
public:
    TestFolder() {
        const std::optional<std::string> made =
            platform::CreatePrivateFolder(platform::GetOperatingSystemFiles(), "kelvarnix_test_");
        if (!made) throw std::runtime_error("no temporary folder");
        path = *made;
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    [[nodiscard]] std::string operator/(const std::string& name) const { return path + "/" + name; }
    [[nodiscard]] const std::string& GetPath() const { return path; }

    std::string Write(const std::string& name, const std::string& content) const {
        std::ofstream file(*this / name, std::ios::binary);
        file << content;
        if (!file.flush()) throw std::runtime_error("cannot write " + name);
        return *this / name;
    }

private:
    std::string path;
};

/// Whole content; "(none)" when the file cannot be opened.
inline std::string ContentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return "(none)";
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace support
