// Roles: library parts of the loaded libraries, the host's favourites, and objects placed in databases.
#pragma once

#include "host/Values.h"

#include <vector>

namespace host {

enum class ParameterKind { Real, Text };

/// One parameter of a library part or of a placed object. Only the values that belong to kind and isArray
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
    std::u16string textArray;      ///< the strings in sequence, row by row, each with its terminating zero

    friend bool operator==(const ObjectParameter& a, const ObjectParameter& b) {
        return a.name == b.name && a.kind == b.kind && a.isArray == b.isArray && a.rows == b.rows &&
               a.columns == b.columns && a.real == b.real && a.text == b.text && a.realArray == b.realArray &&
               a.textArray == b.textArray;
    }
};

/// The host keeps a single text in a fixed field of 256 code units, the last of which ends it.
inline constexpr std::size_t ParameterTextLimit = 255;

/// Valid until the loaded libraries change; never stored.
struct LibraryPartIndex {
    std::int32_t value = 0;

    friend bool operator==(LibraryPartIndex a, LibraryPartIndex b) { return a.value == b.value; }
};

/// What a new object is made from: a library part's default element, or a favourite. The host applies all settings that
/// come with it, such as layer, pens, size, angle and classification; the add-on does not see them.
struct ObjectSource {
    LibraryPartIndex libraryPart;
    std::string favourite; ///< name of the favourite; empty: the part's default element
};

class Libraries {
public:
    virtual ~Libraries() = default;

    /// identifier is a pair of braced identifiers joined by "-". BadId if no loaded library contains such an object.
    virtual ErrorCode FindObject(const std::string& identifier, LibraryPartIndex& part) = 0;
    /// Names, in the host's order, of the favourites that are objects of a part with this main identifier (braced, the
    /// first of the part's pair), whatever its revision and whether or not it is loaded.
    virtual ErrorCode ListFavourites(const std::string& mainIdentifier, std::vector<std::string>& names) = 0;
    /// The initial parameters of a new object. BadName if there is no favourite of this name, or it is not one of an
    /// object.
    virtual ErrorCode ReadParameters(const ObjectSource& source, std::vector<ObjectParameter>& parameters) = 0;
};

/// Objects of the current database. Changes return NeedsUndoScope outside an undoable command, and LockedLayer,
/// HiddenLayer, NotEditable, Deleted or NoAccessRight where the object's state requires it.
class PlacedObjects {
public:
    virtual ~PlacedObjects() = default;

    /// BadId if the current database has no such object.
    virtual ErrorCode ReadLibraryPart(const Guid& object, LibraryPartIndex& part) = 0;
    virtual ErrorCode ReadParameters(const Guid& object, std::vector<ObjectParameter>& parameters) = 0;
    virtual ErrorCode WriteParameters(const Guid& object, const std::vector<ObjectParameter>& parameters) = 0;
    /// Places an object with the settings of its source and these parameters; all other parameters are those of the
    /// source. Writes the new identifier into object. BadId if the part is not loaded, BadName if the favourite does
    /// not exist.
    virtual ErrorCode Create(const ObjectSource& source, const Point& position,
                             const std::vector<ObjectParameter>& parameters, Guid& object) = 0;
};

} // namespace host
