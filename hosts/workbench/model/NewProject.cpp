#include "workbench/model/NewProject.h"

#include "workbench/model/ReportLibrary.h"

namespace workbench {

namespace {

constexpr char ElementSystem[] = "Workbench Elements";

struct ElementKindName {
    host::ElementType type;
    const char* name;
};

constexpr ElementKindName ElementKinds[] = {
    {host::ElementType::Wall, "Wall"},       {host::ElementType::Column, "Column"},
    {host::ElementType::Beam, "Beam"},       {host::ElementType::Window, "Window"},
    {host::ElementType::Door, "Door"},       {host::ElementType::Object, "Object"},
    {host::ElementType::Slab, "Slab"},       {host::ElementType::Roof, "Roof"},
    {host::ElementType::Mesh, "Mesh"},       {host::ElementType::CurtainWall, "Curtain wall"},
    {host::ElementType::Shell, "Shell"},     {host::ElementType::Skylight, "Skylight"},
    {host::ElementType::Morph, "Morph"},     {host::ElementType::Stair, "Stair"},
    {host::ElementType::Railing, "Railing"},
};

/// The kind's number as text; unique in the system, whatever language the name is in.
std::string GetItemId(host::ElementType type) {
    return std::to_string(static_cast<int>(type));
}

void AddAttributes(Model& model) {
    for (const Shade& shade : {Shade{0, 0, 0}, Shade{0.5, 0.5, 0.5}, Shade{0.8, 0.3, 0.2}, Shade{0.2, 0.4, 0.8},
                               Shade{0.6, 0.45, 0.25}, Shade{0.3, 0.6, 0.3}, Shade{0.9, 0.75, 0.2}, Shade{1, 1, 1}})
        model.AddPen(shade);
    model.AddFill("Solid", {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
    model.AddFill("Empty", {0, 0, 0, 0, 0, 0, 0, 0});
    model.AddFill("Diagonal", {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80});
    model.AddFill("Brick", {0xFF, 0x80, 0x80, 0x80, 0xFF, 0x08, 0x08, 0x08});
    model.AddFill("Dots", {0x88, 0x00, 0x22, 0x00, 0x88, 0x00, 0x22, 0x00});
    model.AddFill("Grid", {0xFF, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80});
    model.AddSurface("Concrete", {0.7, 0.7, 0.68});
    model.AddSurface("Brick", {0.68, 0.36, 0.28});
    model.AddSurface("Timber", {0.78, 0.6, 0.4});
    model.AddSurface("Metal", {0.55, 0.58, 0.6});
    model.AddSurface("Plaster", {0.93, 0.92, 0.88});
    model.AddSurface("Insulation", {0.95, 0.85, 0.45});
}

} // namespace

std::unique_ptr<Project> CreateProject() {
    auto project = std::make_unique<Project>();
    AddAttributes(project->model);
    AddReportLibrary(project->model);
    AddDefaultDatabases(project->model);
    const host::ClassificationSystem system{host::CreateGuid(), ElementSystem, "1", {2026, 1, 1}};
    project->model.Apply({{}, system});
    for (const ElementKindName& kind : ElementKinds)
        project->model.Apply(
            {{}, ClassificationItem{{host::CreateGuid(), GetItemId(kind.type), kind.name}, system.guid, {}}});
    return project;
}

const char* FindElementKindName(host::ElementType type) {
    for (const ElementKindName& kind : ElementKinds)
        if (kind.type == type) return kind.name;
    return nullptr;
}

host::Guid FindElementClassification(const Model& model, host::ElementType type) {
    for (const host::ClassificationSystem& system : model.GetSystems()) {
        if (system.name != ElementSystem) continue;
        for (const ClassificationItem& item : model.GetItems())
            if (item.system == system.guid && item.item.id == GetItemId(type)) return item.item.guid;
    }
    return {};
}

} // namespace workbench
