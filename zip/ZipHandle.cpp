#include "zip/ZipHandle.h"

#include "zip/LastResult.h"

namespace zip {

namespace {

ZipResult Told(ZipResult result) {
    SetLastResult(result);
    return result;
}

} // namespace

std::unique_ptr<ZipHandle> Create(const std::string& path) {
    auto handle = std::make_unique<ZipHandle>();
    if (handle->writer.Create(path) != ZipResult::Success) return nullptr;
    return handle;
}

ZipResult AddFile(ZipHandle* handle, const std::string& entryName, const std::string& sourcePath) {
    if (handle == nullptr) return Told(ZipResult::FaultyArguments);
    if (handle->kind != HandleKind::Writer) return Told(ZipResult::MixedCreationAndOpening);
    return handle->writer.AddFile(entryName, sourcePath);
}

ZipResult Close(std::unique_ptr<ZipHandle> handle) {
    if (!handle) return Told(ZipResult::FaultyArguments);
    if (handle->kind != HandleKind::Writer) return Told(ZipResult::MixedCreationAndOpening);
    return handle->writer.Close();
}

} // namespace zip
