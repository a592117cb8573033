// Role: property groups, definitions and values, and the classifications that make a definition available.
#pragma once

#include "host/Values.h"

#include <vector>

namespace host {

/// By the host's numbers.
enum class ValueType : std::int32_t { None = 0, Integer = 1, Real = 2, String = 3, Boolean = 4, Guid = 5 };
enum class CollectionType : std::int32_t { Single = 1, SingleChoice = 3 };

/// One value; only the member that belongs to `type` counts.
struct Variant {
    ValueType type = ValueType::None;
    std::int32_t integer = 0;
    double real = 0.0;
    bool boolean = false;
    std::string text;
    Guid guid; ///< the option key of a single choice

    static Variant OfInteger(std::int32_t value);
    static Variant OfReal(double value);
    static Variant OfBoolean(bool value);
    static Variant OfText(std::string value);
    static Variant OfGuid(const Guid& value);
    friend bool operator==(const Variant& a, const Variant& b);
};

struct PropertyGroup {
    Guid guid;
    std::string name;
};

/// One option of a single choice: values hold the key, people see the text.
struct PropertyOption {
    Guid key;
    std::string text;

    friend bool operator==(const PropertyOption& a, const PropertyOption& b) {
        return a.key == b.key && a.text == b.text;
    }
};

struct PropertyDefinition {
    Guid guid;
    Guid group;
    std::string name;
    std::string description;
    ValueType valueType = ValueType::None;
    CollectionType collection = CollectionType::Single;
    bool editable = true;
    Variant defaultValue;                ///< type None: no default (a single choice then has its first option)
    std::vector<Guid> availability;      ///< classification items whose members carry the property
    std::vector<PropertyOption> options; ///< of a single choice

    friend bool operator==(const PropertyDefinition& a, const PropertyDefinition& b);
};

enum class PropertyStatus : std::int32_t { NotAvailable = 0, HasValue = 1 };

struct PropertyValue {
    Guid definition;
    PropertyStatus status = PropertyStatus::NotAvailable;
    bool isDefault = true;
    Variant value;
};

/// Every operation that changes something answers NeedsUndoScope outside an undoable command, and NoAccessRight in a
/// shared project whose set "ClassificationsAndProperties" (values of materials: "BuildingMaterials") is not held.
class Properties {
public:
    virtual ~Properties() = default;

    virtual ErrorCode ListGroups(std::vector<PropertyGroup>& groups) = 0;
    /// Writes the new identifier into the group. NameAlreadyUsed.
    virtual ErrorCode CreateGroup(PropertyGroup& group) = 0;
    /// The definitions of one group in its order; the null identifier asks for none.
    virtual ErrorCode ListDefinitions(const Guid& group, std::vector<PropertyDefinition>& definitions) = 0;
    /// Writes the new identifier into the definition. NameAlreadyUsed, BadId (group, availability), BadParameters,
    /// BadValue.
    virtual ErrorCode CreateDefinition(PropertyDefinition& definition) = 0;
    virtual ErrorCode ChangeDefinition(const PropertyDefinition& definition) = 0;
    /// One answer per asked definition, in order; a definition without own value answers its default. General for a
    /// definition that there is not.
    virtual ErrorCode ReadElementValues(const Guid& element, const std::vector<Guid>& definitions,
                                        std::vector<PropertyValue>& values) = 0;
    virtual ErrorCode ReadMaterialValues(AttributeIndex material, const std::vector<Guid>& definitions,
                                         std::vector<PropertyValue>& values) = 0;
    /// BadProperty when a definition is not available to the material: then nothing is written.
    virtual ErrorCode WriteMaterialValues(AttributeIndex material, const std::vector<PropertyValue>& values) = 0;
};

struct Date {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day = 0;
};

struct ClassificationSystem {
    Guid guid;
    std::string name;
    std::string version;
    Date date;
};

struct ClassificationItem {
    Guid guid;
    std::string id;
    std::string name;
};

/// The system an element or attribute is classified in, and the item.
struct Classification {
    Guid system;
    Guid item;
};

/// Changing operations answer as those of Properties.
class Classifications {
public:
    virtual ~Classifications() = default;

    virtual ErrorCode ListSystems(std::vector<ClassificationSystem>& systems) = 0;
    virtual ErrorCode CreateSystem(ClassificationSystem& system) = 0;
    virtual ErrorCode ListRootItems(const Guid& system, std::vector<ClassificationItem>& items) = 0;
    virtual ErrorCode ListChildItems(const Guid& item, std::vector<ClassificationItem>& items) = 0;
    /// Appends a root item to the system.
    virtual ErrorCode CreateRootItem(const Guid& system, ClassificationItem& item) = 0;
    virtual ErrorCode ReadMaterialClassifications(AttributeIndex material, std::vector<Classification>& list) = 0;
    virtual ErrorCode ClassifyMaterial(AttributeIndex material, const Guid& item) = 0;
};

} // namespace host
