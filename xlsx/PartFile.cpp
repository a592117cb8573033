#include "xlsx/PartFile.h"

#include <utility>

namespace Xlsx {

namespace {

constexpr std::size_t BufferSize = 1 << 16;

} // namespace

PartFile::PartFile(std::unique_ptr<platform::OutputFile> file) : file(std::move(file)) {
    buffer.reserve(BufferSize);
    hasFailed = this->file == nullptr;
}

bool PartFile::Close() {
    if (!file) return false;
    Flush();
    if (!file->Close()) hasFailed = true;
    file.reset();
    return !hasFailed;
}

void PartFile::Flush() {
    if (file && !hasFailed && !buffer.empty()) hasFailed = !file->Write(buffer.data(), buffer.size());
    buffer.clear();
}

} // namespace Xlsx
