// A model as text, so that two can be compared whole.
#pragma once

#include "workbench/model/Model.h"

#include <sstream>
#include <string>
#include <type_traits>

namespace test {

/// Rows, one a line, with their fields separated by "|".
class ModelText {
public:
    ModelText() { text.precision(17); }

    template <typename... Fields>
    void Add(const char* kind, const Fields&... fields) {
        text << kind;
        ((text << '|', Put(fields)), ...);
        text << '\n';
    }
    void AddParameters(const std::vector<host::ObjectParameter>& parameters) {
        for (const host::ObjectParameter& one : parameters)
            Add("  parameter", one.name, one.kind, one.isArray, one.rows, one.columns, one.real, one.realArray,
                one.text, one.textArray);
    }

    void AddOrigins(const workbench::Origins& origins) {
        for (const auto& [field, origin] : origins)
            Add("  origin", field, origin);
    }

    std::ostringstream text;

private:
    template <typename Field>
    void Put(const Field& field) {
        if constexpr (std::is_enum_v<Field>)
            text << static_cast<int>(field);
        else
            text << field;
    }
    void Put(const host::Guid& guid) { text << host::WriteGuid(guid); }
    void Put(host::AttributeIndex index) { text << index.value; }
    void Put(const std::u16string& units) {
        for (const char16_t unit : units)
            text << std::hex << static_cast<unsigned>(unit) << std::dec << ' ';
    }
    template <typename Number, std::size_t Count>
    void Put(const std::array<Number, Count>& list) {
        for (const Number number : list)
            text << +number << ' ';
    }
    template <typename Value>
    void Put(const std::optional<Value>& value) {
        if (value) text << *value;
    }
    template <typename Number>
    void Put(const std::vector<Number>& list) {
        for (const Number number : list)
            text << number << ' ';
    }
    void Put(const host::Variant& value) {
        text << static_cast<int>(value.type) << ": " << value.integer << ' ' << value.real << ' ' << value.boolean
             << " \"" << value.text << "\" " << host::WriteGuid(value.guid);
    }
};

/// Everything that a project file keeps, in the model's order.
inline std::string Describe(const workbench::Model& model) {
    ModelText text;
    for (const auto& row : model.GetLayers())
        text.Add("layer", row.index, row.name);
    for (const auto& row : model.GetPens())
        text.Add("pen", row.index, row.shade);
    for (const auto& row : model.GetFills())
        text.Add("fill", row.index, row.name, row.pattern);
    for (const auto& row : model.GetSurfaces())
        text.Add("surface", row.index, row.name, row.shade);
    for (const auto& row : model.GetBuildingMaterials())
        text.Add("material", row.index, row.name, row.id, row.densityKgM3, row.cutFill, row.cutFillPen,
                 row.cutFillBackgroundPen, row.cutSurface);
    for (const auto& row : model.GetElements()) {
        text.Add("element", row.guid, row.type, row.layer, row.classification, row.name, row.kind, row.openingAreaM2,
                 row.storey, row.statedVolumeM3, row.computedVolumeM3, row.typeName);
        auto thickness = model.GetThicknesses(row).begin();
        for (const auto& part : model.GetComponents(row))
            text.Add("  component", part.buildingMaterial, part.volumeM3, part.areaM2, *thickness++);
        if (row.origins) text.AddOrigins(*row.origins);
    }
    for (const auto& [material, origins] : model.materialOrigins) {
        text.Add("origins of", material);
        text.AddOrigins(origins);
    }
    for (const auto& row : model.storeys)
        text.Add("storey", row.name, row.elevationM);
    for (const auto& [element, coordinates] : model.triangles)
        text.Add("triangles", element, coordinates);
    for (const auto& row : model.GetGroups())
        text.Add("group", row.guid, row.name);
    for (const auto& row : model.GetDefinitions()) {
        text.Add("definition", row.guid, row.group, row.name, row.description, row.valueType, row.collection,
                 row.editable, row.defaultValue);
        for (const auto& item : row.availability)
            text.Add("  available at", item);
        for (const auto& option : row.options)
            text.Add("  option", option.key, option.text);
    }
    for (const auto& row : model.GetSystems())
        text.Add("system", row.guid, row.name, row.version, row.date.year, row.date.month, row.date.day);
    for (const auto& row : model.GetItems())
        text.Add("item", row.item.guid, row.item.id, row.item.name, row.system, row.parent);
    for (const auto& row : model.GetMaterialClassifications())
        text.Add("classified", row.material, row.item);
    for (const auto& [material, values] : model.GetMaterialValues())
        for (const auto& [definition, value] : values)
            text.Add("material value", material, definition, value);
    for (std::uint32_t i = 0; i < model.GetElements().size(); ++i)
        if (const auto* values = model.FindElementValues(i))
            for (const auto& [definition, value] : *values)
                text.Add("element value", i, definition, value);
    for (const auto& row : model.members)
        text.Add("member", row.userId, row.login, row.fullName);
    for (const auto& row : model.reservations)
        text.Add("reservation", row.lockableSet, row.userId);
    for (const auto& row : model.requests)
        text.Add("request", row.lockableSet, row.userId);
    for (const auto& row : model.databases)
        text.Add("database", row.type, row.guid, row.name);
    for (const auto& row : model.libraryParts) {
        text.Add("part", row.identifier, row.fileName);
        text.AddParameters(row.parameters);
    }
    for (const auto& row : model.favourites) {
        text.Add("favourite", row.name, row.isObject, row.libraryPart, row.angle, row.xRatio, row.yRatio);
        text.AddParameters(row.parameters);
    }
    for (const auto& row : model.GetPlacedObjects()) {
        text.Add("object", row.guid, row.database, row.libraryPart, row.position.x, row.position.y, row.angle,
                 row.xRatio, row.yRatio);
        text.AddParameters(row.parameters);
    }
    return text.text.str();
}

} // namespace test
