// One run of the compiler: a source in, a C++ source out.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ResourceCompiler {

struct CompileOptions {
    std::filesystem::path input;
    std::filesystem::path output;
    std::filesystem::path dependencies;                ///< file for make's dependency rule; empty: none is written
    std::filesystem::path imageFolder;                 ///< images of 'GICN'; empty: RFIX/Images beside the input
    std::vector<std::filesystem::path> includeFolders; ///< searched after the including file's own folder
    std::vector<std::string> definedNames;
};

class [[nodiscard]] CompileResult {
public:
    static CompileResult Success() { return {}; }
    static CompileResult Failure(std::string text) {
        CompileResult result;
        result.text = std::move(text);
        return result;
    }

    bool IsSuccess() const { return text.empty(); }
    /// "file:line: what is wrong" for the source, a sentence naming the file for what cannot be written.
    const std::string& GetErrorText() const { return text; }

private:
    std::string text;
};

/// On failure the output files are as they were before.
CompileResult Compile(const CompileOptions& options);

} // namespace ResourceCompiler
