// Workbooks saved into a file system in memory, and the parts they were packed from.
#pragma once

#include "support/FakeFiles.h"
#include "xlsx/Workbook.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace xlsx_test {

using Fill = std::function<void(Xlsx::CWorkbook&)>;

inline const std::string Target = "no-such-folder/written.xlsx";

/// A fake that keeps the content of what is removed. Removing never fails and does not count as an operation.
class KeepingFiles final : public support::FakeFiles {
public:
    std::vector<std::pair<std::string, std::string>> removed; ///< paths and contents, in the order of removal
    bool removedWhileOpen = false;

    bool RemoveFile(const std::string& path) override {
        removedWhileOpen = removedWhileOpen || openFiles != 0;
        removed.emplace_back(path, files[path].bytes);
        return files.erase(path) == 1;
    }
    bool RemoveFolder(const std::string& path) override {
        const auto file = files.lower_bound(path + "/");
        const auto folder = folders.lower_bound(path + "/");
        const bool holdsFile = file != files.end() && file->first.rfind(path + "/", 0) == 0;
        const bool holdsFolder = folder != folders.end() && folder->rfind(path + "/", 0) == 0;
        return !holdsFile && !holdsFolder && folders.erase(path) == 1;
    }
};

/// A saved workbook's parts by their package paths ("/xl/workbook.xml"), in the order of the archive; or why there are
/// none.
struct Written {
    std::vector<std::pair<std::string, std::string>> parts;
    std::string failure;

    [[nodiscard]] std::string Part(const std::string& path) const {
        const auto found =
            std::find_if(parts.begin(), parts.end(), [&](const auto& part) { return part.first == path; });
        return found == parts.end() ? "(no part)" : found->second;
    }
};

/// Files of some pictures' names are there.
inline Written Write(const Fill& fill, const std::string& author = "Author") {
    KeepingFiles files;
    for (const char* end : {"png", "gif", "jpg", "jpeg", "tiff", "PNG", "tif", "dat", "g%.gif"})
        files.AddFile(std::string("in/fields.") + end, std::string("bytes of ") + end);
    files.AddFile("other/fields.PNG", "other bytes");
    const std::size_t others = files.files.size();
    Written written;
    {
        Xlsx::CWorkbook workbook(author, files);
        fill(workbook);
        const bool isSaved = workbook.Save({Target.begin(), Target.end()});
        written.failure = workbook.GetFailure();
        if (isSaved != written.failure.empty()) written.failure += " (an answer that contradicts this)";
    }
    if (files.files.size() - others != (written.failure.empty() ? 1 : 0)) written.failure += " (other files)";
    for (const auto& [path, bytes] : files.removed)
        written.parts.emplace_back(path.substr(path.find('/', path.find("xlsx_"))), bytes);
    return written;
}

} // namespace xlsx_test
