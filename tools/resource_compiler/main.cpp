// kelvarnix-resource-compiler: the command line of the resource compiler.
// Exit: 0 done, 1 the source is wrong or the output cannot be written, 2 usage.
#include "Compiler.h"

#include <iostream>
#include <optional>
#include <string_view>

namespace {

constexpr std::string_view Usage =
    "Usage: kelvarnix-resource-compiler [-I FOLDER]... [-D NAME]... [-p IMAGES] IN.grc OUT.cpp [--depend FILE]\n"
    "  -I FOLDER      search included files there, after the including file's own folder\n"
    "  -D NAME        count NAME as defined, such as WINDOWS\n"
    "  -p IMAGES      folder of the icons' images; default RFIX/Images beside IN.grc\n"
    "  --depend FILE  write the dependencies as a rule of make\n";

bool TakeOption(std::string_view name, const std::string& value, ResourceCompiler::CompileOptions& options) {
    if (name == "-I")
        options.includeFolders.emplace_back(value);
    else if (name == "-D")
        options.definedNames.push_back(value);
    else if (name == "-p")
        options.imageFolder = value;
    else if (name == "--depend")
        options.dependencies = value;
    else
        return false;
    return true;
}

std::optional<ResourceCompiler::CompileOptions> ParseArguments(const std::vector<std::string>& arguments) {
    ResourceCompiler::CompileOptions options;
    std::vector<std::string> files;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        if (arguments[index].empty() || arguments[index][0] != '-') {
            files.push_back(arguments[index]);
            continue;
        }
        if (index + 1 == arguments.size() || !TakeOption(arguments[index], arguments[index + 1], options))
            return std::nullopt;
        ++index;
    }
    if (files.size() != 2) return std::nullopt;
    options.input = files[0];
    options.output = files[1];
    return options;
}

} // namespace

int main(int argumentCount, char** arguments) {
    const auto options = ParseArguments({arguments + 1, arguments + argumentCount});
    if (!options) {
        std::cerr << Usage;
        return 2;
    }
    const auto result = ResourceCompiler::Compile(*options);
    if (result.IsSuccess()) return 0;
    std::cerr << result.GetErrorText() << "\n";
    return 1;
}
