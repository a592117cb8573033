#include "Compiler.h"

#include "ImageFolder.h"
#include "OutputFile.h"
#include "Preprocessor.h"
#include "ResourceParser.h"
#include "SourceWriter.h"

namespace ResourceCompiler {
namespace {

std::string EscapedForMake(const std::filesystem::path& file) {
    std::string escaped;
    for (const char character : file.generic_string()) {
        if (character == ' ' || character == '#') escaped += '\\';
        if (character == '$') escaped += '$';
        escaped += character;
    }
    return escaped;
}

std::string DependencyRule(const std::filesystem::path& output, const std::vector<std::filesystem::path>& inputs) {
    std::string rule = EscapedForMake(output) + ":";
    for (const std::filesystem::path& input : inputs)
        rule += " \\\n  " + EscapedForMake(input);
    return rule + "\n";
}

CompileResult CompileChecked(const CompileOptions& options) {
    Preprocessor preprocessor(options.includeFolders, options.definedNames);
    Resources resources = ParseResources(preprocessor.Run(options.input));
    const std::filesystem::path imageFolder =
        options.imageFolder.empty() ? options.input.parent_path() / "RFIX" / "Images" : options.imageFolder;
    std::vector<std::filesystem::path> inputs = preprocessor.GetFilesRead();
    const std::vector<std::filesystem::path> images = LoadImages(resources.icons, imageFolder);
    inputs.insert(inputs.end(), images.begin(), images.end());

    const std::string source = WriteSource(resources, options.input.filename().string());
    if (!options.dependencies.empty())
        if (auto error = ReplaceFile(options.dependencies, DependencyRule(options.output, inputs)))
            return CompileResult::Failure(*error);
    if (auto error = ReplaceFile(options.output, source)) return CompileResult::Failure(*error);
    return CompileResult::Success();
}

} // namespace

CompileResult Compile(const CompileOptions& options) {
    try {
        return CompileChecked(options);
    } catch (const SourceError& error) {
        return CompileResult::Failure(error.what());
    } catch (const std::filesystem::filesystem_error& error) {
        return CompileResult::Failure(error.what());
    }
}

} // namespace ResourceCompiler
