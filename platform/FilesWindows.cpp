#include "platform/Files.h"

#include "platform/OsPath.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace platform {

namespace {

constexpr std::size_t LargestTransfer = 1U << 30;
constexpr DWORD StoredAttributes = ReadOnly | Hidden | System | Directory | Archive;

DWORD TransferSize(std::size_t sizeBytes) {
    return static_cast<DWORD>(sizeBytes < LargestTransfer ? sizeBytes : LargestTransfer);
}

bool MoveTo(HANDLE file, std::uint64_t offset) {
    LARGE_INTEGER position;
    position.QuadPart = static_cast<LONGLONG>(offset);
    return SetFilePointerEx(file, position, nullptr, FILE_BEGIN) != 0;
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return (static_cast<std::uint64_t>(high) << 32) | low;
}

std::uint64_t Time(const FILETIME& time) {
    return Joined(time.dwHighDateTime, time.dwLowDateTime);
}

template <typename Information>
FileFacts FactsFrom(const Information& information) {
    FileFacts facts;
    facts.sizeBytes = Joined(information.nFileSizeHigh, information.nFileSizeLow);
    facts.attributes = information.dwFileAttributes & StoredAttributes;
    facts.lastWriteTime = Time(information.ftLastWriteTime);
    facts.lastAccessTime = Time(information.ftLastAccessTime);
    facts.creationTime = Time(information.ftCreationTime);
    return facts;
}

class WindowsOutputFile final : public OutputFile {
public:
    explicit WindowsOutputFile(HANDLE file) : file(file) {}
    ~WindowsOutputFile() override {
        if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    }

    bool CanSeek() const override { return GetFileType(file) == FILE_TYPE_DISK; }

    bool Write(const void* data, std::size_t sizeBytes) override {
        const char* bytes = static_cast<const char*>(data);
        while (sizeBytes > 0) {
            DWORD written = 0;
            if (!WriteFile(file, bytes, TransferSize(sizeBytes), &written, nullptr) || written == 0) return false;
            bytes += written;
            sizeBytes -= written;
        }
        return true;
    }

    bool Seek(std::uint64_t offset) override { return MoveTo(file, offset); }
    bool Flush() override { return FlushFileBuffers(file) != 0; }

    bool Close() override {
        const HANDLE closing = file;
        file = INVALID_HANDLE_VALUE;
        return closing != INVALID_HANDLE_VALUE && CloseHandle(closing) != 0;
    }

private:
    HANDLE file;
};

class WindowsInputFile final : public InputFile {
public:
    explicit WindowsInputFile(HANDLE file) : file(file) {}
    ~WindowsInputFile() override { CloseHandle(file); }

    std::optional<std::size_t> Read(void* data, std::size_t sizeBytes) override {
        char* bytes = static_cast<char*>(data);
        std::size_t total = 0;
        while (total < sizeBytes) {
            DWORD got = 0;
            if (!ReadFile(file, bytes + total, TransferSize(sizeBytes - total), &got, nullptr)) return std::nullopt;
            if (got == 0) break;
            total += got;
        }
        return total;
    }

    bool Seek(std::uint64_t offset) override { return MoveTo(file, offset); }

    std::optional<FileFacts> GetFacts() override {
        BY_HANDLE_FILE_INFORMATION information;
        if (!GetFileInformationByHandle(file, &information)) return std::nullopt;
        return FactsFrom(information);
    }

private:
    HANDLE file;
};

class WindowsFiles final : public FileLayer {
public:
    std::unique_ptr<OutputFile> CreateOrTruncate(const std::string& path) override {
        const HANDLE file =
            CreateFileA(OsPath(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE) return nullptr;
        return std::make_unique<WindowsOutputFile>(file);
    }

    Creation CreateEmpty(const std::string& path, const std::string&) override {
        const HANDLE file =
            CreateFileA(OsPath(path), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE) return CloseHandle(file) ? Creation::Created : Creation::Failed;
        return GetLastError() == ERROR_FILE_EXISTS ? Creation::AlreadyThere : Creation::Failed;
    }

    std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
        const HANDLE file = CreateFileA(OsPath(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE) return nullptr;
        return std::make_unique<WindowsInputFile>(file);
    }

    Creation CreateFolder(const std::string& path) override {
        if (CreateDirectoryA(OsPath(path), nullptr)) return Creation::Created;
        return GetLastError() == ERROR_ALREADY_EXISTS ? Creation::AlreadyThere : Creation::Failed;
    }

    bool RemoveFile(const std::string& path) override { return DeleteFileA(OsPath(path)) != 0; }
    bool RemoveFolder(const std::string& path) override { return RemoveDirectoryA(OsPath(path)) != 0; }
    bool Replace(const std::string& from, const std::string& to) override {
        return MoveFileExA(OsPath(from), OsPath(to), MOVEFILE_REPLACE_EXISTING) != 0;
    }
};

} // namespace

FileLayer& GetOperatingSystemFiles() {
    static WindowsFiles files;
    return files;
}

std::optional<FileFacts> GetFactsOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA information;
    if (!GetFileAttributesExA(OsPath(path), GetFileExInfoStandard, &information)) return std::nullopt;
    return FactsFrom(information);
}

namespace {

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Neither reads nor writes; answers also for folders.
HANDLE OpenForQuestions(const std::string& path) {
    return CreateFileA(OsPath(path), 0, ShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

// Without the prefix that takes a path out of the usual rules, which the other calls here follow.
std::string WithoutPrefix(const std::string& path) {
    if (path.compare(0, 8, "\\\\?\\UNC\\") == 0) return "\\\\" + path.substr(8);
    return path.compare(0, 4, "\\\\?\\") == 0 ? path.substr(4) : path;
}

} // namespace

std::optional<std::string> FollowLinks(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(OsPath(path));
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
    const HANDLE file = OpenForQuestions(path);
    if (file == INVALID_HANDLE_VALUE) return std::nullopt;
    char place[MAX_PATH + 8];
    const DWORD size = GetFinalPathNameByHandleA(file, place, sizeof place, FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
    CloseHandle(file);
    if (size == 0 || size >= sizeof place) return std::nullopt;
    return WithoutPrefix(std::string(place, size));
}

bool MayReplace(const std::string& path) {
    const HANDLE file = OpenForQuestions(path);
    if (file == INVALID_HANDLE_VALUE) return true;
    const bool isOnDisk = GetFileType(file) == FILE_TYPE_DISK;
    CloseHandle(file);
    const std::optional<FileFacts> facts = GetFactsOf(path);
    return isOnDisk && facts && (facts->attributes & (Directory | ReadOnly)) == 0;
}

} // namespace platform
