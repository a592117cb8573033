// One entity of a model, and its attributes by name. An Entity is a handle, as cheap to copy as a pointer, and may
// stand for none: what is missing, refers to nothing or is of the wrong kind is answered with nothing and never an
// error.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/ifc/schema/Schema.h"
#include "workbench/ifc/step/StepFile.h"

namespace workbench::entities {

class Model;

class Entity {
public:
    Entity() = default;
    /// MODEL must outlive the entity; what INDEX stands for must be of a type that the model's schema knows.
    Entity(const Model& model, step::EntityIndex index) : model(&model), index(index) {}

    /// True where it stands for none. Then it has the number 0, no type and no attributes.
    [[nodiscard]] bool IsNone() const { return model == nullptr; }
    [[nodiscard]] step::EntityNumber GetNumber() const;
    /// Null for none.
    [[nodiscard]] const schema::EntityType* GetType() const;
    /// "IfcWallStandardCase".
    [[nodiscard]] std::string_view GetTypeName() const;
    /// True where it is of the type NAME, written as in the schema, or of one that inherits from it.
    [[nodiscard]] bool IsA(std::string_view name) const;

    /// Missing where the type has no attribute of that name or the file says nothing.
    [[nodiscard]] step::Value Get(std::string_view attribute) const;
    [[nodiscard]] std::string GetText(std::string_view attribute) const { return Get(attribute).GetText(); }
    [[nodiscard]] std::optional<double> GetReal(std::string_view attribute) const { return Get(attribute).GetNumber(); }

    /// What the attribute refers to; none where that is not of the type that the schema wants there.
    [[nodiscard]] Entity GetEntity(std::string_view attribute) const;
    /// Of a list, also of lists within it, or of a single reference; without those that would be none.
    [[nodiscard]] std::vector<Entity> GetEntities(std::string_view attribute) const;
    /// What ATTRIBUTE refers to, what the same attribute of that refers to, and so on: at most MOST entities, none of
    /// them twice, this one not among them.
    [[nodiscard]] std::vector<Entity> GetChain(std::string_view attribute, std::size_t most) const;

    /// Of the same model; orders by number.
    [[nodiscard]] bool operator==(const Entity& other) const = default;
    [[nodiscard]] bool operator<(const Entity& other) const { return index < other.index; }

private:
    friend class Model;

    const Model* model = nullptr;
    step::EntityIndex index = 0;
};

} // namespace workbench::entities
