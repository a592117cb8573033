// Plain values that cross the host interface: identifiers, codes and small enumerations. The numbers are the host's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace host {

/// The result of a host operation: 0 is success; every other value is the host's and is passed on unchanged. True means
/// an error, so that `if (error)` reads naturally. Ignoring a code must be explicit.
class [[nodiscard]] ErrorCode {
public:
    constexpr ErrorCode() = default;
    constexpr ErrorCode(std::int32_t value) : value(value) {}

    constexpr std::int32_t GetValue() const { return value; }
    constexpr explicit operator bool() const { return value != 0; }
    /// Combines the codes of several registrations bit by bit, as the host expects from an entry.
    constexpr ErrorCode& operator|=(ErrorCode other) {
        value |= other.value;
        return *this;
    }
    friend constexpr bool operator==(ErrorCode a, ErrorCode b) { return a.value == b.value; }
    friend constexpr bool operator!=(ErrorCode a, ErrorCode b) { return a.value != b.value; }

private:
    std::int32_t value = 0;
};

inline constexpr ErrorCode NoError;

/// The code as in the host's list of codes: 0x and eight hexadecimal digits.
std::string WriteErrorCode(ErrorCode code);

/// The host's numbers. An adapter that knows the host's names for them should compare with those.
namespace Errors {
constexpr ErrorCode Code(std::uint32_t value) {
    return ErrorCode(static_cast<std::int32_t>(value));
}
inline constexpr ErrorCode General = Code(0x81060001U);
inline constexpr ErrorCode OutOfMemory = Code(0x81060002U);
inline constexpr ErrorCode Cancelled = Code(0x81060003U);
inline constexpr ErrorCode BadId = Code(0x81060065U);
inline constexpr ErrorCode BadIndex = Code(0x81060066U);
inline constexpr ErrorCode BadName = Code(0x81060067U);
inline constexpr ErrorCode BadParameters = Code(0x81060068U);
inline constexpr ErrorCode BadDatabase = Code(0x8106006AU);
inline constexpr ErrorCode BadWindow = Code(0x8106006BU);
inline constexpr ErrorCode BadValue = Code(0x81060070U);
inline constexpr ErrorCode NoProject = Code(0x810600CBU);
inline constexpr ErrorCode NotEditable = Code(0x810600CFU);
inline constexpr ErrorCode NoTeamworkProject = Code(0x810600D3U);
inline constexpr ErrorCode UndoEmpty = Code(0x810600E2U);
inline constexpr ErrorCode NameAlreadyUsed = Code(0x810600E4U);
inline constexpr ErrorCode Deleted = Code(0x8106012EU);
inline constexpr ErrorCode LockedLayer = Code(0x8106012FU);
inline constexpr ErrorCode HiddenLayer = Code(0x81060130U);
inline constexpr ErrorCode NotMine = Code(0x81060132U); ///< another add-on's, or another member's
inline constexpr ErrorCode NoAccessRight = Code(0x81060133U);
inline constexpr ErrorCode BadProperty = Code(0x81060134U);
inline constexpr ErrorCode ModuleNotInstalled = Code(0x81060191U);
inline constexpr ErrorCode CommandNotSupported = Code(0x81060193U);
inline constexpr ErrorCode CommandVersionNotSupported = Code(0x81060194U);
inline constexpr ErrorCode RefusedCommand = Code(0x81060388U);
inline constexpr ErrorCode CommandFailed = Code(0x8106038CU); ///< the undoable command threw
inline constexpr ErrorCode NeedsUndoScope = Code(0x8106038DU);
} // namespace Errors

/// A 128-bit identifier; all zero means "none".
struct Guid {
    std::array<std::uint8_t, 16> bytes{};

    bool IsNull() const { return *this == Guid{}; }
    friend bool operator==(const Guid& a, const Guid& b) { return a.bytes == b.bytes; }
    friend bool operator!=(const Guid& a, const Guid& b) { return a.bytes != b.bytes; }
    friend bool operator<(const Guid& a, const Guid& b) { return a.bytes < b.bytes; }
};

