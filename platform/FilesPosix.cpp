#include "platform/Files.h"

#include "platform/OsPath.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::uint64_t UnixEpoch = 116444736000000000; // 1970-01-01 in 100 ns since 1601-01-01
constexpr std::size_t LargestTransfer = 1U << 30;
constexpr int MostLinks = 40; // as many as the system itself follows

int WithoutInterruption(const std::string& path, int flags, mode_t mode = 0666) {
    int file;
    do {
        file = open(OsPath(path), flags | O_CLOEXEC, mode);
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
            const ssize_t written = write(file, bytes, sizeBytes < LargestTransfer ? sizeBytes : LargestTransfer);
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
    return UnixEpoch + static_cast<std::uint64_t>(seconds * 10000000) + nanoseconds / 100;
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
            const ssize_t got = read(file, bytes + total, wanted < LargestTransfer ? wanted : LargestTransfer);
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) return std::nullopt;
            if (got == 0) break;
            total += static_cast<std::size_t>(got);
        }
        return total;
    }

    bool Seek(std::uint64_t offset) override { return lseek(file, static_cast<off_t>(offset), SEEK_SET) >= 0; }

    std::optional<FileFacts> GetFacts() override { return FactsAt(file, "", AT_EMPTY_PATH); }

private:
    int file;
};

// What the group may do goes with the group: where that cannot be given, nobody else's group gets it.
bool TakePermissions(int file, const struct stat& like) {
    constexpr uid_t SameOwner = static_cast<uid_t>(-1);
    const bool hasGroup = fchown(file, like.st_uid, like.st_gid) == 0 || fchown(file, SameOwner, like.st_gid) == 0;
    const mode_t mode = like.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    return fchmod(file, hasGroup ? mode : mode & ~static_cast<mode_t>(S_IRWXG)) == 0;
}

class PosixFiles final : public FileLayer {
public:
    std::unique_ptr<OutputFile> CreateOrTruncate(const std::string& path) override {
        const int file = WithoutInterruption(path, O_WRONLY | O_CREAT | O_TRUNC);
        if (file < 0) return nullptr;
        return std::make_unique<PosixOutputFile>(file);
    }

    Creation CreateEmpty(const std::string& path, const std::string& model) override {
        struct stat like {};
        const bool hasModel = stat(OsPath(model), &like) == 0;
        const int file = WithoutInterruption(path, O_WRONLY | O_CREAT | O_EXCL, hasModel ? 0600 : 0666);
        if (file < 0) return errno == EEXIST ? Creation::AlreadyThere : Creation::Failed;
        const bool isLikeModel = !hasModel || TakePermissions(file, like);
        const bool isClosed = close(file) == 0;
        if (isLikeModel && isClosed) return Creation::Created;
        unlink(OsPath(path));
        return Creation::Failed;
    }

    std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
        const int file = WithoutInterruption(path, O_RDONLY);
        if (file < 0) return nullptr;
        auto opened = std::make_unique<PosixInputFile>(file);
        const std::optional<FileFacts> facts = opened->GetFacts();
        if (!facts || (facts->attributes & Directory) != 0) return nullptr;
        return opened;
    }

    Creation CreateFolder(const std::string& path) override {
        if (mkdir(OsPath(path), 0700) == 0) return Creation::Created;
        return errno == EEXIST ? Creation::AlreadyThere : Creation::Failed;
    }

    bool RemoveFile(const std::string& path) override { return unlink(OsPath(path)) == 0; }
    bool RemoveFolder(const std::string& path) override { return rmdir(OsPath(path)) == 0; }
    bool Replace(const std::string& from, const std::string& to) override {
        return std::rename(OsPath(from), OsPath(to)) == 0;
    }
};

} // namespace

FileLayer& GetOperatingSystemFiles() {
    static PosixFiles files;
    return files;
}

std::optional<FileFacts> GetFactsOf(const std::string& path) {
    return FactsAt(AT_FDCWD, OsPath(path), 0);
}

std::optional<std::string> FollowLinks(const std::string& path) {
    std::string place = path;
    for (int link = 0; link < MostLinks; ++link) {
        char next[PATH_MAX];
        const ssize_t size = readlink(OsPath(place), next, sizeof next);
        if (size < 0 && (errno == EINVAL || errno == ENOENT)) return place; // no link, or nothing at all
        if (size <= 0 || static_cast<std::size_t>(size) == sizeof next) return std::nullopt;
        const std::string target(next, static_cast<std::size_t>(size));
        const std::size_t name = place.rfind('/') + 1; // 0 where there is no folder
        place.erase(target.front() == '/' ? 0 : name);
        place += target;
    }
    return std::nullopt;
}

bool MayReplace(const std::string& path) {
    struct stat found {};
    if (stat(OsPath(path), &found) != 0) return true;
    return S_ISREG(found.st_mode) && access(OsPath(path), W_OK) == 0;
}

} // namespace platform
