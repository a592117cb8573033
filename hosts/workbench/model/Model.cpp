#include "workbench/model/Model.h"

#include <algorithm>

namespace workbench {

namespace {

template <typename Attribute>
host::AttributeIndex Append(std::vector<Attribute>& list, Attribute attribute) {
    attribute.index = {static_cast<std::int32_t>(list.size() + 1)};
    list.push_back(std::move(attribute));
    return list.back().index;
}

template <typename Attribute>
const Attribute* FindByIndex(const std::vector<Attribute>& list, host::AttributeIndex index) {
    return index.value >= 1 && static_cast<std::size_t>(index.value) <= list.size()
               ? &list[static_cast<std::size_t>(index.value - 1)]
               : nullptr;
}

const host::Guid& KeyOf(const host::PropertyGroup& row) {
    return row.guid;
}
const host::Guid& KeyOf(const host::PropertyDefinition& row) {
    return row.guid;
}
const host::Guid& KeyOf(const host::ClassificationSystem& row) {
    return row.guid;
}
const host::Guid& KeyOf(const ClassificationItem& row) {
    return row.item.guid;
}

const host::Guid& KeyOf(const PlacedObject& row) {
    return row.guid;
}

template <typename ListedRow>
auto FindRow(std::vector<ListedRow>& list, const ListedRow& row) {
    return std::find_if(list.begin(), list.end(), [&](const ListedRow& one) { return KeyOf(one) == KeyOf(row); });
}

template <typename ListedRow>
void PutRow(std::vector<ListedRow>& list, const ListedRow& row) {
    const auto found = FindRow(list, row);
    if (found == list.end())
        list.push_back(row);
    else
        *found = row;
}

template <typename ListedRow>
void RemoveRow(std::vector<ListedRow>& list, const ListedRow& row) {
    const auto found = FindRow(list, row);
    if (found != list.end()) list.erase(found);
}

template <typename... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};
template <typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

template <typename Map, typename Key>
void RemoveValue(Map& map, const Key& key, const host::Guid& definition) {
    const auto found = map.find(key);
    if (found == map.end()) return;
    found->second.erase(definition);
    if (found->second.empty()) map.erase(found);
}

} // namespace

host::AttributeIndex Model::AddLayer(std::string name) {
    return Append(layers, Layer{{}, std::move(name)});
}

void Model::AddPen(const Shade& shade) {
    Append(pens, Pen{{}, shade});
}

void Model::AddFill(std::string name, const std::array<std::uint8_t, 8>& pattern) {
    Append(fills, Fill{{}, std::move(name), pattern});
}

void Model::AddSurface(std::string name, const Shade& shade) {
    Append(surfaces, Surface{{}, std::move(name), shade});
}

host::AttributeIndex Model::AddBuildingMaterial(host::BuildingMaterial material) {
    return Append(buildingMaterials, std::move(material));
}

bool Model::AddElement(Element element, std::span<const host::MaterialComponent> list,
                       std::span<const double> thicknesses) {
    if (FindElement(element.guid) != ElementIndex::NotFound) return false;
    element.firstComponent = static_cast<std::uint32_t>(components.size());
    element.componentCount = static_cast<std::uint32_t>(list.size());
    components.insert(components.end(), list.begin(), list.end());
    thicknessesM.insert(thicknessesM.end(), thicknesses.begin(), thicknesses.end());
    thicknessesM.resize(components.size());
    elements.push_back(std::move(element));
    elementIndex.InsertLast(elements);
    return true;
}

void Model::SetOrigins(std::uint32_t elementPosition, std::shared_ptr<const Origins> origins) {
    elements[elementPosition].origins = std::move(origins);
}

void Model::ReserveElements(std::size_t elementCount, std::size_t componentCount) {
    elements.reserve(elementCount);
    components.reserve(componentCount);
    thicknessesM.reserve(componentCount);
}

const host::BuildingMaterial* Model::FindBuildingMaterial(host::AttributeIndex index) const {
    return FindByIndex(buildingMaterials, index);
}

const Layer* Model::FindLayer(host::AttributeIndex index) const {
    return FindByIndex(layers, index);
}

std::span<const host::MaterialComponent> Model::GetComponents(const Element& element) const {
    return std::span(components).subspan(element.firstComponent, element.componentCount);
}

std::span<const double> Model::GetThicknesses(const Element& element) const {
    return std::span(thicknessesM).subspan(element.firstComponent, element.componentCount);
}

std::uint32_t Model::FindElement(const host::Guid& guid) const {
    // The same element is asked for several things in turn, then the next one.
    for (const std::uint32_t guess : {lastFound, lastFound + 1})
        if (guess < elements.size() && elements[guess].guid == guid) return lastFound = guess;
    const std::uint32_t found = elementIndex.Find(elements, guid);
    if (found != ElementIndex::NotFound) lastFound = found;
    return found;
}

const host::PropertyDefinition* Model::FindDefinition(const host::Guid& guid) const {
    for (const host::PropertyDefinition& definition : definitions)
        if (definition.guid == guid) return &definition;
    return nullptr;
}

const Model::Values* Model::FindMaterialValues(host::AttributeIndex material) const {
    const auto found = materialValues.find(material);
    return found == materialValues.end() ? nullptr : &found->second;
}

const Model::Values* Model::FindElementValues(std::uint32_t elementPosition) const {
    if (elementValues.empty()) return nullptr;
    const auto found = elementValues.find(elementPosition);
    return found == elementValues.end() ? nullptr : &found->second;
}

void Model::Apply(const Change& change) {
    if (change.after)
        Put(*change.after);
    else if (change.before)
        Remove(*change.before);
}

void Model::Put(const Row& row) {
    ++schemaRevision;
    std::visit(Overloaded{[&](const host::PropertyGroup& group) { PutRow(groups, group); },
                          [&](const host::PropertyDefinition& definition) { PutRow(definitions, definition); },
                          [&](const host::ClassificationSystem& system) { PutRow(systems, system); },
                          [&](const ClassificationItem& item) { PutRow(items, item); },
                          [&](const MaterialClassification& one) { materialClassifications.push_back(one); },
                          [&](const MaterialValue& one) { materialValues[one.material][one.definition] = one.value; },
                          [&](const ElementValue& one) {
                              elementValues[FindElement(one.element)][one.definition] = one.value;
                          },
                          [&](const host::BuildingMaterial& material) {
                              buildingMaterials[static_cast<std::size_t>(material.index.value - 1)] = material;
                          },
                          [&](const PlacedObject& object) { PutRow(placedObjects, object); }},
               row);
}

void Model::Remove(const Row& row) {
    ++schemaRevision;
    std::visit(Overloaded{[&](const host::PropertyGroup& group) { RemoveRow(groups, group); },
                          [&](const host::PropertyDefinition& definition) { RemoveRow(definitions, definition); },
                          [&](const host::ClassificationSystem& system) { RemoveRow(systems, system); },
                          [&](const ClassificationItem& item) { RemoveRow(items, item); },
                          [&](const MaterialClassification& one) {
                              std::erase_if(materialClassifications, [&](const MaterialClassification& other) {
                                  return other.material == one.material && other.item == one.item;
                              });
                          },
                          [&](const MaterialValue& one) { RemoveValue(materialValues, one.material, one.definition); },
                          [&](const ElementValue& one) {
                              RemoveValue(elementValues, FindElement(one.element), one.definition);
                          },
                          [](const host::BuildingMaterial&) { /* attributes are never removed */ },
                          [&](const PlacedObject& object) { RemoveRow(placedObjects, object); }},
               row);
}

} // namespace workbench
