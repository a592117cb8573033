// Roles: library parts of the loaded libraries, the host's favourites, and the objects that are placed in databases.
#pragma once

#include "host/Values.h"

#include <vector>

namespace host {

enum class ParameterKind { Real, Text };

/// One parameter of a library part or of a placed object. Of the values only those that belong to kind and isArray
/// count.
struct ObjectParameter {
    std::string name;
    ParameterKind kind = ParameterKind::Real;
    bool isArray = false;
    std::int32_t rows = 0;         ///< first dimension of an array
    std::int32_t columns = 0;      ///< second dimension of an array
    double real = 0.0;             ///< also whole numbers and booleans
    std::u16string text;           ///< at most ParameterTextLimit code units
    std::vector<double> realArray; ///< row by row
    std::u16string textArray;      ///< the strings one after another, row by row, each with its terminating zero

    friend bool operator==(const ObjectParameter& a, const ObjectParameter& b) {
        return a.name == b.name && a.kind == b.kind && a.isArray == b.isArray && a.rows == b.rows &&
               a.columns == b.columns && a.real == b.real && a.text == b.text && a.realArray == b.realArray &&
               a.textArray == b.textArray;
    }
};

/// The host keeps a single text in a fixed field of 256 code units, the last of which ends it.
inline constexpr std::size_t ParameterTextLimit = 255;

/// Valid as long as the loaded libraries stay as they are; never stored.
struct LibraryPartIndex {
    std::int32_t value = 0;

    friend bool operator==(LibraryPartIndex a, LibraryPartIndex b) { return a.value == b.value; }
};

/// What a new object is made from: a library part's default element, or a favourite. All settings that come with it,
/// such as layer, pens, size, angle and classification, are the host's to take over; the add-on sees none of them.
struct ObjectSource {
    LibraryPartIndex libraryPart;
    std::string favourite; ///< its name; empty for the part's default element
};

class Libraries {
public:
    virtual ~Libraries() = default;

    /// identifier is a pair of braced identifiers joined by "-". BadId when no loaded library has an object of it.
    virtual ErrorCode FindObject(const std::string& identifier, LibraryPartIndex& part) = 0;
    /// Names of the favourites that are objects of a part with this main identifier (braced, the first of the part's
    /// pair), whatever its revision and whether it is loaded or not, in the host's order.
    virtual ErrorCode ListFavourites(const std::string& mainIdentifier, std::vector<std::string>& names) = 0;
    /// The parameters with which a new object starts. BadName when there is no favourite of this name or it is none of
    /// an object.
    virtual ErrorCode ReadParameters(const ObjectSource& source, std::vector<ObjectParameter>& parameters) = 0;
};

/// Objects of the current database. Changes answer NeedsUndoScope outside an undoable command, and what the object's
/// state asks for: LockedLayer, HiddenLayer, NotEditable, Deleted, NoAccessRight.
class PlacedObjects {
public:
    virtual ~PlacedObjects() = default;

    /// BadId where there is no such object in the current database.
    virtual ErrorCode ReadLibraryPart(const Guid& object, LibraryPartIndex& part) = 0;
    virtual ErrorCode ReadParameters(const Guid& object, std::vector<ObjectParameter>& parameters) = 0;
    virtual ErrorCode WriteParameters(const Guid& object, const std::vector<ObjectParameter>& parameters) = 0;
    /// Places an object with the settings of its source and these parameters; what is not among them stays the
    /// source's. Writes the new identifier into object. BadId for a part that is not loaded, BadName for a favourite
    /// that is not there.
    virtual ErrorCode Create(const ObjectSource& source, const Point& position,
                             const std::vector<ObjectParameter>& parameters, Guid& object) = 0;
};

} // namespace host
