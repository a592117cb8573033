#include "Relations.h"

namespace workbench::ifc {
namespace {

using entities::Entity;
using entities::Model;

/// At the other end of the first relation TYPE that has OBJECT among its RelatedObjects.
Entity FirstRelating(const Model& model, const Entity& object, const char* type, const char* relating) {
    for (const Entity& relation : model.GetReferencing(object, type, "RelatedObjects")) {
        if (const Entity found = relation.GetEntity(relating); !found.IsNone()) return found;
    }
    return {};
}

} // namespace

Entity TypeOf(const Model& model, const Entity& object) {
    return FirstRelating(model, object, "IfcRelDefinesByType", "RelatingType");
}

Entity WholeOf(const Model& model, const Entity& object) {
    return FirstRelating(model, object, "IfcRelAggregates", "RelatingObject");
}

std::vector<Entity> PartsOf(const Model& model, const Entity& object) {
    std::vector<Entity> parts;
    for (const Entity& relation : model.GetReferencing(object, "IfcRelAggregates", "RelatingObject")) {
        const std::vector<Entity> related = relation.GetEntities("RelatedObjects");
        parts.insert(parts.end(), related.begin(), related.end());
    }
    return parts;
}

} // namespace workbench::ifc
