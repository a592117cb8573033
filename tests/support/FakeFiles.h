// A file system in memory whose operations can be made to fail, one after the other.
#pragma once

#include "platform/Files.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <new>
#include <set>
#include <string>

namespace support {

enum class Seekable { No, Yes };

/// A file in memory. `content` makes the bytes at an offset where nothing is stored, for files too large to hold.
struct FakeFile {
    std::string bytes;
    platform::FileFacts facts;
    std::function<std::string(std::size_t)> content = nullptr; ///< n-th read's bytes; empty: the end
};

/// Counts every operation that may fail; the one with the number `failAt` (from 0) fails, and all writes after it when
/// `staysBroken` says so, as on a full disk.
class FakeFiles : public platform::FileLayer {
public:
    std::map<std::string, FakeFile> files;
    std::set<std::string> folders;
    int operations = 0;
    int failAt = -1;
    bool staysBroken = false;
    bool throwsOnFailure = false; ///< as if memory ran out within the operation
    Seekable outputs = Seekable::Yes;
    bool discardsOutput = false;
    int openFiles = 0;
    int flushes = 0;

    FakeFile& AddFile(const std::string& path, const std::string& bytes) {
        FakeFile& file = files[path];
        file.bytes = bytes;
        file.facts.sizeBytes = bytes.size();
        file.facts.attributes = platform::FileAttribute::Archive;
        return file;
    }

    bool Fails() {
        const int now = operations++;
        const bool fails = failAt >= 0 && (staysBroken ? now >= failAt : now == failAt);
        if (fails && throwsOnFailure) throw std::bad_alloc();
        return fails;
    }

    std::unique_ptr<platform::OutputFile> CreateOrTruncate(const std::string& path) override {
        if (Fails()) return nullptr;
        files[path] = FakeFile();
        return std::make_unique<Output>(*this, path);
    }
    platform::Creation CreateEmpty(const std::string& path, const std::string&) override {
        if (Fails()) return platform::Creation::Failed;
        return files.emplace(path, FakeFile()).second ? platform::Creation::Created : platform::Creation::AlreadyThere;
    }
    std::unique_ptr<platform::InputFile> OpenForReading(const std::string& path) override {
        if (Fails() || files.count(path) == 0) return nullptr;
        return std::make_unique<Input>(*this, files[path]);
    }
    platform::Creation CreateFolder(const std::string& path) override {
        if (Fails()) return platform::Creation::Failed;
        return folders.insert(path).second ? platform::Creation::Created : platform::Creation::AlreadyThere;
    }
    bool RemoveFile(const std::string& path) override { return !Fails() && files.erase(path) == 1; }
    bool RemoveFolder(const std::string& path) override { return !Fails() && folders.erase(path) == 1; }
    bool Replace(const std::string& from, const std::string& to) override {
        if (Fails() || files.count(from) == 0) return false;
        files[to] = files[from];
        return files.erase(from) == 1;
    }

private:
    class Output final : public platform::OutputFile {
    public:
        Output(FakeFiles& owner, const std::string& path) : owner(owner), path(path) { ++owner.openFiles; }
        ~Output() override { Release(); }
        bool CanSeek() const override { return owner.outputs == Seekable::Yes; }
        bool Write(const void* data, std::size_t sizeBytes) override {
            if (owner.Fails()) return false;
            if (!owner.discardsOutput) {
                FakeFile& file = owner.files[path];
                file.bytes.resize(std::max<std::size_t>(file.bytes.size(), position + sizeBytes));
                std::memcpy(file.bytes.data() + position, data, sizeBytes);
                file.facts.sizeBytes = file.bytes.size();
            }
            position += sizeBytes;
            return true;
        }
        bool Seek(std::uint64_t offset) override {
            position = offset;
            return owner.outputs == Seekable::Yes && !owner.Fails();
        }
        bool Flush() override {
            ++owner.flushes;
            return !owner.Fails();
        }
        bool Close() override {
            Release();
            return !owner.Fails();
        }

    private:
        void Release() {
            if (isOpen) --owner.openFiles;
            isOpen = false;
        }
        FakeFiles& owner;
        std::string path;
        std::uint64_t position = 0;
        bool isOpen = true;
    };

    class Input final : public platform::InputFile {
    public:
        Input(FakeFiles& owner, const FakeFile& file) : owner(owner), file(file) { ++owner.openFiles; }
        ~Input() override { --owner.openFiles; }
        std::optional<std::size_t> Read(void* data, std::size_t sizeBytes) override {
            if (owner.Fails()) return std::nullopt;
            if (file.content) {
                const std::string part = file.content(reads++);
                const std::size_t now = std::min(part.size(), sizeBytes);
                std::memcpy(data, part.data(), now);
                return now;
            }
            const std::size_t now = std::min<std::size_t>(sizeBytes, file.bytes.size() - position);
            std::memcpy(data, file.bytes.data() + position, now);
            position += now;
            return now;
        }
        bool Seek(std::uint64_t offset) override {
            position = offset;
            return !owner.Fails();
        }
        std::optional<platform::FileFacts> GetFacts() override {
            if (owner.Fails()) return std::nullopt;
            return file.facts;
        }

    private:
        FakeFiles& owner;
        FakeFile file;
        std::uint64_t position = 0;
        std::size_t reads = 0;
    };
};

} // namespace support
