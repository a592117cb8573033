// The model as the reading library holds it, with the texts that were kept away from the library put back.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <ifcpp/model/BuildingModel.h>
#include <ifcpp/model/BuildingObject.h>

#include "workbench/ifc/StepText.h"

namespace workbench::ifc {

/// What an entity is to the import, by its class.
enum class EntityRole : std::uint8_t { Other, Element, Door, Window, LeftOut, Space, Building, Storey, Project };

struct ModelEntity {
    int number = 0;
    EntityRole role = EntityRole::Other;
    std::shared_ptr<BuildingEntity> entity;
};

/// True where most entities are of kinds that the library does not know: text in the form of a model, but no model.
[[nodiscard]] bool IsMostlyUnknown(const PreparedStep& step);

class LibraryModel {
public:
    /// Reads the prepared text, which is used up; keeps its strings and keywords.
    explicit LibraryModel(PreparedStep prepared);

    [[nodiscard]] const PreparedStep& Step() const { return step; }
    [[nodiscard]] const std::shared_ptr<BuildingModel>& Model() const { return model; }
    /// Entities with a role, by entity number.
    [[nodiscard]] const std::vector<ModelEntity>& Entities() const { return entities; }
    [[nodiscard]] std::shared_ptr<BuildingEntity> Find(int number) const;

    /// Text of a label, identifier or text value; empty where there is none.
    template <class Label>
    [[nodiscard]] std::string Text(const std::shared_ptr<Label>& label) const {
        return label ? Resolve(label->m_value) : std::string();
    }

private:
    [[nodiscard]] std::string Resolve(const std::wstring& written) const;
    void CollectEntities();

    PreparedStep step;
    std::shared_ptr<BuildingModel> model;
    std::vector<ModelEntity> entities;
};

/// The objects behind a list of back references that are still there and of class T.
template <class T, class Reference>
[[nodiscard]] std::vector<std::shared_ptr<T>> Alive(const std::vector<std::weak_ptr<Reference>>& references) {
    std::vector<std::shared_ptr<T>> alive;
    for (const auto& reference : references) {
        if (auto object = std::dynamic_pointer_cast<T>(reference.lock())) alive.push_back(std::move(object));
    }
    return alive;
}

} // namespace workbench::ifc
