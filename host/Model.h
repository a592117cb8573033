// Roles: the building's elements with their material components, its attributes, its databases and the front window.
#pragma once

#include "host/Values.h"

#include <array>
#include <vector>

namespace host {

struct ElementHeader {
    Guid guid;
    ElementType type = ElementType::All;
    AttributeIndex layer;
};

/// One skin or part of an element.
struct MaterialComponent {
    AttributeIndex buildingMaterial;
    double volumeM3 = 0.0;
    double areaM2 = 0.0;
};

/// In place of a pen: the background of the window.
inline constexpr std::int16_t NoPen = -1;

/// Eight rows of eight pixels, from the top; the highest bit is the leftmost pixel, and a set bit is foreground.
using FillPattern = std::array<std::uint8_t, 8>;

struct BuildingMaterial {
    AttributeIndex index;
    std::string name;
    std::string id;
    double densityKgM3 = 0.0;
    AttributeIndex cutFill;
    std::int16_t cutFillPen = 0;
    std::int16_t cutFillBackgroundPen = 0; ///< 0 is transparent, and so is NoPen
    AttributeIndex cutSurface;
};

/// One of the project's databases; `id` distinguishes several of one type and is null where there is only one.
struct Database {
    DatabaseType type = DatabaseType::None;
    Guid id;
    std::string name;
};

/// Which elements are listed: all of the current database, or those of the floor plan that appear in the 3D model,
/// whichever database is current.
enum class ElementScope { CurrentDatabase, FloorPlanIn3D };

class Model {
public:
    virtual ~Model() = default;

    /// Identifiers in the model's order. For an element that consists of others (curtain wall, stair, railing) only the
    /// owner is listed, never its parts.
    virtual ErrorCode ListElements(ElementType type, ElementScope scope, std::vector<Guid>& elements) = 0;
    /// BadId if there is no such element.
    virtual ErrorCode ReadElementHeader(const Guid& element, ElementHeader& header) = 0;
    /// Components in the element's order; replaces the contents of the list. For an element without components the list
    /// is empty and the result is 0. Pass the header that ReadElementHeader gave, because how components are read
    /// depends on the element's type. BadId if there is no such element.
    virtual ErrorCode ReadElementComponents(const ElementHeader& element,
                                            std::vector<MaterialComponent>& components) = 0;
    /// The open project's name, UTF-8; empty if it has none yet. NoProject if no project is open.
    virtual ErrorCode ReadProjectName(std::string& name) = 0;
};

/// Attributes of the project. Every reading operation returns BadIndex if the index is a gap or past the end.
class Attributes {
public:
    virtual ~Attributes() = default;

    /// The highest index in use; indices may have gaps.
    virtual ErrorCode CountBuildingMaterials(std::int32_t& highestIndex) = 0;
    virtual ErrorCode ReadBuildingMaterial(AttributeIndex index, BuildingMaterial& material) = 0;
    virtual ErrorCode ReadLayerName(AttributeIndex index, std::string& name) = 0;
    virtual ErrorCode ReadPenColour(std::int16_t pen, Shade& colour) = 0;
    virtual ErrorCode ReadFillPattern(AttributeIndex index, FillPattern& pattern) = 0;
    virtual ErrorCode ReadSurfaceColour(AttributeIndex index, Shade& colour) = 0;
};

class Databases {
public:
    virtual ~Databases() = default;

    /// The database on which element operations act; not necessarily that of the front window.
    virtual ErrorCode ReadCurrentDatabase(Database& database) = 0;
    /// BadDatabase if the project has none of that type and identifier.
    virtual ErrorCode ChangeCurrentDatabase(const Database& database) = 0;
    virtual ErrorCode ReadFrontWindow(Database& database) = 0;
    /// All databases of a type that a project may have several of, in the project's order.
    virtual ErrorCode ListDatabases(DatabaseType type, std::vector<Database>& databases) = 0;
};

} // namespace host
