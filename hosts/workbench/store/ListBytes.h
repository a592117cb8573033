// Lists of numbers or code units as the bytes of a project file.
#pragma once

#include "workbench/store/Database.h"

#include <bit>
#include <cstring>

namespace workbench {

static_assert(std::endian::native == std::endian::little, "the file's numbers are little-endian");

template <typename List>
std::string ToBytes(const List& list) {
    return std::string(reinterpret_cast<const char*>(list.data()), list.size() * sizeof list[0]);
}

/// Throws SQLite::Exception where the bytes are not whole items, or not whole groups of so many.
template <typename List>
List FromBytes(const SQLite::Column& column, std::size_t group = 1) {
    List list;
    const auto bytes = static_cast<std::size_t>(column.getBytes());
    Require(bytes % (group * sizeof list[0]) == 0, "a list is cut off");
    list.resize(bytes / sizeof list[0]);
    if (bytes > 0) std::memcpy(list.data(), column.getBlob(), bytes);
    return list;
}

} // namespace workbench
