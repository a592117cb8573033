#include "workbench/ifc/entities/Entity.h"

#include <algorithm>

#include "workbench/ifc/entities/Model.h"

namespace workbench::entities {
namespace {

/// The kind of entity that an attribute may refer to; null where any may stand there.
const schema::EntityType* TargetOf(const schema::EntityType& type, std::string_view attribute) {
    const auto place = type.FindAttribute(attribute);
    const schema::Attribute* const found = place ? type.GetAttribute(*place) : nullptr;
    return found ? found->target : nullptr;
}

/// Also for a type that is not known: then any entity will do.
bool Fits(const Entity& entity, const schema::EntityType* target) {
    return !entity.IsNone() && (!target || entity.GetType()->IsA(*target));
}

} // namespace

step::EntityNumber Entity::GetNumber() const {
    return model ? model->GetFile().GetNumber(index) : 0;
}

const schema::EntityType* Entity::GetType() const {
    return model ? model->GetTypeOf(index) : nullptr;
}

std::string_view Entity::GetTypeName() const {
    return model ? GetType()->name : std::string_view();
}

bool Entity::IsA(std::string_view name) const {
    return model && GetType()->IsA(name);
}

step::Value Entity::Get(std::string_view attribute) const {
    const auto place = model ? GetType()->FindAttribute(attribute) : std::nullopt;
    return place ? model->GetArgument(index, *place) : step::Value();
}

Entity Entity::GetEntity(std::string_view attribute) const {
    if (!model) return {};
    const Entity found = model->Resolve(Get(attribute));
    return Fits(found, TargetOf(*GetType(), attribute)) ? found : Entity();
}

std::vector<Entity> Entity::GetEntities(std::string_view attribute) const {
    std::vector<Entity> found;
    if (!model) return found;
    const schema::EntityType* const target = TargetOf(*GetType(), attribute);
    model->ForEachReference(Get(attribute), [&](const Entity& entity) {
        if (Fits(entity, target)) found.push_back(entity);
    });
    return found;
}

std::vector<Entity> Entity::GetChain(std::string_view attribute, std::size_t most) const {
    std::vector<Entity> chain;
    for (Entity next = GetEntity(attribute); !next.IsNone() && next != *this && chain.size() < most;
         next = next.GetEntity(attribute)) {
        if (std::find(chain.begin(), chain.end(), next) != chain.end()) break;
        chain.push_back(next);
    }
    return chain;
}

} // namespace workbench::entities
