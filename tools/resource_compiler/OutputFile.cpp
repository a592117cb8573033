#include "OutputFile.h"

#include <fstream>

namespace ResourceCompiler {

std::optional<std::string> ReplaceFile(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::path beside = file;
    beside += ".new";
    std::ofstream stream(beside, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    std::error_code error;
    if (stream) std::filesystem::rename(beside, file, error);
    if (stream && !error) return std::nullopt;
    std::error_code ignored;
    std::filesystem::remove(beside, ignored);
    return "the file " + file.string() + " cannot be written";
}

} // namespace ResourceCompiler
