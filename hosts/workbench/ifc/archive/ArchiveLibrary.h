// What is used of libarchive: the reading of zip archives. Declared here by itself, so that its writing half is out of
// reach; the documentation is archive_read(3) and archive_entry(3).
#pragma once

#include <cstddef>
#include <sys/types.h>

// NOLINTBEGIN(readability-identifier-naming): the library's names
extern "C" {
struct archive;
struct archive_entry;

archive* archive_read_new(void);
int archive_read_support_format_zip(archive*);
int archive_read_open_memory(archive*, const void* bytes, size_t size);
int archive_read_next_header(archive*, archive_entry**);
ssize_t archive_read_data(archive*, void* place, size_t size);
int archive_read_free(archive*);
const char* archive_entry_pathname(archive_entry*);
}
// NOLINTEND(readability-identifier-naming)

namespace workbench::archive {

inline constexpr int EndOfArchive = 1;
/// Something was odd and was understood; what is below is an error.
inline constexpr int DoneWithWarning = -20;

} // namespace workbench::archive