/// Reads "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", braces optional; returns the null identifier for anything else.
Guid ParseGuid(const std::string& text);
/// Writes the braced upper-case form that ParseGuid reads.
std::string WriteGuid(const Guid& guid);
/// A new random identifier (version 4).
Guid CreateGuid();

/// Index of an attribute within its kind, counted from 1; 0 is "none".
struct AttributeIndex {
    std::int32_t value = 0;

    friend bool operator==(AttributeIndex a, AttributeIndex b) { return a.value == b.value; }
    friend bool operator!=(AttributeIndex a, AttributeIndex b) { return a.value != b.value; }
    friend bool operator<(AttributeIndex a, AttributeIndex b) { return a.value < b.value; }
};

/// Kinds of model elements, with the host's numbers; 0 requests all kinds.
enum class ElementType : std::int32_t {
    All = 0,
    Wall = 1,
    Column = 2,
    Beam = 3,
    Window = 4,
    Door = 5,
    Object = 6,
    Slab = 8,
    Roof = 9,
    Mesh = 10,
    CurtainWall = 37,
    Shell = 43,
    Skylight = 44,
    Morph = 45,
    Stair = 47,
    Railing = 51
};

/// Kinds of databases and of the windows that show them, with the host's numbers.
enum class DatabaseType : std::int32_t {
    None = 0,
    FloorPlan = 1,
    Section = 2,
    Detail = 3,
    Model3D = 4,
    Layout = 5,
    MasterLayout = 9,
    Elevation = 10,
    InteriorElevation = 11,
    Worksheet = 12
};

/// Project events, with the host's codes (combined as a mask when a handler is installed).
enum class ProjectEvent : std::uint32_t {
    New = 0x1,
    NewAndReset = 0x2,
    Open = 0x4,
    Quit = 0x40,
    WindowChanged = 0x80000,
    AllInputFinished = 0x400000
};
inline constexpr std::uint32_t AllProjectEvents = 0xFFFFFFFFU;

/// The code of a command from its four characters, most significant byte first.
constexpr std::uint32_t CommandCode(const char (&text)[5]) {
    std::uint32_t code = 0;
    for (int i = 0; i < 4; ++i)
        code = (code << 8U) | static_cast<unsigned char>(text[i]);
    return code;
}

/// Identifies an add-on among the loaded ones.
struct ModuleId {
    std::uint32_t developerId = 0;
    std::uint32_t localId = 0;

    friend bool operator==(const ModuleId& a, const ModuleId& b) {
        return a.developerId == b.developerId && a.localId == b.localId;
    }
};

/// Eight bits per channel, for the dialog manager and for drawing; alpha 0 is transparent.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    friend bool operator==(const Colour& a, const Colour& b) {
        return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
    }
};

/// An attribute's colour as the host stores it, each channel from 0 to 1.
struct Shade {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
};

/// A point in the plan, in metres.
struct Point {
    double x = 0.0;
    double y = 0.0;
};

/// In dialog pixels.
struct Rectangle {
    std::int16_t left = 0;
    std::int16_t top = 0;
    std::int16_t width = 0;
    std::int16_t height = 0;

    friend bool operator==(const Rectangle& a, const Rectangle& b) {
        return a.left == b.left && a.top == b.top && a.width == b.width && a.height == b.height;
    }
};

} // namespace host

template <>
struct std::hash<host::Guid> {
    std::size_t operator()(const host::Guid& guid) const noexcept {
        std::uint64_t hash = 14695981039346656037ULL;
        for (std::uint8_t byte : guid.bytes)
            hash = (hash ^ byte) * 1099511628211ULL;
        return static_cast<std::size_t>(hash);
    }
};

template <>
struct std::hash<host::AttributeIndex> {
    std::size_t operator()(host::AttributeIndex index) const noexcept { return static_cast<std::size_t>(index.value); }
};
