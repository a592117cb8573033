// The entities of a file by the schema that the file names: finding them by number and by type, and from an entity back
// to those that refer to it.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "workbench/ifc/entities/Entity.h"
#include "workbench/ifc/schema/Schema.h"
#include "workbench/ifc/step/StepFile.h"

namespace workbench::entities {

/// Look-ups of who refers to whom are made when they are first asked for; so one thread at a time.
class Model {
public:
    /// Entities of types that SCHEMA does not know are left out, and count as nothing where they are referred to.
    Model(step::StepFile file, const schema::Schema& schema);
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    [[nodiscard]] const step::StepFile& GetFile() const { return file; }
    [[nodiscard]] const schema::Schema& GetSchema() const { return *schema; }
    /// How many entities were left out, by keyword.
    [[nodiscard]] const std::map<std::string, std::size_t>& GetUnknown() const { return unknown; }

    [[nodiscard]] Entity Find(step::EntityNumber number) const;
    /// What a reference refers to; none for other values.
    [[nodiscard]] Entity Resolve(const step::Value& value) const;
    /// For every reference in VALUE, a single one or those of a list and of lists and typed values within it, in their
    /// order.
    void ForEachReference(const step::Value& value, const std::function<void(const Entity&)>& tell) const;

    /// Entities of the type, written as in the schema, and of those that inherit from it; by number.
    [[nodiscard]] std::vector<Entity> GetAll(std::string_view type) const;

    /// Entities of TYPE, or of one that inherits from it, whose ATTRIBUTE refers to ENTITY: by number, each once.
    [[nodiscard]] std::vector<Entity> GetReferencing(const Entity& entity, std::string_view type,
                                                     std::string_view attribute) const;

private:
    friend class Entity;

    /// Who is referred to, and by whom; in order.
    using References = std::vector<std::pair<step::EntityIndex, step::EntityIndex>>;

    [[nodiscard]] const schema::EntityType* GetTypeOf(step::EntityIndex index) const {
        return types[file.GetKeyword(index)];
    }
    [[nodiscard]] step::Value GetArgument(step::EntityIndex index, std::size_t place) const;
    [[nodiscard]] const References& GetReferences(std::string_view type, std::string_view attribute) const;
    [[nodiscard]] References CollectReferences(std::string_view type, std::string_view attribute) const;

    step::StepFile file;
    const schema::Schema* schema;
    std::vector<const schema::EntityType*> types; ///< by the file's keywords; null for those that are not known
    std::map<std::string, std::size_t> unknown;
    mutable std::map<std::pair<std::string, std::string>, References> references;
    /// Arguments of entities in which much text stands before one that was asked for, as the material of thousands of
    /// objects does behind them all.
    mutable std::unordered_map<step::EntityIndex, std::vector<step::Value>> longArguments;
};

} // namespace workbench::entities
