// The picture files of a workbook, copied into its package when they are placed.
#pragma once

#include "xlsx/Package.h"

#include <optional>
#include <string>
#include <vector>

namespace Xlsx {

enum class ImageKind { Gif, Jpeg, Png, Tiff };

/// A file extension in use and the content type of its parts.
struct ImageDefault {
    const char* extension;
    const char* contentType;
};

class Media {
public:
    explicit Media(Package& package) : package(package) {}

    /// Copies the file under "/xl/media/"; a file placed before is not copied again. What a part's name cannot hold in
    /// the file's name becomes "_", a name that is taken gets a number, and an extension that does not fit the kind is
    /// followed by one that does.
    /// sourcePath  narrow text, see platform/Text.h
    /// returns     the name there; none when the file cannot be read or copied
    [[nodiscard]] std::optional<std::string> Add(const std::string& sourcePath, ImageKind kind);

    /// By kind: gif, jpeg, png, tiff; the shorter extensions jpg and tif follow their longer ones.
    [[nodiscard]] std::vector<ImageDefault> GetDefaults() const;

private:
    struct Picture {
        std::string sourcePath;
        ImageKind kind;
        std::string name;
    };
    [[nodiscard]] bool IsTaken(const std::string& name) const;
    [[nodiscard]] std::string FreeName(const std::string& sourcePath, ImageKind kind) const;

    Package& package;
    std::vector<Picture> pictures;
};

} // namespace Xlsx
