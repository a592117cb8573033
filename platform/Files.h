// Files and folders as the archive and workbook writers need them: one interface, an implementation for Windows and one
// for POSIX, and room for a fake that makes an operation fail. Paths are narrow text: the system's code page on Windows
// (see Text.h), UTF-8 on POSIX; "/" separates folders on both. A path with a NUL inside is refused.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace platform {

/// Attribute bits as the archive stores them; POSIX knows ReadOnly (no write permission for anybody) and Directory, and
/// every ordinary file there carries Archive, as a freshly written file on Windows does.
enum FileAttribute : std::uint32_t {
    ReadOnly = 0x01,
    Hidden = 0x02,
    System = 0x04,
    Directory = 0x10,
    Archive = 0x20,
};

/// Times are counted in 100 ns since 1601-01-01 00:00 UTC.
struct FileFacts {
    std::uint64_t sizeBytes = 0;
    std::uint32_t attributes = 0; ///< FileAttribute bits; others are cleared
    std::uint64_t lastWriteTime = 0;
    std::uint64_t lastAccessTime = 0;
    std::uint64_t creationTime = 0; ///< the last-write time where the file system keeps none
};

/// A file open for writing. Nothing is buffered above the operating system. Destroying an open file closes it and drops
/// the result, so whoever wants the file whole calls Close.
class OutputFile {
public:
    virtual ~OutputFile() = default;
    /// False for a pipe or a terminal.
    [[nodiscard]] virtual bool CanSeek() const = 0;
    /// Writes all of it or answers false; after false the position is unknown.
    [[nodiscard]] virtual bool Write(const void* data, std::size_t sizeBytes) = 0;
    /// Moves the position, counted from the file's start.
    [[nodiscard]] virtual bool Seek(std::uint64_t offset) = 0;
    /// Hands everything written to the storage device.
    [[nodiscard]] virtual bool Flush() = 0;
    /// To be called once; the file is closed afterwards whatever the answer is.
    [[nodiscard]] virtual bool Close() = 0;
};

/// A file open for reading.
class InputFile {
public:
    virtual ~InputFile() = default;
    /// Number of bytes read, fewer than asked only at the end of the file; none after a failure.
    [[nodiscard]] virtual std::optional<std::size_t> Read(void* data, std::size_t sizeBytes) = 0;
    [[nodiscard]] virtual bool Seek(std::uint64_t offset) = 0;
    [[nodiscard]] virtual std::optional<FileFacts> GetFacts() = 0;
};

enum class Creation { Created, AlreadyThere, Failed };

/// What the writers ask of a file system. No operation throws; a failure has no further reason than its operation.
class FileLayer {
public:
    virtual ~FileLayer() = default;
    /// Creates the file, or empties the one that is there, for writing only. On Windows nobody else may have it open
    /// (share mode none), and a file that somebody has open is left as it is. Null on failure.
    [[nodiscard]] virtual std::unique_ptr<OutputFile> CreateOrTruncate(const std::string& path) = 0;
    /// Creates an empty file where nothing has that name yet. On POSIX it gets permissions, owner and group of the
    /// file `model`, if there is one, as far as this user may give them; on Windows the folder decides.
    [[nodiscard]] virtual Creation CreateEmpty(const std::string& path, const std::string& model) = 0;
    /// Opens an existing file for reading; others may read it meanwhile. A folder is refused. Null on failure.
    [[nodiscard]] virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path) = 0;
    /// Creates one folder inside an existing one; on POSIX only its owner may enter it.
    [[nodiscard]] virtual Creation CreateFolder(const std::string& path) = 0;
    /// False also when there is no such file.
    [[nodiscard]] virtual bool RemoveFile(const std::string& path) = 0;
    /// Removes an empty folder.
    [[nodiscard]] virtual bool RemoveFolder(const std::string& path) = 0;
    /// Gives `from` the name `to` in one step; a file of that name is replaced, and stays whole on failure.
    [[nodiscard]] virtual bool Replace(const std::string& from, const std::string& to) = 0;
};

/// The operating system's own files. One object for the whole run.
[[nodiscard]] FileLayer& GetOperatingSystemFiles();

/// Facts of a file or folder by its path; none when there is nothing there.
[[nodiscard]] std::optional<FileFacts> GetFactsOf(const std::string& path);

/// Where a symbolic link leads in the end, also when nothing is there yet; another path as it is. None when links lead
/// round in a circle or cannot be read.
[[nodiscard]] std::optional<std::string> FollowLinks(const std::string& path);

/// False when something is there that is no ordinary file (a folder, a device, a pipe), or that this user may not
/// write, although its folder may let him replace it.
[[nodiscard]] bool MayReplace(const std::string& path);

} // namespace platform
