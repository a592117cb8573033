// The kinds of entity and of value that the IFC schemas know, as constant tables: names, inheritance, attributes and
// their places. The tables are made from the CSV files of this folder when the program is built.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace workbench::schema {

struct EntityType;

struct Attribute {
    std::string_view name;
    std::string_view type; ///< as the schema writes it: "IfcLabel", "SET [1:?] OF IfcObject"
    /// The kind of entity that the attribute refers to, alone or in lists; null for values and for choices.
    const EntityType* target = nullptr;
    bool isOptional = false;
};

struct EntityType {
    std::string_view name; ///< "IfcWallStandardCase"
    const EntityType* supertype = nullptr;
    std::span<const Attribute> ownAttributes;
    std::size_t inheritedCount = 0; ///< attributes that stand before the own ones
    bool isAbstract = false;

    /// NAME as the schema writes it; true for the type itself too.
    [[nodiscard]] bool IsA(std::string_view name) const;
    [[nodiscard]] bool IsA(const EntityType& other) const;
    /// Place among the arguments. An attribute that a subtype derives or narrows keeps the place where it was declared.
    [[nodiscard]] std::optional<std::size_t> FindAttribute(std::string_view name) const;
    /// Null behind the last one.
    [[nodiscard]] const Attribute* GetAttribute(std::size_t place) const;
    [[nodiscard]] std::size_t CountAttributes() const { return inheritedCount + ownAttributes.size(); }
};

/// A named kind of value: "IfcPositiveLengthMeasure" with "IfcLengthMeasure", "IfcLabel" with "STRING(255)"; also
/// enumerations and choices with what belongs to them.
struct DefinedType {
    std::string_view name;
    std::string_view underlying;
};

class Schema {
public:
    constexpr Schema(std::string_view name, std::span<const EntityType> entities, std::span<const DefinedType> types)
        : name(name), entities(entities), types(types) {}

    [[nodiscard]] std::string_view GetName() const { return name; }
    /// By name without regard to case.
    [[nodiscard]] std::span<const EntityType> GetEntities() const { return entities; }
    [[nodiscard]] std::span<const DefinedType> GetTypes() const { return types; }

    /// KEYWORD in any case; null where the schema does not know it.
    [[nodiscard]] const EntityType* FindEntity(std::string_view keyword) const;
    [[nodiscard]] const DefinedType* FindType(std::string_view keyword) const;
    /// True where the value type KEYWORD, in any case, is the type NAME or defined by it.
    [[nodiscard]] bool IsValueOf(std::string_view keyword, std::string_view name) const;

private:
    std::string_view name;
    std::span<const EntityType> entities;
    std::span<const DefinedType> types;
};

extern const Schema IFC2X3;
extern const Schema IFC4;
extern const Schema IFC4X3;

/// The tables by which a file is read.
struct SchemaChoice {
    const Schema* schema = nullptr; ///< null for a schema that is not read
    bool isApproximate = false;     ///< an older or younger edition than that of the tables
};

/// WRITTEN is the schema's name in the file's header, in capitals.
[[nodiscard]] SchemaChoice ChooseSchema(std::string_view written);

} // namespace workbench::schema
