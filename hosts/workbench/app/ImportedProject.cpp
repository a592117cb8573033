#include "workbench/app/ImportedProject.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/Quantities.h"
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

Finding MakeFinding(const char* kind, const std::string& sentence, const ifc::ImportedElement& source) {
    return {kind, "elements", NameElement(source.globalId, source.ifcType, source.name), sentence, source.volumeM3};
}

host::Guid MakeGuid(const ifc::ImportedElement& source, std::vector<Finding>& warnings) {
    if (const std::optional<host::Guid> guid = ReadGlobalId(source.globalId); guid && !guid->IsNull()) return *guid;
    warnings.push_back(MakeFinding("no proper GlobalId, replaced by a new one",
                                   source.ifcType + " \"" + source.name + "\" has no proper GlobalId (\"" +
                                       source.globalId + "\"); it got a new one",
                                   source));
    return host::CreateGuid();
}

Origins ListOrigins(const ifc::ImportedElement& source) {
    Origins origins;
    PutOrigin(origins, OriginFields::Volume, source.volumeOrigin);
    PutOrigin(origins, OriginFields::Area, source.areaOrigin);
    PutOrigin(origins, OriginFields::Shares, source.sharesOrigin);
    return origins;
}

void AddAttributes(const ifc::ImportedBuilding& building, Model& model) {
    for (const std::string& layer : building.layers)
        model.AddLayer(layer);
    for (const ifc::ImportedStorey& storey : building.storeys)
        model.storeys.push_back({storey.name, storey.elevationM});
    for (std::size_t i = 0; i < building.materials.size(); ++i) {
        const host::AttributeIndex index = model.AddBuildingMaterial(MakeMaterial(building.materials[i], i, model));
        const std::string& origin = building.materials[i].densityOrigin;
        if (!origin.empty()) PutOrigin(model.materialOrigins[index], OriginFields::Density, origin);
    }
}

/// The element's plain values; without identifier, classification and origins.
Element MakeElement(const ifc::ImportedElement& source) {
    Element element;
    element.type = static_cast<host::ElementType>(source.kind);
    element.layer.value = static_cast<std::int32_t>(source.layer + 1);
    element.name = source.name;
    element.kind = source.ifcType;
    element.typeName = source.typeName;
    if (IsOpening(element)) element.openingAreaM2 = source.areaM2;
    if (source.storey) element.storey = static_cast<std::uint32_t>(*source.storey);
    element.statedVolumeM3 = source.statedVolumeM3;
    element.computedVolumeM3 = source.geometryVolumeM3;
    return element;
}

/// Adds elements with their components; equal origins and the classifications of a type are looked for once.
class ElementAdder {
public:
    ElementAdder(Model& model, std::vector<Finding>& warnings) : model(model), warnings(warnings) {}

    void Add(const ifc::ImportedElement& source) {
        Element element = MakeElement(source);
        element.guid = MakeGuid(source, warnings);
        element.classification = FindClassification(element.type);
        element.origins = pool.Share(ListOrigins(source));
        TakeComponents(source);
        if (model.AddElement(element, components, thicknessesM)) return;
        warnings.push_back(MakeFinding(
            "GlobalId occurs twice, the later element got a new one",
            "GlobalId " + source.globalId + " occurs twice; the later " + source.ifcType + " got a new one", source));
        element.guid = host::CreateGuid();
        model.AddElement(std::move(element), components, thicknessesM);
    }

private:
    const host::Guid& FindClassification(host::ElementType type) {
        const auto [entry, isNew] = classifications.try_emplace(type);
        if (isNew) entry->second = FindElementClassification(model, type);
        return entry->second;
    }

    void TakeComponents(const ifc::ImportedElement& source) {
        components.clear();
        thicknessesM.clear();
        for (const ifc::ImportedComponent& part : source.components) {
            components.push_back({{static_cast<std::int32_t>(part.material + 1)}, part.volumeM3, part.areaM2});
            thicknessesM.push_back(part.thicknessM);
        }
    }

    Model& model;
    std::vector<Finding>& warnings;
    std::map<host::ElementType, host::Guid> classifications;
    OriginPool pool;
    std::vector<host::MaterialComponent> components;
    std::vector<double> thicknessesM;
};

} // namespace

std::unique_ptr<Project> CreateProject(const ifc::ImportedBuilding& building, std::vector<Finding>& warnings) {
    std::unique_ptr<Project> project = CreateProject();
    AddAttributes(building, project->model);
    ElementAdder adder(project->model, warnings);
    for (const ifc::ImportedElement& source : building.elements)
        adder.Add(source);
    return project;
}

} // namespace workbench
