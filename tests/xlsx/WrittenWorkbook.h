// Workbooks saved into a file system in memory, and the parts they were packed from.
#pragma once

#include "support/FakeFiles.h"
#include "xlsx/Workbook.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace xlsx_test {

/// A fake that keeps the content of what is removed. Removing never fails and does not count as an operation.
class KeepingFiles final : public platform::FileLayer {
public:
    support::FakeFiles inner;
    std::vector<std::string> removed; ///< in the order of removal
    std::map<std::string, std::string> kept;

    std::unique_ptr<platform::OutputFile> CreateOrTruncate(const std::string& path) override {
        return inner.CreateOrTruncate(path);
    }
    std::unique_ptr<platform::InputFile> OpenForReading(const std::string& path) override {
        const auto found = inner.files.find(path);
        if (found != inner.files.end()) found->second.facts.sizeBytes = found->second.bytes.size();
        return inner.OpenForReading(path);
    }
    platform::Creation CreateEmpty(const std::string& path, const std::string& model) override {
        return inner.CreateEmpty(path, model);
    }
    platform::Creation CreateFolder(const std::string& path) override { return inner.CreateFolder(path); }
    bool RemoveFile(const std::string& path) override {
        if (inner.openFiles != 0) removedWhileOpen = true;
        const auto found = inner.files.find(path);
        if (found == inner.files.end()) return false;
        removed.push_back(path);
        kept[path] = found->second.bytes;
        inner.files.erase(found);
        return true;
    }
    bool RemoveFolder(const std::string& path) override {
        for (const auto& file : inner.files) {
            if (file.first.compare(0, path.size() + 1, path + "/") == 0) return false;
        }
        for (const std::string& folder : inner.folders) {
            if (folder.compare(0, path.size() + 1, path + "/") == 0) return false;
        }
        return inner.folders.erase(path) == 1;
    }
    bool Replace(const std::string& from, const std::string& to) override { return inner.Replace(from, to); }

    bool removedWhileOpen = false;
};

/// The parts of a workbook by their package paths ("/xl/workbook.xml"); empty when it could not be saved.
struct Written {
    std::map<std::string, std::string> parts;
    std::vector<std::string> order; ///< paths in the order of the part-file list

    [[nodiscard]] bool Has(const std::string& path) const { return parts.count(path) != 0; }
    [[nodiscard]] std::string Part(const std::string& path) const {
        const auto found = parts.find(path);
        return found == parts.end() ? "(no part)" : found->second;
    }
};

inline Written Write(const std::function<void(Xlsx::CWorkbook&)>& fill,
                     const std::map<std::string, std::string>& otherFiles = {}) {
    KeepingFiles files;
    for (const auto& [path, bytes] : otherFiles) {
        files.inner.AddFile(path, bytes);
    }
    Xlsx::CWorkbook workbook("Author", files);
    fill(workbook);
    Written written;
    if (!workbook.Save(L"no-such-folder/written.xlsx")) return written;
    for (const std::string& path : files.removed) {
        const std::size_t start = path.find('/', path.find("xlsx_"));
        written.order.push_back(path.substr(start));
        written.parts[path.substr(start)] = files.kept[path];
    }
    return written;
}

/// The first element of that name with all it holds; "(none)" when there is none. The name must not be nested in
/// itself.
inline std::string Element(const std::string& xml, const std::string& name) {
    std::size_t start = 0;
    do {
        start = xml.find("<" + name, start);
        if (start == std::string::npos) return "(none)";
        ++start;
    } while (std::string(" />").find(xml[start + name.size()]) == std::string::npos);
    const std::size_t tagEnd = xml.find('>', start);
    if (xml[tagEnd - 1] == '/') return xml.substr(start - 1, tagEnd - start + 2);
    const std::string closing = "</" + name + ">";
    return xml.substr(start - 1, xml.find(closing, start) + closing.size() - start + 1);
}

inline std::size_t CountOf(const std::string& text, const std::string& piece) {
    std::size_t count = 0;
    for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + piece.size())) {
        ++count;
    }
    return count;
}

/// Whether the pieces stand in the text one after the other.
inline bool InOrder(const std::string& text, const std::vector<std::string>& pieces) {
    std::size_t at = 0;
    for (const std::string& piece : pieces) {
        at = text.find(piece, at);
        if (at == std::string::npos) return false;
        at += piece.size();
    }
    return true;
}

} // namespace xlsx_test
