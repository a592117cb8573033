// Takes a file out of a zip archive in memory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace workbench::archive {

enum class UnpackProblem : std::uint8_t { None, Damaged, NoSuchFile, SeveralFiles };

struct Unpacked {
    UnpackProblem problem = UnpackProblem::None;
    std::string content; ///< empty where there is a problem
};

/// True for what begins as a zip archive does.
[[nodiscard]] bool IsZip(std::string_view bytes);

/// The one file in the zip archive BYTES whose name ends in SUFFIX, small ASCII letters that stand for capitals too. An
/// encrypted file counts as damaged. As large as memory allows: whoever reads what strangers pack must limit that.
[[nodiscard]] Unpacked UnpackOnly(std::string_view bytes, std::string_view suffix);

} // namespace workbench::archive
