#include "workbench/ifc/schema/Schema.h"

#include <algorithm>

namespace workbench::schema {
namespace {

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsBefore(std::string_view a, std::string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return UpperCase(x) < UpperCase(y); });
}

/// The row of that name, in any case.
template <class Row>
const Row* FindRow(std::span<const Row> rows, std::string_view name) {
    const auto found = std::lower_bound(rows.begin(), rows.end(), name, [](const Row& row, std::string_view wanted) {
        return IsBefore(row.name, wanted);
    });
    return found != rows.end() && !IsBefore(name, found->name) ? &*found : nullptr;
}

struct Edition {
    std::string_view prefix; ///< of the name in the header
    const Schema* schema;
    bool isApproximate;
};

/// First match counts.
constexpr Edition Editions[] = {
    {"IFC2X3", &IFC2X3, false}, {"IFC2X2", &IFC2X3, true}, {"IFC2X_FINAL", &IFC2X3, true}, {"IFC4X3_RC", &IFC4X3, true},
    {"IFC4X3", &IFC4X3, false}, {"IFC4X1", &IFC4X3, true}, {"IFC4X2", &IFC4X3, true},      {"IFC4RC", &IFC4, true},
    {"IFC4_RC", &IFC4, true},   {"IFC4_", &IFC4, false},
};

} // namespace

bool EntityType::IsA(std::string_view wanted) const {
    const EntityType* type = this;
    while (type && type->name != wanted)
        type = type->supertype;
    return type != nullptr;
}

bool EntityType::IsA(const EntityType& other) const {
    const EntityType* type = this;
    while (type && type != &other)
        type = type->supertype;
    return type != nullptr;
}

std::optional<std::size_t> EntityType::FindAttribute(std::string_view wanted) const {
    for (const EntityType* type = this; type; type = type->supertype) {
        for (std::size_t i = 0; i < type->ownAttributes.size(); ++i) {
            if (type->ownAttributes[i].name == wanted) return type->inheritedCount + i;
        }
    }
    return std::nullopt;
}

const Attribute* EntityType::GetAttribute(std::size_t place) const {
    const EntityType* type = this;
    while (type && place < type->inheritedCount)
        type = type->supertype;
    const std::size_t own = type ? place - type->inheritedCount : 0;
    return type && own < type->ownAttributes.size() ? &type->ownAttributes[own] : nullptr;
}

const EntityType* Schema::FindEntity(std::string_view keyword) const {
    return FindRow(entities, keyword);
}

const DefinedType* Schema::FindType(std::string_view keyword) const {
    return FindRow(types, keyword);
}

bool Schema::IsValueOf(std::string_view keyword, std::string_view wanted) const {
    const DefinedType* type = FindType(keyword);
    while (type && type->name != wanted)
        type = FindType(type->underlying);
    return type != nullptr;
}

SchemaChoice ChooseSchema(std::string_view written) {
    if (written == "IFC4") return {&IFC4, false};
    if (written == "IFC2X") return {&IFC2X3, true};
    const auto found = std::find_if(std::begin(Editions), std::end(Editions),
                                    [&](const Edition& edition) { return written.starts_with(edition.prefix); });
    return found == std::end(Editions) ? SchemaChoice() : SchemaChoice{found->schema, found->isApproximate};
}

} // namespace workbench::schema
