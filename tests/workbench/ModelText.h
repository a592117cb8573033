// A model as text, so that two can be compared whole.
#pragma once

#include "host/Properties.h"
#include "host/Values.h"
#include "workbench/model/Model.h"

#include <sstream>
#include <string>

namespace test {

inline std::string Describe(const host::Variant& value) {
    std::ostringstream text;
    text << static_cast<int>(value.type) << ":" << value.integer << ":" << value.real << ":" << value.boolean << ":"
         << value.text << ":" << host::WriteGuid(value.guid);
    return text.str();
}

inline std::string Describe(const std::vector<host::ObjectParameter>& parameters) {
    std::ostringstream text;
    text.precision(17);
    for (const host::ObjectParameter& one : parameters) {
        text << " [" << one.name << " " << static_cast<int>(one.kind) << one.isArray << " " << one.rows << "x"
             << one.columns << " " << one.real;
        for (const double value : one.realArray)
            text << " " << value;
        for (const char16_t unit : one.text + u"|" + one.textArray)
            text << " " << static_cast<unsigned>(unit);
        text << "]";
    }
    return text.str();
}

/// Everything that a project file keeps, in the model's order.
inline std::string Describe(const workbench::Model& model) {
    std::ostringstream text;
    text.precision(17);
    for (const auto& layer : model.GetLayers())
        text << "layer " << layer.index.value << " " << layer.name << "\n";
    for (const auto& pen : model.GetPens())
        text << "pen " << pen.index.value << " " << pen.shade[0] << " " << pen.shade[1] << " " << pen.shade[2] << "\n";
    for (const auto& fill : model.GetFills()) {
        text << "fill " << fill.index.value << " " << fill.name;
        for (const int byte : fill.pattern)
            text << " " << byte;
        text << "\n";
    }
    for (const auto& surface : model.GetSurfaces())
        text << "surface " << surface.index.value << " " << surface.name << " " << surface.shade[1] << "\n";
    for (const auto& one : model.GetBuildingMaterials())
        text << "material " << one.index.value << " " << one.name << " " << one.id << " " << one.densityKgM3 << " "
             << one.cutFill.value << " " << one.cutFillPen << " " << one.cutFillBackgroundPen << " "
             << one.cutSurface.value << "\n";
    for (const auto& element : model.GetElements()) {
        text << "element " << host::WriteGuid(element.guid) << " " << static_cast<int>(element.type) << " "
             << element.layer.value << " " << host::WriteGuid(element.classification) << " " << element.name << " "
             << element.kind << " " << element.openingAreaM2;
        for (const auto& part : model.GetComponents(element))
            text << " [" << part.buildingMaterial.value << " " << part.volumeM3 << " " << part.areaM2 << "]";
        text << "\n";
    }
    for (const auto& group : model.GetGroups())
        text << "group " << host::WriteGuid(group.guid) << " " << group.name << "\n";
    for (const auto& one : model.GetDefinitions()) {
        text << "definition " << host::WriteGuid(one.guid) << host::WriteGuid(one.group) << one.name << one.description
             << static_cast<int>(one.valueType) << static_cast<int>(one.collection) << one.editable
             << Describe(one.defaultValue);
        for (const auto& item : one.availability)
            text << " at " << host::WriteGuid(item);
        for (const auto& option : one.options)
            text << " option " << host::WriteGuid(option.key) << option.text;
        text << "\n";
    }
    for (const auto& system : model.GetSystems())
        text << "system " << host::WriteGuid(system.guid) << system.name << system.version << system.date.year << "-"
             << system.date.month << "-" << system.date.day << "\n";
    for (const auto& item : model.GetItems())
        text << "item " << host::WriteGuid(item.item.guid) << item.item.id << item.item.name
             << host::WriteGuid(item.system) << host::WriteGuid(item.parent) << "\n";
    for (const auto& one : model.GetMaterialClassifications())
        text << "classified " << one.material.value << " " << host::WriteGuid(one.item) << "\n";
    for (const auto& [material, values] : model.GetMaterialValues())
        for (const auto& [definition, value] : values)
            text << "value " << material.value << host::WriteGuid(definition) << Describe(value) << "\n";
    for (std::uint32_t i = 0; i < model.GetElements().size(); ++i)
        if (const auto* values = model.FindElementValues(i))
            for (const auto& [definition, value] : *values)
                text << "element value " << i << host::WriteGuid(definition) << Describe(value) << "\n";
    for (const auto& member : model.members)
        text << "member " << member.userId << member.login << member.fullName << "\n";
    for (const auto& one : model.reservations)
        text << "reservation " << one.lockableSet << one.userId << "\n";
    for (const auto& one : model.requests)
        text << "request " << one.lockableSet << one.userId << "\n";
    for (const auto& one : model.databases)
        text << "database " << static_cast<int>(one.type) << host::WriteGuid(one.guid) << one.name << "\n";
    for (const auto& one : model.libraryParts)
        text << "part " << one.identifier << one.fileName << Describe(one.parameters) << "\n";
    for (const auto& one : model.favourites)
        text << "favourite " << one.name << one.isObject << one.libraryPart << " " << one.angle << " " << one.xRatio
             << " " << one.yRatio << Describe(one.parameters) << "\n";
    for (const auto& one : model.GetPlacedObjects())
        text << "object " << host::WriteGuid(one.guid) << host::WriteGuid(one.database) << one.libraryPart << " "
             << one.position.x << " " << one.position.y << " " << one.angle << " " << one.xRatio << " " << one.yRatio
             << Describe(one.parameters) << "\n";
    return text.str();
}

} // namespace test
