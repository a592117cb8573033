// What the reader program and its caller say to each other. The answer is a stream of frames; numbers are
// little-endian:
//
//   offset  size
//   0       4     "KVIF"
//   4       2     version of the format, derived from the lists of fields
//   6       2     kind, FrameKind
//   8       8     length of the payload
//   16      8     FNV-1a (64 bits) of the payload
//   24      ...   payload
//
// Progress: one double. Working: the entity number (8 bytes) of the element whose geometry is computed next, so that a
// death can be laid to it, 0 when it is done. Refused: code (1 byte), what is wrong, what to do. Building: the whole
// result, last frame. Within a payload a text or list is its count (4 bytes) and its items, an optional value one byte
// 0 or 1 and the value.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "workbench/ifc/ImportProblem.h"
#include "workbench/ifc/ImportedBuilding.h"

namespace workbench::ifc {

inline constexpr std::size_t FrameHeaderSize = 24;
inline constexpr std::uint64_t LongestPayload = std::uint64_t(1) << 31;

enum class FrameKind : std::uint16_t { Progress = 1, Working = 2, Refused = 3, Building = 4 };

/// Exit codes of the reader program.
inline constexpr int ExitDone = 0;
inline constexpr int ExitUsage = 2;
inline constexpr int ExitNoAnswerPipe = 3;
inline constexpr int ExitOutOfMemory = 71;

[[nodiscard]] std::string EncodeProgress(double share);
[[nodiscard]] std::string EncodeWorking(std::uint64_t entity);
[[nodiscard]] std::string EncodeRefusal(const ImportProblem& problem);
[[nodiscard]] std::string EncodeBuilding(const ImportedBuilding& building);

/// Puts the pieces of an answer together. What comes from a child that may have gone mad is believed in nothing: magic,
/// version, checksum, counts, indices and numbers are checked.
class AnswerReader {
public:
    /// False where the stream is no answer; then nothing more is taken.
    bool Take(std::string_view piece);

    [[nodiscard]] double Progress() const { return progress; }
    [[nodiscard]] std::optional<std::uint64_t> Working() const { return working; }
    [[nodiscard]] const std::optional<ImportProblem>& Refusal() const { return refusal; }
    [[nodiscard]] std::optional<ImportedBuilding>& Building() { return building; }
    [[nodiscard]] bool IsBroken() const { return broken; }

private:
    bool TakeFrames();
    bool TakePayload(FrameKind kind, std::string_view payload);

    std::string pending;
    double progress = 0.0;
    std::optional<std::uint64_t> working;
    std::optional<ImportProblem> refusal;
    std::optional<ImportedBuilding> building;
    bool broken = false;
};

} // namespace workbench::ifc
