// Role: property groups, definitions and values, and the classifications that make a definition available.
#pragma once

#include "host/Values.h"

#include <optional>
#include <variant>
#include <vector>

namespace host {

/// The numbers are the host's.
enum class ValueType : std::int32_t { None = 0, Integer = 1, Real = 2, String = 3, Boolean = 4, Guid = 5 };
enum class CollectionType : std::int32_t { Single = 1, SingleChoice = 3 };

/// A number or a text.
using PlainValue = std::variant<std::int32_t, double, std::string>;

/// One value; only the member for `type` counts.
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
    static Variant OfPlain(const PlainValue& value);
    /// None for the other types.
    [[nodiscard]] std::optional<PlainValue> GetPlain() const;
    friend bool operator==(const Variant& a, const Variant& b);
};

struct PropertyGroup {
    Guid guid;
    std::string name;
};

/// One option of a single choice: values store the key, users see the text.
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
    Variant defaultValue;                ///< type None: no default (for a single choice its first option)
    std::vector<Guid> availability;      ///< classification items whose members have the property
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

/// Every operation that changes something returns NeedsUndoScope outside an undoable command, and NoAccessRight in a
/// shared project if the set "ClassificationsAndProperties" (values of materials: "BuildingMaterials") is not held.
class Properties {
public:
    virtual ~Properties() = default;

    virtual ErrorCode ListGroups(std::vector<PropertyGroup>& groups) = 0;
    /// Writes the new identifier into the group. NameAlreadyUsed.
    virtual ErrorCode CreateGroup(PropertyGroup& group) = 0;
    /// The definitions of one group, in its order; none for the null identifier.
    virtual ErrorCode ListDefinitions(const Guid& group, std::vector<PropertyDefinition>& definitions) = 0;
    /// Writes the new identifier into the definition. NameAlreadyUsed, BadId (group, availability), BadParameters,
    /// BadValue.
    virtual ErrorCode CreateDefinition(PropertyDefinition& definition) = 0;
    virtual ErrorCode ChangeDefinition(const PropertyDefinition& definition) = 0;
    /// One value per requested definition, in order; where there is no value, the definition's default. General if a
    /// definition does not exist.
    virtual ErrorCode ReadElementValues(const Guid& element, const std::vector<Guid>& definitions,
                                        std::vector<PropertyValue>& values) = 0;
    virtual ErrorCode ReadMaterialValues(AttributeIndex material, const std::vector<Guid>& definitions,
                                         std::vector<PropertyValue>& values) = 0;
    /// BadProperty if a definition is not available to the material; nothing is then written.
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

/// Operations that change something return the same codes as those of Properties.
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
