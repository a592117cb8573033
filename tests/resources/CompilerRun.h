// A source of the resource compiler written into a folder of its own, and what compiling it gave.
#pragma once

#include "tools/resource_compiler/Compiler.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class SourceFolder {
public:
    SourceFolder() {
        std::random_device random;
        folder = std::filesystem::temp_directory_path() / ("kelvarnix-resources-" + std::to_string(random()));
        std::filesystem::create_directories(folder);
    }
    ~SourceFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    SourceFolder(const SourceFolder&) = delete;
    SourceFolder& operator=(const SourceFolder&) = delete;

    [[nodiscard]] std::filesystem::path Path(const std::string& name) const { return folder / name; }

    /// The bytes as they are.
    void WriteBytes(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(Path(name).parent_path());
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }
    /// The text behind a byte order mark.
    void Write(const std::string& name, const std::string& text) const { WriteBytes(name, "\xEF\xBB\xBF" + text); }

    [[nodiscard]] std::string Read(const std::string& name) const {
        std::ifstream stream(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// Compiles main.grc to out.cpp.
    /// returns the error with the folder cut off, such as "main.grc:3: ..."; empty when it compiled
    [[nodiscard]] std::string Compile(std::vector<std::string> definedNames = {}) const {
        ResourceCompiler::CompileOptions options;
        options.input = Path("main.grc");
        options.output = Path("out.cpp");
        options.dependencies = Path("out.d");
        options.definedNames = std::move(definedNames);
        options.includeFolders = {Path("shared")};
        std::string error = ResourceCompiler::Compile(options).ErrorText();
        const std::string start = folder.string() + "/";
        for (std::size_t at = error.find(start); at != std::string::npos; at = error.find(start))
            error.erase(at, start.size());
        return error;
    }

private:
    std::filesystem::path folder;
};
