// The rows of a building model as plain values: what the project file keeps and what a change replaces.
#pragma once

#include "host/Libraries.h"
#include "host/Model.h"
#include "host/Properties.h"
#include "host/Values.h"
#include "workbench/model/Origins.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace workbench {

/// An element's components stand in the model's component list, one after another.
struct Element {
    host::Guid guid;
    host::ElementType type = host::ElementType::Object;
    host::AttributeIndex layer;
    host::Guid classification; ///< item of an element classification system; null where it has none
    std::uint32_t firstComponent = 0;
    std::uint32_t componentCount = 0;
    std::string name;
    std::string kind;     ///< what the source calls it, such as an IFC entity name
    std::string typeName; ///< doors and windows: of the type that they are pieces of; empty where unknown
    /// Doors and windows: overall width x height, else as the source says it; 0 where unknown.
    double openingAreaM2 = 0.0;
    std::optional<std::uint32_t> storey;    ///< position in the model's list
    std::optional<double> statedVolumeM3;   ///< as the source says it, also where it is not used
    std::optional<double> computedVolumeM3; ///< of its geometry, also where it is not used
    std::shared_ptr<const Origins> origins; ///< of its values; null: nothing is known
};

struct Storey {
    std::string name;
    double elevationM = 0.0;
};

/// Nine coordinates a triangle, in metres.
using Triangles = std::vector<float>;

struct Layer {
    host::AttributeIndex index;
    std::string name;
};

/// Components 0 to 1.
using Shade = std::array<double, 3>;

struct Pen {
    host::AttributeIndex index;
    Shade shade{};
};

struct Fill {
    host::AttributeIndex index;
    std::string name;
    std::array<std::uint8_t, 8> pattern{}; ///< one byte a row, most significant bit left
};

struct Surface {
    host::AttributeIndex index;
    std::string name;
    Shade shade{};
};

struct ClassificationItem {
    host::ClassificationItem item;
    host::Guid system;
    host::Guid parent; ///< null for a root item
};

struct MaterialClassification {
    host::AttributeIndex material;
    host::Guid item;
};

struct MaterialValue {
    host::AttributeIndex material;
    host::Guid definition;
    host::Variant value;
};

struct ElementValue {
    host::Guid element;
    host::Guid definition;
    host::Variant value;
};

struct Member {
    std::int16_t userId = 0; ///< from 1
    std::string login;
    std::string fullName;
};

/// A lockable set held by a member.
struct Reservation {
    std::string lockableSet;
    std::int16_t userId = 0;
};

/// A member asks the holder of a set to release it.
struct ReservationRequest {
    std::string lockableSet;
    std::int16_t userId = 0;

    friend bool operator==(const ReservationRequest&, const ReservationRequest&) = default;
};

/// A section, layout and so on; floor plan and 3D model exist without a row.
struct DatabaseRow {
    host::DatabaseType type = host::DatabaseType::None;
    host::Guid guid;
    std::string name;
};

struct LibraryPart {
    std::string identifier; ///< pair of braced identifiers joined by "-"
    std::string fileName;
    std::vector<host::ObjectParameter> parameters; ///< with their default values
};

/// Settings under a name; of an object those of its library part.
struct FavouriteRow {
    std::string name;
    bool isObject = true;
    std::string libraryPart; ///< identifier
    double angle = 0.0;      ///< radians
    double xRatio = 1.0;     ///< factors on the part's own size
    double yRatio = 1.0;
    std::vector<host::ObjectParameter> parameters;
};

/// An object on a drawing. Not a building element: it has no components and no place in the 3D model.
struct PlacedObject {
    host::Guid guid;
    host::Guid database;     ///< null: the floor plan
    std::string libraryPart; ///< identifier
    host::Point position;
    double angle = 0.0;  ///< radians
    double xRatio = 1.0; ///< factors on the part's own size
    double yRatio = 1.0;
    std::vector<host::ObjectParameter> parameters;
};

/// Everything that a command may change. Which row is meant is told by its key members.
using Row = std::variant<host::PropertyGroup, host::PropertyDefinition, host::ClassificationSystem, ClassificationItem,
                         MaterialClassification, MaterialValue, ElementValue, host::BuildingMaterial, PlacedObject>;

/// One row replaced (both), added (no before) or removed (no after).
struct Change {
    std::optional<Row> before;
    std::optional<Row> after;

    Change GetInverse() const { return {after, before}; }
};

} // namespace workbench
