#include "Places.h"

#include <algorithm>

#include "Relations.h"

namespace workbench::ifc {
namespace {

using entities::Entity;

constexpr int DeepestMapping = 4;
constexpr int DeepestContainment = 16;

} // namespace

Places::Places(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building)
    : model(model), building(building) {
    PutStoreys(units);
    for (const Entity& part : model.GetAll("IfcFacilityPart"))
        PutStorey(part, 0.0);
}

void Places::PutStoreys(const UnitFactors& units) {
    std::vector<std::pair<double, Entity>> found;
    for (const Entity& storey : model.GetAll("IfcBuildingStorey"))
        found.emplace_back(storey.GetReal("Elevation").value_or(0.0) * units.lengthM, storey);
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [elevationM, storey] : found)
        PutStorey(storey, elevationM);
}

void Places::PutStorey(const Entity& storey, double elevationM) {
    storeys.emplace(storey, building.storeys.size());
    building.storeys.push_back({storey.GetText("Name"), elevationM});
}

std::size_t Places::LayerOf(const Entity& element) {
    const auto [place, isNew] = layers.emplace(FindLayer(element).value_or(NoLayerName), building.layers.size());
    if (isNew) building.layers.push_back(place->first);
    return place->second;
}

std::optional<std::string> Places::FindLayer(const Entity& element) const {
    std::optional<std::string> other;
    for (const Entity& representation : element.GetEntity("Representation").GetEntities("Representations")) {
        const bool isBody = representation.GetText("RepresentationIdentifier") == "Body";
        if (other && !isBody) continue;
        auto name = LayerName(representation, DeepestMapping);
        if (name && isBody) return name;
        if (name) other = std::move(name);
    }
    return other;
}

std::optional<std::string> Places::OwnLayerName(const Entity& item) const {
    for (const Entity& assignment : model.GetReferencing(item, "IfcPresentationLayerAssignment", "AssignedItems")) {
        if (std::string name = assignment.GetText("Name"); !name.empty()) return name;
    }
    return std::nullopt;
}

std::optional<std::string> Places::LayerName(const Entity& representation, int depth) const {
    if (auto own = OwnLayerName(representation)) return own;
    for (const Entity& item : representation.GetEntities("Items")) {
        if (auto own = OwnLayerName(item)) return own;
        const Entity source = item.GetEntity("MappingSource").GetEntity("MappedRepresentation");
        if (depth == 0 || source.IsNone()) continue;
        if (auto name = LayerName(source, depth - 1)) return name;
    }
    return std::nullopt;
}

Entity Places::HolderOf(const Entity& object) const {
    for (const Entity& relation :
         model.GetReferencing(object, "IfcRelContainedInSpatialStructure", "RelatedElements")) {
        if (const Entity structure = relation.GetEntity("RelatingStructure"); !structure.IsNone()) return structure;
    }
    return WholeOf(model, object);
}

std::optional<std::size_t> Places::StoreyOf(const Entity& element) const {
    Entity at = element;
    for (int depth = 0; depth < DeepestContainment && !at.IsNone(); ++depth) {
        if (const auto storey = storeys.find(at); storey != storeys.end()) return storey->second;
        at = HolderOf(at);
    }
    return std::nullopt;
}

} // namespace workbench::ifc
