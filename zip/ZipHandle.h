// The archive writer behind a handle: create, add, close.
#pragma once

#include "zip/ZipArchiveWriter.h"

#include <memory>
#include <string>

namespace zip {

/// What a handle was made for; only writers are made here.
enum class HandleKind { Writer, Reader };

struct ZipHandle {
    HandleKind kind = HandleKind::Writer;
    ZipArchiveWriter writer;
};

/// A handle on a new archive at the path; null when the file cannot be created (GetLastResult is then FileNotOpened).
[[nodiscard]] std::unique_ptr<ZipHandle> Create(const std::string& path);

/// As ZipArchiveWriter::AddFile; FaultyArguments without a handle, MixedCreationAndOpening for one of another kind.
[[nodiscard]] ZipResult AddFile(ZipHandle* handle, const std::string& entryName, const std::string& sourcePath);

/// As ZipArchiveWriter::Close; the handle is gone whatever the answer is.
[[nodiscard]] ZipResult Close(std::unique_ptr<ZipHandle> handle);

} // namespace zip
