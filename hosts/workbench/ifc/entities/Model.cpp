#include "workbench/ifc/entities/Model.h"

#include <algorithm>

namespace workbench::entities {
namespace {

/// Characters before an argument from which on it is worth keeping.
constexpr std::ptrdiff_t LongWay = 2000;

} // namespace

Model::Model(step::StepFile given, const schema::Schema& schema) : file(std::move(given)), schema(&schema) {
    const std::vector<std::string>& keywords = file.GetKeywords();
    for (std::size_t i = 0; i < keywords.size(); ++i) {
        types.push_back(schema.FindEntity(keywords[i]));
        if (!types.back()) unknown[keywords[i]] = file.GetEntities(i).size();
    }
}

Entity Model::Find(step::EntityNumber number) const {
    const auto index = file.Find(number);
    return index && GetTypeOf(*index) ? Entity(*this, *index) : Entity();
}

Entity Model::Resolve(const step::Value& value) const {
    const auto number = value.GetReference();
    return number ? Find(*number) : Entity();
}

void Model::ForEachReference(const step::Value& value, const std::function<void(const Entity&)>& tell) const {
    const Entity single = Resolve(value);
    if (!single.IsNone()) tell(single);
    // As deep as the file's lists may be.
    if (value.GetKind() == step::ValueKind::Typed) ForEachReference(value.GetContent(), tell);
    for (const step::Value& item : value)
        ForEachReference(item, tell);
}

std::vector<Entity> Model::GetAll(std::string_view type) const {
    std::vector<Entity> found;
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (!types[i] || !types[i]->IsA(type)) continue;
        for (const step::EntityIndex index : file.GetEntities(i))
            found.emplace_back(*this, index);
    }
    std::sort(found.begin(), found.end());
    return found;
}

step::Value Model::GetArgument(step::EntityIndex index, std::size_t place) const {
    if (!longArguments.empty()) {
        const auto known = longArguments.find(index);
        if (known != longArguments.end()) return place < known->second.size() ? known->second[place] : step::Value();
    }
    const step::Value all = file.GetArguments(index);
    const step::Value found = all.GetItem(place);
    if (!found.GetWritten().empty() && found.GetWritten().data() - all.GetWritten().data() > LongWay)
        for (const step::Value& argument : all)
            longArguments[index].push_back(argument);
    return found;
}

std::vector<Entity> Model::GetReferencing(const Entity& entity, std::string_view type,
                                          std::string_view attribute) const {
    std::vector<Entity> found;
    if (entity.IsNone()) return found;
    const References& all = GetReferences(type, attribute);
    auto pair = std::lower_bound(all.begin(), all.end(), std::pair(entity.index, step::EntityIndex(0)));
    for (; pair != all.end() && pair->first == entity.index; ++pair)
        found.emplace_back(*this, pair->second);
    return found;
}

const Model::References& Model::GetReferences(std::string_view type, std::string_view attribute) const {
    const std::pair key{std::string(type), std::string(attribute)};
    const auto known = references.find(key);
    if (known != references.end()) return known->second;
    return references.emplace(key, CollectReferences(type, attribute)).first->second;
}

Model::References Model::CollectReferences(std::string_view type, std::string_view attribute) const {
    References collected;
    for (const Entity& source : GetAll(type)) {
        for (const Entity& target : source.GetEntities(attribute))
            collected.emplace_back(target.index, source.index);
    }
    std::sort(collected.begin(), collected.end());
    collected.erase(std::unique(collected.begin(), collected.end()), collected.end());
    return collected;
}

} // namespace workbench::entities
