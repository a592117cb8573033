// The parts of one package: each is written as a file into a folder of the package's own, then all are packed into the
// archive at the target.
#pragma once

#include "platform/Files.h"
#include "xlsx/PartFile.h"
#include "xlsx/XmlWriter.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Xlsx {

/// Paths of parts begin with "/", as "/xl/styles.xml" does. Nothing stays in the temporary folder when the package
/// ends.
class Package {
public:
    /// files  outlives the package
    explicit Package(platform::FileLayer& files);
    ~Package();
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    /// Puts a part on the list, creates its folders and opens its file. A failure shows when the file is closed.
    [[nodiscard]] PartFile CreatePart(const std::string& path);

    /// Creates a part and writes it whole. False when not every byte could be written.
    [[nodiscard]] bool WritePart(const std::string& path, const std::function<void(XmlWriter&)>& write);

    /// A part that is the copy of a file.
    /// sourcePath  narrow text, see platform/Text.h
    [[nodiscard]] bool CopyPart(const std::string& path, const std::string& sourcePath);

    /// Packs the parts in the order of the list into a file beside the target, which takes the target's name when it is
    /// whole, and keeps the permissions of a file that it replaces. A symbolic link stays; where it leads is written.
    /// After false the file at the target is as it was, and so is a target that is no ordinary file.
    /// targetPath  narrow text
    [[nodiscard]] bool Pack(const std::string& targetPath);

    /// Removes every part file and folder. No part file may be open.
    void Clear();

private:
    [[nodiscard]] bool CreateFolders(const std::string& path);
    [[nodiscard]] bool WriteArchive(const std::string& archivePath);

    platform::FileLayer& files;
    std::optional<std::string> folder;    // none: it could not be created
    std::vector<std::string> partPaths;   // in writing order
    std::vector<std::string> folderPaths; // below the folder, in the order of creation
};

} // namespace Xlsx
