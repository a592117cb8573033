// A small building for tests: three materials, two layers, walls, a door and a window.
#pragma once

#include "host/Properties.h"
#include "lca/PropertyKeys.h"
#include "workbench/host/WorkbenchHost.h"
#include "workbench/model/NewProject.h"

namespace test {

inline constexpr host::AttributeIndex Concrete{1}, Timber{2}, Plaster{3};
inline constexpr host::AttributeIndex Outside{1}, Inside{2};

inline host::Guid GuidOf(int number) {
    host::Guid guid;
    guid.bytes[0] = 0xEE;
    guid.bytes[14] = static_cast<std::uint8_t>(number >> 8);
    guid.bytes[15] = static_cast<std::uint8_t>(number);
    return guid;
}

inline void AddElement(workbench::Model& model, int number, host::ElementType type, host::AttributeIndex layer,
                       std::vector<host::MaterialComponent> components) {
    workbench::Element element;
    element.guid = GuidOf(number);
    element.type = type;
    element.layer = layer;
    element.classification = workbench::FindElementClassification(model, type);
    element.name = "element " + std::to_string(number);
    model.AddElement(std::move(element), components);
}

/// Elements 1 to 4: outer wall (concrete 2 m3 / 8 m2, plaster 0.1 m3 / 8 m2), inner wall (timber 2 m3 / 5 m2), a door
/// and a window, both with a component that must not count.
inline std::unique_ptr<workbench::Project> MakeBuilding() {
    std::unique_ptr<workbench::Project> project = workbench::CreateProject();
    workbench::Model& model = project->model;
    model.AddLayer("Outside");
    model.AddLayer("Inside");
    const auto material = [&](const char* name, double density) {
        host::BuildingMaterial attribute;
        attribute.name = name;
        attribute.densityKgM3 = density;
        model.AddBuildingMaterial(attribute);
    };
    material("Concrete", 2400);
    material("Timber", 500);
    material("Plaster", 0);
    AddElement(model, 1, host::ElementType::Wall, Outside, {{Concrete, 2, 8}, {Plaster, 0.1, 8}});
    AddElement(model, 2, host::ElementType::Wall, Inside, {{Timber, 2, 5}});
    AddElement(model, 3, host::ElementType::Door, Inside, {{Timber, 10, 10}});
    AddElement(model, 4, host::ElementType::Window, Outside, {{Timber, 10, 10}});
    return project;
}

/// The first definition with the key's marker; a null one where there is none.
inline host::PropertyDefinition FindByKey(const workbench::Model& model, lca::PropertyKey key) {
    for (const host::PropertyDefinition& definition : model.GetDefinitions())
        if (lca::FindMarker(definition.description) == key) return definition;
    return {};
}

inline host::PropertyValue ValueOf(const workbench::Model& model, lca::PropertyKey key, host::Variant value) {
    return {FindByKey(model, key).guid, host::PropertyStatus::HasValue, false, std::move(value)};
}

} // namespace test
