// Entry names of every kind: the archive stays one that a walk over its directory reads back, name by name.
#include "support/FakeFiles.h"
#include "zip/ZipArchiveWriter.h"

#include <cstdlib>
#include <vector>

namespace {

std::size_t Number(const std::string& bytes, std::size_t at, std::size_t size) {
    std::size_t value = 0;
    for (std::size_t i = size; i-- > 0;) {
        value = (value << 8) | static_cast<unsigned char>(bytes.at(at + i));
    }
    return value;
}

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckDirectory(const std::string& bytes, const std::vector<std::string>& names) {
    const std::size_t end = bytes.size() - 22;
    Require(Number(bytes, end, 4) == 0x06054B50 && Number(bytes, end + 10, 2) == names.size());
    std::size_t at = Number(bytes, end + 16, 4);
    for (std::string name : names) {
        for (char& letter : name) {
            if (letter == '\\') letter = '/';
        }
        const std::size_t local = Number(bytes, at + 42, 4);
        Require(Number(bytes, at, 4) == 0x02014B50 && Number(bytes, local, 4) == 0x04034B50);
        Require(Number(bytes, at + 28, 2) == name.size() && bytes.compare(at + 46, name.size(), name) == 0);
        Require(Number(bytes, local + 26, 2) == name.size() && bytes.compare(local + 30, name.size(), name) == 0);
        Require(Number(bytes, at + 10, 2) == Number(bytes, local + 8, 2));
        at += 46 + name.size() + 9;
    }
    Require(at == end);
}

} // namespace

// Line feeds part the names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t sizeBytes) {
    support::FakeFiles files;
    files.AddFile("source", "some content");
    zip::ZipArchiveWriter writer(files);
    Require(writer.Create("out.zip") == zip::ZipResult::Success);
    std::vector<std::string> names;
    bool isRefused = false;
    std::string name;
    for (std::size_t i = 0; i <= sizeBytes && !isRefused; ++i) {
        if (i < sizeBytes && data[i] != '\n') {
            name.push_back(static_cast<char>(data[i]));
            continue;
        }
        isRefused = writer.AddFile(name, "source") != zip::ZipResult::Success;
        const bool hasNul = name.find('\0') != std::string::npos;
        Require(isRefused == (name.empty() || hasNul || name.size() > 65535));
        if (!isRefused) names.push_back(name);
        name.clear();
    }
    Require(writer.Close() == zip::ZipResult::Success);
    CheckDirectory(files.files["out.zip"].bytes, names);
    return 0;
}
