#include "xlsx/Package.h"

#include "platform/System.h"
#include "platform/TemporaryFolder.h"
#include "platform/Text.h"
#include "zip/ZipArchiveWriter.h"

#include <algorithm>
#include <array>

namespace Xlsx {

namespace {

constexpr std::size_t CopySize = 1 << 14;
constexpr int NameAttempts = 1000;
constexpr std::size_t MostTemporaryLetters = 12;
constexpr std::uint64_t ThreadDistance = 1000003; // keeps the names of two threads apart

bool CopyContent(platform::InputFile& source, PartFile& part) {
    std::array<char, CopySize> piece;
    for (;;) {
        const std::optional<std::size_t> got = source.Read(piece.data(), piece.size());
        if (!got) return false;
        if (*got == 0) return true;
        part.Append(std::string_view(piece.data(), *got));
    }
}

// As many letters as asked: "~", digits of the number, and ".tmp" where there is room for all of it.
std::string TemporaryName(std::uint64_t number, std::size_t letters) {
    static constexpr char Digits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    const std::string end = letters == MostTemporaryLetters ? ".tmp" : "";
    std::string name = letters > 1 ? "~" : "";
    for (; name.size() < letters - end.size(); number /= 36) {
        name += Digits[number % 36];
    }
    return name + end;
}

// Creates an empty file beside the target. Its name is no longer than the target's, as a longer one may have no place
// there.
std::optional<std::string> CreateBeside(platform::FileLayer& files, const std::string& targetPath) {
    const std::size_t nameStart = targetPath.find_last_of("/\\:") + 1; // 0 where there is no folder
    const std::optional<std::wstring> name = platform::WideFromNarrow(targetPath.substr(nameStart));
    if (!name || name->empty()) return std::nullopt;
    const std::size_t letters = std::min(name->size(), MostTemporaryLetters);
    std::uint64_t number = platform::GetThreadId() * ThreadDistance + platform::GetProcessClockTicks();
    for (int attempt = 0; attempt < NameAttempts; ++attempt, ++number) {
        std::string path = targetPath.substr(0, nameStart) + TemporaryName(number, letters);
        switch (files.CreateEmpty(path, targetPath)) {
        case platform::Creation::Created:
            return path;
        case platform::Creation::AlreadyThere:
            continue;
        case platform::Creation::Failed:
            return std::nullopt;
        }
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
    const std::optional<std::string> target = platform::FollowLinks(targetPath);
    if (!target || !platform::MayReplace(*target)) return false;
    const std::optional<std::string> archivePath = CreateBeside(files, *target);
    if (!archivePath) return false;
    if (WriteArchive(*archivePath) && files.Replace(*archivePath, *target)) return true;
    static_cast<void>(files.RemoveFile(*archivePath)); // a failure to write is told already
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
        if (files.CreateFolder(*folder + made) == platform::Creation::Failed) return false;
        folderPaths.push_back(made);
    }
    return true;
}

} // namespace Xlsx
