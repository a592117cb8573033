#include "workbench/ifc/archive/Unpacking.h"

#include <algorithm>
#include <array>
#include <memory>

#include "workbench/ifc/archive/ArchiveLibrary.h"

namespace workbench::archive {
namespace {

struct Closer {
    void operator()(::archive* open) const { archive_read_free(open); }
};

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EndsIn(std::string_view name, std::string_view suffix) {
    return name.size() >= suffix.size() &&
           std::equal(suffix.begin(), suffix.end(), name.end() - static_cast<std::ptrdiff_t>(suffix.size()),
                      [](char wanted, char c) { return wanted == LowerCase(c); });
}

/// False where the content cannot be read to its end.
bool ReadContent(::archive* open, std::string& content) {
    std::array<char, 1 << 16> piece{};
    for (;;) {
        const ssize_t size = archive_read_data(open, piece.data(), piece.size());
        if (size < 0) return false;
        if (size == 0) return true;
        content.append(piece.data(), static_cast<std::size_t>(size));
    }
}

} // namespace

bool IsZip(std::string_view bytes) {
    return bytes.starts_with("PK");
}

Unpacked UnpackOnly(std::string_view bytes, std::string_view suffix) {
    const std::unique_ptr<::archive, Closer> open(archive_read_new());
    if (!open || archive_read_support_format_zip(open.get()) < DoneWithWarning ||
        archive_read_open_memory(open.get(), bytes.data(), bytes.size()) < DoneWithWarning) {
        return {UnpackProblem::Damaged, {}};
    }
    Unpacked unpacked{UnpackProblem::NoSuchFile, {}};
    for (archive_entry* entry = nullptr;;) {
        const int state = archive_read_next_header(open.get(), &entry);
        if (state == EndOfArchive) return unpacked;
        if (state < DoneWithWarning) return {UnpackProblem::Damaged, {}};
        const char* const name = archive_entry_pathname(entry);
        if (!name || !EndsIn(name, suffix)) continue;
        if (unpacked.problem == UnpackProblem::None) return {UnpackProblem::SeveralFiles, {}};
        if (!ReadContent(open.get(), unpacked.content)) return {UnpackProblem::Damaged, {}};
        unpacked.problem = UnpackProblem::None;
    }
}

} // namespace workbench::archive
