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

/// An object element without its parameters.
struct ObjectElement {
    LibraryPartIndex libraryPart;
    Point position;
    double angle = 0.0;  ///< radians
    double xRatio = 1.0; ///< factor on the part's size A; of an object placed with a fixed size that size, in metres
    double yRatio = 1.0; ///< the same of size B
};

struct Favourite {
    bool isObject = false;
    std::string libraryPartId; ///< pair of braced identifiers joined by "-"; of objects
    ObjectElement element;
    std::vector<ObjectParameter> parameters;
};

class Libraries {
public:
    virtual ~Libraries() = default;

    /// identifier is a pair of braced identifiers joined by "-". BadId when no loaded library has an object of it.
    virtual ErrorCode FindObject(const std::string& identifier, LibraryPartIndex& part) = 0;
    /// The default element of a part with its default parameters.
    virtual ErrorCode ReadDefaults(LibraryPartIndex part, ObjectElement& element,
                                   std::vector<ObjectParameter>& parameters) = 0;
    /// Names of all favourites, in the host's order.
    virtual ErrorCode ListFavourites(std::vector<std::string>& names) = 0;
    /// BadName when there is none of this name.
    virtual ErrorCode ReadFavourite(const std::string& name, Favourite& favourite) = 0;
};

/// Objects of the current database. Changes answer NeedsUndoScope outside an undoable command.
class PlacedObjects {
public:
    virtual ~PlacedObjects() = default;

    /// BadId where there is no such object in the current database.
    virtual ErrorCode Read(const Guid& object, ObjectElement& element) = 0;
    virtual ErrorCode ReadParameters(const Guid& object, std::vector<ObjectParameter>& parameters) = 0;
    virtual ErrorCode WriteParameters(const Guid& object, const std::vector<ObjectParameter>& parameters) = 0;
    /// Writes the new identifier into object. BadId for a part that is not loaded.
    virtual ErrorCode Create(const ObjectElement& element, const std::vector<ObjectParameter>& parameters,
                             Guid& object) = 0;
};

} // namespace host
