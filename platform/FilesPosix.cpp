#include "platform/Files.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::uint64_t unixEpoch = 116444736000000000; // 1970-01-01 in 100 ns since 1601-01-01
constexpr std::size_t largestTransfer = 1U << 30;

int WithoutInterruption(const char* path, int flags) {
    int file;
    do {
        file = open(path, flags | O_CLOEXEC, 0666);
    } while (file < 0 && errno == EINTR);
    return file;
}

class PosixOutputFile final : public OutputFile {
public:
    explicit PosixOutputFile(int file) : file(file) {}
    ~PosixOutputFile() override {
        if (file >= 0) close(file);
    }

    bool CanSeek() const override { return lseek(file, 0, SEEK_CUR) >= 0; }

    bool Write(const void* data, std::size_t sizeBytes) override {
        const char* bytes = static_cast<const char*>(data);
        while (sizeBytes > 0) {
            const ssize_t written = write(file, bytes, sizeBytes < largestTransfer ? sizeBytes : largestTransfer);
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            bytes += written;
            sizeBytes -= static_cast<std::size_t>(written);
        }
        return true;
    }

    bool Seek(std::uint64_t offset) override { return lseek(file, static_cast<off_t>(offset), SEEK_SET) >= 0; }

    // A pipe or a device that has nothing to hand on says EINVAL or EROFS.
    bool Flush() override { return fsync(file) == 0 || errno == EINVAL || errno == EROFS; }

    bool Close() override {
        const int closing = file;
        file = -1;
        return closing >= 0 && close(closing) == 0;
    }

private:
    int file;
};

std::uint64_t FileTime(std::int64_t seconds, std::uint32_t nanoseconds) {
    return unixEpoch + static_cast<std::uint64_t>(seconds * 10000000) + nanoseconds / 100;
}

std::optional<FileFacts> FactsAt(int folder, const char* path, int flags) {
    struct statx found {};
    if (statx(folder, path, flags, STATX_BASIC_STATS | STATX_BTIME, &found) != 0) return std::nullopt;
    FileFacts facts;
    facts.sizeBytes = found.stx_size;
    if ((found.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) facts.attributes |= ReadOnly;
    facts.attributes |= S_ISDIR(found.stx_mode) ? Directory : Archive;
    facts.lastWriteTime = FileTime(found.stx_mtime.tv_sec, found.stx_mtime.tv_nsec);
    facts.lastAccessTime = FileTime(found.stx_atime.tv_sec, found.stx_atime.tv_nsec);
    const bool isBirthKnown = (found.stx_mask & STATX_BTIME) != 0;
    facts.creationTime = isBirthKnown ? FileTime(found.stx_btime.tv_sec, found.stx_btime.tv_nsec) : facts.lastWriteTime;
    return facts;
}

class PosixInputFile final : public InputFile {
public:
    explicit PosixInputFile(int file) : file(file) {}
    ~PosixInputFile() override { close(file); }

    std::optional<std::size_t> Read(void* data, std::size_t sizeBytes) override {
        char* bytes = static_cast<char*>(data);
        std::size_t total = 0;
        while (total < sizeBytes) {
            const std::size_t wanted = sizeBytes - total;
            const ssize_t got = read(file, bytes + total, wanted < largestTransfer ? wanted : largestTransfer);
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) return std::nullopt;
            if (got == 0) break;
            total += static_cast<std::size_t>(got);
        }
        return total;
    }

    bool Seek(std::uint64_t offset) override { return lseek(file, static_cast<off_t>(offset), SEEK_SET) >= 0; }

    std::optional<FileFacts> Facts() override { return FactsAt(file, "", AT_EMPTY_PATH); }

private:
    int file;
};

class PosixFiles final : public FileLayer {
public:
    std::unique_ptr<OutputFile> CreateOrTruncate(const std::string& path) override {
        const int file = WithoutInterruption(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC);
        if (file < 0) return nullptr;
        return std::make_unique<PosixOutputFile>(file);
    }

    std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
        const int file = WithoutInterruption(path.c_str(), O_RDONLY);
        if (file < 0) return nullptr;
        auto opened = std::make_unique<PosixInputFile>(file);
        const std::optional<FileFacts> facts = opened->Facts();
        if (!facts || (facts->attributes & Directory) != 0) return nullptr;
        return opened;
    }

    FolderCreation CreateFolder(const std::string& path) override {
        if (mkdir(path.c_str(), 0700) == 0) return FolderCreation::Created;
        return errno == EEXIST ? FolderCreation::AlreadyThere : FolderCreation::Failed;
    }

    bool RemoveFile(const std::string& path) override { return unlink(path.c_str()) == 0; }
    bool RemoveFolder(const std::string& path) override { return rmdir(path.c_str()) == 0; }
    bool Replace(const std::string& from, const std::string& to) override {
        return std::rename(from.c_str(), to.c_str()) == 0;
    }
};

} // namespace

FileLayer& OperatingSystemFiles() {
    static PosixFiles files;
    return files;
}

std::optional<FileFacts> FactsOf(const std::string& path) {
    return FactsAt(AT_FDCWD, path.c_str(), 0);
}

bool MayReplace(const std::string& path) {
    const std::optional<FileFacts> facts = FactsOf(path);
    if (!facts) return true;
    return (facts->attributes & Directory) == 0 && access(path.c_str(), W_OK) == 0;
}

} // namespace platform
