// Reads an IFC file into plain values. The reading is done by a child program with limits on memory and time, so
// that a hostile file costs a plain error and not this process.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "workbench/ifc/ImportedBuilding.h"
#include "workbench/result/Result.h"

namespace workbench::ifc {

struct ImportSettings {
    std::uint64_t memoryBytes = std::uint64_t(4) << 30; ///< address space of the child
    std::chrono::milliseconds time{600'000};            ///< wall clock of the child
    std::string codePage = {}; ///< of all texts, by iconv's name, known to it; empty: what they hold decides
    bool everyBody = false;    ///< computed also where only stated quantities count, for comparison
};

enum class ImportError : std::uint8_t {
    None,
    NotReadable,       ///< missing, a folder, no permission
    NotIfc,            ///< empty, noise, no STEP header, no data section
    UnsupportedSchema, ///< refused by its header
    Damaged,           ///< truncated, or the reader could not make sense of it
    ReaderDied,
    OutOfMemory,
    OutOfTime,
    ReaderMissing, ///< the child program is not where it should be, or answers in another version
    Cancelled
};

/// A building, or one plain sentence with the file's name, what is wrong and what to do.
class [[nodiscard]] ImportResult : public Result<ImportedBuilding> {
public:
    ImportResult(ImportedBuilding building) : Result(std::move(building)) {}
    ImportResult(ImportError error, std::string sentence) : Result(Failure::Input(std::move(sentence))), error(error) {}

    [[nodiscard]] ImportError GetError() const { return error; }

private:
    ImportError error = ImportError::None;
};

/// Called now and then with the finished share, 0 to 1, never decreasing; false stops the import.
using ImportProgress = std::function<bool(double)>;

/// The child program beside the running executable.
[[nodiscard]] std::filesystem::path DefaultReaderProgram();

/// Reads FILE. Blocks until done; leaves no child behind. Thread-safe. Does not throw for what the file holds.
ImportResult ReadIfcFile(const std::filesystem::path& file, const ImportSettings& settings = {},
                         const ImportProgress& progress = {},
                         const std::filesystem::path& readerProgram = DefaultReaderProgram());

} // namespace workbench::ifc
