#include "LibraryModel.h"

#include <unordered_map>

#include <ifcpp/IFC4/EntityFactory.h>
#include <ifcpp/IFC4/include/IfcBuilding.h>
#include <ifcpp/IFC4/include/IfcBuildingElement.h>
#include <ifcpp/IFC4/include/IfcBuildingElementPart.h>
#include <ifcpp/IFC4/include/IfcBuildingStorey.h>
#include <ifcpp/IFC4/include/IfcDoor.h>
#include <ifcpp/IFC4/include/IfcElementAssembly.h>
#include <ifcpp/IFC4/include/IfcFeatureElement.h>
#include <ifcpp/IFC4/include/IfcProject.h>
#include <ifcpp/IFC4/include/IfcProxy.h>
#include <ifcpp/IFC4/include/IfcReinforcingElement.h>
#include <ifcpp/IFC4/include/IfcSpace.h>
#include <ifcpp/IFC4/include/IfcWindow.h>
#include <ifcpp/reader/ReaderSTEP.h>

namespace workbench::ifc {
namespace {

template <class T>
bool Is(const BuildingEntity& entity) {
    return dynamic_cast<const T*>(&entity) != nullptr;
}

EntityRole RoleOf(const BuildingEntity& entity) {
    if (Is<IfcDoor>(entity)) return EntityRole::Door;
    if (Is<IfcWindow>(entity)) return EntityRole::Window;
    if (Is<IfcBuildingElement>(entity) || Is<IfcBuildingElementPart>(entity) || Is<IfcElementAssembly>(entity) ||
        Is<IfcReinforcingElement>(entity)) {
        return EntityRole::Element;
    }
    if (Is<IfcFeatureElement>(entity)) return EntityRole::Other;
    if (Is<IfcElement>(entity) || Is<IfcProxy>(entity)) return EntityRole::LeftOut;
    if (Is<IfcSpace>(entity)) return EntityRole::Space;
    if (Is<IfcBuilding>(entity)) return EntityRole::Building;
    if (Is<IfcBuildingStorey>(entity)) return EntityRole::Storey;
    if (Is<IfcProject>(entity)) return EntityRole::Project;
    return EntityRole::Other;
}

} // namespace

bool IsMostlyUnknown(const PreparedStep& step) {
    std::size_t known = 0;
    std::size_t unknown = 0;
    for (const auto& [keyword, count] : step.keywords) {
        const std::unique_ptr<BuildingEntity> entity(EntityFactory::createEntityObject(keyword));
        (entity ? known : unknown) += static_cast<std::size_t>(count);
    }
    return unknown > known;
}

LibraryModel::LibraryModel(PreparedStep prepared)
    : step(std::move(prepared)), model(std::make_shared<BuildingModel>()) {
    ReaderSTEP reader;
    reader.loadModelFromString(step.text, model);
    step.text = std::string();
    CollectEntities();
}

void LibraryModel::CollectEntities() {
    std::unordered_map<const char*, EntityRole> roles; // a class has one name object
    for (const auto& [number, entity] : model->getMapIfcEntities()) {
        if (!entity) continue;
        const auto known = roles.find(entity->className());
        const EntityRole role = known != roles.end() ? known->second : roles[entity->className()] = RoleOf(*entity);
        if (role != EntityRole::Other) entities.push_back({number, role, entity});
    }
}

std::shared_ptr<BuildingEntity> LibraryModel::Find(int number) const {
    const auto found = model->getMapIfcEntities().find(number);
    return found != model->getMapIfcEntities().end() ? found->second : nullptr;
}

std::string LibraryModel::Resolve(const std::wstring& written) const {
    std::string narrow;
    for (const wchar_t c : written)
        narrow += c > 0 && c < 0x80 ? static_cast<char>(c) : '?'; // the prepared text is ASCII
    return ResolveString(step.strings, narrow);
}

} // namespace workbench::ifc
