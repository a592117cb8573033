#include "xlsx/Media.h"

#include <algorithm>

namespace Xlsx {

namespace {

struct Extension {
    ImageKind kind;
    ImageDefault image;
};
// The first one of a kind is the one that is added where none fits.
constexpr Extension Extensions[] = {
    {ImageKind::Gif, {"gif", "image/gif"}},    {ImageKind::Jpeg, {"jpeg", "image/jpeg"}},
    {ImageKind::Jpeg, {"jpg", "image/jpeg"}},  {ImageKind::Png, {"png", "image/png"}},
    {ImageKind::Tiff, {"tiff", "image/tiff"}}, {ImageKind::Tiff, {"tif", "image/tiff"}}};

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) { return Lower(letter); });
    return text;
}

bool IsNameLetter(char letter) {
    const char lower = Lower(letter);
    return (lower >= 'a' && lower <= 'z') || (letter >= '0' && letter <= '9') || letter == '-' || letter == '.';
}

std::string BaseName(const std::string& path) {
    std::string name = path.substr(path.find_last_of("/\\:") + 1);
    std::replace_if(
        name.begin(), name.end(), [](char letter) { return !IsNameLetter(letter); }, '_');
    return name;
}

std::string ExtensionOf(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : Lower(name.substr(dot + 1));
}

bool Fits(const std::string& extension, ImageKind kind) {
    return std::any_of(std::begin(Extensions), std::end(Extensions),
                       [&](const Extension& each) { return each.kind == kind && extension == each.image.extension; });
}

const char* FirstExtension(ImageKind kind) {
    return std::find_if(std::begin(Extensions), std::end(Extensions),
                        [&](const Extension& each) { return each.kind == kind; })
        ->image.extension;
}

} // namespace

std::optional<std::string> Media::Add(const std::string& sourcePath, ImageKind kind) {
    for (const Picture& picture : pictures) {
        if (picture.sourcePath == sourcePath && picture.kind == kind) return picture.name;
    }
    std::string name = FreeName(sourcePath, kind);
    if (!package.CopyPart("/xl/media/" + name, sourcePath)) return std::nullopt;
    pictures.push_back({sourcePath, kind, name});
    return name;
}

std::vector<ImageDefault> Media::GetDefaults() const {
    std::vector<ImageDefault> defaults;
    for (const Extension& each : Extensions) {
        const bool isUsed = std::any_of(pictures.begin(), pictures.end(), [&](const Picture& picture) {
            return ExtensionOf(picture.name) == each.image.extension;
        });
        if (isUsed) defaults.push_back(each.image);
    }
    return defaults;
}

bool Media::IsTaken(const std::string& name) const {
    return std::any_of(pictures.begin(), pictures.end(),
                       [&](const Picture& picture) { return Lower(picture.name) == Lower(name); });
}

std::string Media::FreeName(const std::string& sourcePath, ImageKind kind) const {
    const std::string base = BaseName(sourcePath);
    const bool isFitting = Fits(ExtensionOf(base), kind);
    const std::string extension = isFitting ? ExtensionOf(base) : FirstExtension(kind);
    const std::string stem = isFitting ? base.substr(0, base.rfind('.')) : base;
    std::string name = stem + "." + extension;
    for (unsigned number = 2; IsTaken(name); ++number) {
        name.assign(stem).append("-").append(std::to_string(number)).append(".").append(extension);
    }
    return name;
}

} // namespace Xlsx
