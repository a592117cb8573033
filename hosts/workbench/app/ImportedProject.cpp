#include "workbench/app/ImportedProject.h"

#include "workbench/app/GlobalId.h"
#include "workbench/model/NewProject.h"

#include <map>

namespace workbench {

namespace {

/// Materials are told apart in lists by their look: fill, pens and surface go round.
host::BuildingMaterial MakeMaterial(const ifc::ImportedMaterial& source, std::size_t position, const Model& model) {
    host::BuildingMaterial material;
    material.name = source.name;
    material.id = "IFC-" + std::to_string(position + 1);
    material.densityKgM3 = source.densityKgPerM3.value_or(0.0);
    const auto around = [&](std::size_t count) { return static_cast<int>(position % count) + 1; };
    material.cutFill.value = around(model.GetFills().size());
    material.cutFillPen = 1;
    material.cutFillBackgroundPen = static_cast<std::int16_t>(around(model.GetPens().size()));
    material.cutSurface.value = around(model.GetSurfaces().size());
    return material;
}

host::Guid MakeGuid(const ifc::ImportedElement& source, std::vector<std::string>& warnings) {
    if (const std::optional<host::Guid> guid = ReadGlobalId(source.globalId); guid && !guid->IsNull()) return *guid;
    warnings.push_back(source.ifcType + " \"" + source.name + "\" has no proper GlobalId (\"" + source.globalId +
                       "\"); it got a new one");
    return host::CreateGuid();
}

} // namespace

std::unique_ptr<Project> CreateProject(const ifc::ImportedBuilding& building, std::vector<std::string>& warnings) {
    std::unique_ptr<Project> project = CreateProject();
    Model& model = project->model;
    for (const std::string& layer : building.layers)
        model.AddLayer(layer);
    for (std::size_t i = 0; i < building.materials.size(); ++i)
        model.AddBuildingMaterial(MakeMaterial(building.materials[i], i, model));
    std::map<host::ElementType, host::Guid> classifications;
    std::vector<host::MaterialComponent> components;
    for (const ifc::ImportedElement& source : building.elements) {
        Element element;
        element.guid = MakeGuid(source, warnings);
        element.type = static_cast<host::ElementType>(source.kind);
        element.layer.value = static_cast<std::int32_t>(source.layer + 1);
        const auto [classification, isNew] = classifications.try_emplace(element.type);
        if (isNew) classification->second = FindElementClassification(model, element.type);
        element.classification = classification->second;
        element.name = source.name;
        element.kind = source.ifcType;
        element.openingAreaM2 = source.overallWidthM.value_or(0.0) * source.overallHeightM.value_or(0.0);
        components.clear();
        for (const ifc::ImportedComponent& part : source.components)
            components.push_back({{static_cast<std::int32_t>(part.material + 1)}, part.volumeM3, part.areaM2});
        if (model.AddElement(element, components)) continue;
        warnings.push_back("GlobalId " + source.globalId + " occurs twice; the later " + source.ifcType +
                           " got a new one");
        element.guid = host::CreateGuid();
        model.AddElement(std::move(element), components);
    }
    return project;
}

} // namespace workbench
