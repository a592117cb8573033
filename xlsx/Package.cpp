#include "xlsx/Package.h"

#include "platform/System.h"
#include "platform/TemporaryFolder.h"
#include "zip/ZipArchiveWriter.h"

#include <algorithm>
#include <array>

namespace Xlsx {

namespace {

constexpr std::size_t copySize = 1 << 14;
constexpr int nameAttempts = 1000;

bool CopyContent(platform::InputFile& source, PartFile& part) {
    std::array<char, copySize> piece;
    for (;;) {
        const std::optional<std::size_t> got = source.Read(piece.data(), piece.size());
        if (!got) return false;
        if (*got == 0) return true;
        part.Append(std::string_view(piece.data(), *got));
    }
}

// A name beside the target that no file has.
std::optional<std::string> NameBeside(platform::FileLayer& files, const std::string& targetPath) {
    const std::string start = targetPath + "." + std::to_string(platform::ThreadId()) + "_";
    std::uint64_t ticks = platform::ProcessClockTicks();
    for (int attempt = 0; attempt < nameAttempts; ++attempt, ++ticks) {
        std::string path = start + std::to_string(ticks) + ".tmp";
        if (!files.OpenForReading(path)) return path;
    }
    return std::nullopt;
}

} // namespace

Package::Package(platform::FileLayer& files) : files(files), folder(platform::CreatePrivateFolder(files, "xlsx_")) {}

Package::~Package() {
    Clear();
}

PartFile Package::CreatePart(const std::string& path) {
    if (!folder || !CreateFolders(path)) return PartFile(nullptr);
    partPaths.push_back(path);
    return PartFile(files.CreateOrTruncate(*folder + path));
}

bool Package::WritePart(const std::string& path, const std::function<void(XmlWriter&)>& write) {
    PartFile part = CreatePart(path);
    XmlWriter xml(part);
    write(xml);
    return part.Close();
}

bool Package::CopyPart(const std::string& path, const std::string& sourcePath) {
    const std::unique_ptr<platform::InputFile> source = files.OpenForReading(sourcePath);
    if (!source) return false;
    PartFile part = CreatePart(path);
    const bool isCopied = CopyContent(*source, part);
    return part.Close() && isCopied;
}

bool Package::Pack(const std::string& targetPath) {
    if (!platform::MayReplace(targetPath)) return false;
    const std::optional<std::string> archivePath = NameBeside(files, targetPath);
    if (!archivePath) return false;
    if (WriteArchive(*archivePath) && files.Replace(*archivePath, targetPath)) return true;
    static_cast<void>(files.RemoveFile(*archivePath)); // it may not have come to be
    return false;
}

bool Package::WriteArchive(const std::string& archivePath) {
    zip::ZipArchiveWriter archive(files);
    if (archive.Create(archivePath) != zip::ZipResult::Success) return false;
    const bool isWhole = std::all_of(partPaths.begin(), partPaths.end(), [&](const std::string& path) {
        return archive.AddFile(path.substr(1), *folder + path) == zip::ZipResult::Success;
    });
    return archive.Close() == zip::ZipResult::Success && isWhole;
}

void Package::Clear() {
    if (!folder) return;
    for (const std::string& path : partPaths) {
        static_cast<void>(files.RemoveFile(*folder + path));
    }
    for (auto path = folderPaths.rbegin(); path != folderPaths.rend(); ++path) {
        static_cast<void>(files.RemoveFolder(*folder + *path));
    }
    static_cast<void>(files.RemoveFolder(*folder));
    partPaths.clear();
    folderPaths.clear();
    folder.reset();
}

bool Package::CreateFolders(const std::string& path) {
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1)) {
        const std::string made = path.substr(0, end);
        if (std::find(folderPaths.begin(), folderPaths.end(), made) != folderPaths.end()) continue;
        if (files.CreateFolder(*folder + made) == platform::FolderCreation::Failed) return false;
        folderPaths.push_back(made);
    }
    return true;
}

} // namespace Xlsx
