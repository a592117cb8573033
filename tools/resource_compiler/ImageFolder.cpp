#include "ImageFolder.h"

#include "Utf8.h"

#include <charconv>
#include <fstream>
#include <iterator>

namespace ResourceCompiler {
namespace {

struct Size {
    int width, height;
};

// Reads "<width>x<height>.svg".
std::optional<Size> ParseSize(std::string_view text) {
    Size size{0, 0};
    const char* const end = text.data() + text.size();
    const auto width = std::from_chars(text.data(), end, size.width);
    if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x') return std::nullopt;
    const auto height = std::from_chars(width.ptr + 1, end, size.height);
    const bool isSvg = std::string_view(height.ptr, static_cast<std::size_t>(end - height.ptr)) == ".svg";
    if (height.ec != std::errc() || !isSvg || size.width < 1 || size.height < 1) return std::nullopt;
    return size;
}

std::optional<Size> SizeOfImage(const std::string& fileName, const std::string& fileBase) {
    const std::string start = fileBase + "_";
    return fileName.compare(0, start.size(), start) == 0 ? ParseSize(std::string_view(fileName).substr(start.size()))
                                                         : std::nullopt;
}

std::filesystem::path FindImage(Icon& icon, const std::filesystem::path& folder) {
    std::filesystem::path found;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const auto size = SizeOfImage(entry.path().filename().string(), icon.fileBase);
        if (!size) continue;
        if (!found.empty()) throw SourceError(icon.position, "there is more than one image for " + icon.fileBase);
        found = entry.path();
        icon.width = size->width;
        icon.height = size->height;
    }
    if (found.empty())
        throw SourceError(icon.position, "there is no image " + icon.fileBase + "_<width>x<height>.svg in the folder " +
                                             folder.string());
    return found;
}

void ReadImage(Icon& icon, const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    icon.svg.assign(std::istreambuf_iterator<char>(stream), {});
    if (!stream.is_open() || stream.bad())
        throw SourceError(icon.position, "the image " + file.string() + " cannot be read");
    if (FindInvalidUtf8(icon.svg) || icon.svg.find("<svg") == std::string::npos)
        throw SourceError(icon.position, "the image " + file.string() + " is not an SVG text");
}

} // namespace

std::vector<std::filesystem::path> LoadImages(std::vector<Icon>& icons, const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (Icon& icon : icons) {
        files.push_back(FindImage(icon, folder));
        ReadImage(icon, files.back());
    }
    return files;
}

} // namespace ResourceCompiler
