#include "Places.h"

#include <algorithm>
#include <cmath>

#include <ifcpp/IFC4/include/IfcBuildingStorey.h>
#include <ifcpp/IFC4/include/IfcElement.h>
#include <ifcpp/IFC4/include/IfcLabel.h>
#include <ifcpp/IFC4/include/IfcLengthMeasure.h>
#include <ifcpp/IFC4/include/IfcMappedItem.h>
#include <ifcpp/IFC4/include/IfcPresentationLayerAssignment.h>
#include <ifcpp/IFC4/include/IfcProductRepresentation.h>
#include <ifcpp/IFC4/include/IfcRelAggregates.h>
#include <ifcpp/IFC4/include/IfcRelContainedInSpatialStructure.h>
#include <ifcpp/IFC4/include/IfcRepresentation.h>
#include <ifcpp/IFC4/include/IfcRepresentationItem.h>
#include <ifcpp/IFC4/include/IfcRepresentationMap.h>
#include <ifcpp/IFC4/include/IfcSpatialElement.h>

namespace workbench::ifc {
namespace {

constexpr int deepestMapping = 4;
constexpr int deepestContainment = 16;

} // namespace

Places::Places(const LibraryModel& model, const UnitFactors& units, ImportedBuilding& building)
    : model(model), building(building) {
    std::vector<std::pair<double, const IfcBuildingStorey*>> found;
    for (const ModelEntity& entity : model.Entities()) {
        if (entity.role != EntityRole::Storey) continue;
        const auto* storey = dynamic_cast<const IfcBuildingStorey*>(entity.entity.get());
        const double elevation = storey->m_Elevation ? storey->m_Elevation->m_value * units.lengthM : 0.0;
        found.emplace_back(std::isfinite(elevation) ? elevation : 0.0, storey);
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [elevation, storey] : found) {
        storeys.emplace(storey, building.storeys.size());
        building.storeys.push_back({model.Text(storey->m_Name), elevation});
    }
}

std::size_t Places::LayerOf(const IfcElement& element) {
    std::optional<std::string> name;
    bool fromBody = false;
    if (element.m_Representation) {
        for (const auto& representation : element.m_Representation->m_Representations) {
            if (!representation || fromBody) continue;
            const bool body = model.Text(representation->m_RepresentationIdentifier) == "Body";
            if (name && !body) continue;
            if (auto own = LayerName(*representation, deepestMapping)) {
                name = std::move(own);
                fromBody = body;
            }
        }
    }
    const auto [place, isNew] = layers.emplace(name.value_or(NoLayerName), building.layers.size());
    if (isNew) building.layers.push_back(place->first);
    return place->second;
}

std::optional<std::string> Places::LayerName(const IfcRepresentation& representation, int depth) const {
    const auto first = [&](const auto& assignments) -> std::optional<std::string> {
        for (const auto& assignment : Alive<IfcPresentationLayerAssignment>(assignments)) {
            if (std::string name = model.Text(assignment->m_Name); !name.empty()) return name;
        }
        return std::nullopt;
    };
    if (auto own = first(representation.m_LayerAssignments_inverse)) return own;
    for (const auto& item : representation.m_Items) {
        if (!item) continue;
        if (auto own = first(item->m_LayerAssignment_inverse)) return own;
        const auto mapped = std::dynamic_pointer_cast<IfcMappedItem>(item);
        if (depth == 0 || !mapped || !mapped->m_MappingSource || !mapped->m_MappingSource->m_MappedRepresentation)
            continue;
        if (auto source = LayerName(*mapped->m_MappingSource->m_MappedRepresentation, depth - 1)) return source;
    }
    return std::nullopt;
}

std::optional<std::size_t> Places::StoreyOf(const IfcElement& element) const {
    const IfcObjectDefinition* at = &element;
    for (int depth = 0; depth < deepestContainment && at != nullptr; ++depth) {
        if (const auto storey = storeys.find(at); storey != storeys.end()) return storey->second;
        const IfcObjectDefinition* next = nullptr;
        if (const auto* inside = dynamic_cast<const IfcElement*>(at)) {
            const auto containers = Alive<IfcRelContainedInSpatialStructure>(inside->m_ContainedInStructure_inverse);
            if (!containers.empty()) next = containers.front()->m_RelatingStructure.get();
        }
        if (next == nullptr) {
            const auto wholes = Alive<IfcRelAggregates>(at->m_Decomposes_inverse);
            if (!wholes.empty()) next = wholes.front()->m_RelatingObject.get();
        }
        at = next;
    }
    return std::nullopt;
}

} // namespace workbench::ifc
