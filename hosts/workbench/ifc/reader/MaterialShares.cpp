#include "MaterialShares.h"

#include <algorithm>

#include "Relations.h"
#include "StatedValues.h"

namespace workbench::ifc {
namespace {

using entities::Entity;

/// A part of an element that a quantity set describes by itself.
struct DescribedPart {
    std::string name;
    bool isMaterial = false; ///< said to be a layer or a material
    std::optional<double> volume, width;
};

DescribedPart Describe(const Entity& source, const char* quantities) {
    DescribedPart part;
    part.name = ComparableName(source.GetText("Name"));
    const std::string kind = ComparableName(source.GetText("Discrimination"));
    part.isMaterial = kind == "layer" || kind == "material";
    for (const Entity& quantity : source.GetEntities(quantities)) {
        const std::string name = ComparableName(quantity.GetText("Name"));
        const auto length = quantity.GetReal("LengthValue");
        const auto volume = quantity.GetReal("VolumeValue");
        if (volume && *volume > 0.0 && !part.volume) part.volume = volume;
        if (length && *length > 0.0 && (name == "width" || name == "thickness")) part.width = length;
    }
    return part;
}

/// Of all sets of the element: the complex quantities in them, and the sets themselves.
std::vector<DescribedPart> DescribedParts(const entities::Model& model, const Entity& element) {
    std::vector<DescribedPart> parts;
    for (const Entity& set : SetsOf(model, element)) {
        parts.push_back(Describe(set, "Quantities"));
        for (const Entity& quantity : set.GetEntities("Quantities")) {
            if (quantity.IsA("IfcPhysicalComplexQuantity")) parts.push_back(Describe(quantity, "HasQuantities"));
        }
    }
    return parts;
}

bool IsPartOf(const DescribedPart& part, const SharingMaterial& material) {
    const bool isByMaterial = part.isMaterial && part.name == ComparableName(material.name);
    return isByMaterial || (!material.constituent.empty() && part.name == ComparableName(material.constituent));
}

/// One number for each material, or none at all.
std::vector<double> Collect(const std::vector<DescribedPart>& parts, const std::vector<SharingMaterial>& materials,
                            std::optional<double> DescribedPart::*quantity) {
    std::vector<double> weights;
    for (const SharingMaterial& material : materials) {
        const auto found = std::find_if(parts.begin(), parts.end(), [&](const DescribedPart& part) {
            return part.*quantity && IsPartOf(part, material);
        });
        if (found == parts.end()) return {};
        weights.push_back(*((*found).*quantity));
    }
    return weights;
}

/// The set behind what an association names, none for other materials.
Entity LayerSetOf(const Entity& select) {
    if (select.IsA("IfcMaterialLayerSetUsage")) return select.GetEntity("ForLayerSet");
    return select.IsA("IfcMaterialLayerSet") ? select : Entity();
}

std::vector<std::string> LayerNames(const Entity& set) {
    std::vector<std::string> names;
    for (const Entity& layer : set.GetEntities("MaterialLayers")) {
        if (layer.GetReal("LayerThickness").value_or(0.0) > 0.0)
            names.push_back(layer.GetEntity("Material").GetText("Name"));
    }
    std::sort(names.begin(), names.end());
    return names;
}

Entity FirstWithNames(const std::vector<Entity>& sets, const std::vector<std::string>& sortedNames) {
    const auto found =
        std::find_if(sets.begin(), sets.end(), [&](const Entity& set) { return LayerNames(set) == sortedNames; });
    return found == sets.end() ? Entity() : *found;
}

template <class Key>
Entity FirstUnder(const std::map<Key, std::vector<Entity>>& index, const Key& key,
                  const std::vector<std::string>& sortedNames) {
    const auto found = index.find(key);
    return found == index.end() ? Entity() : FirstWithNames(found->second, sortedNames);
}

void PutOnce(std::vector<Entity>& sets, const Entity& set) {
    if (std::find(sets.begin(), sets.end(), set) == sets.end()) sets.push_back(set);
}

} // namespace

FoundWeights MaterialShares::FindWeights(const Entity& element, const std::vector<SharingMaterial>& materials) const {
    const std::vector<DescribedPart> parts = DescribedParts(model, element);
    std::vector<double> volumes = Collect(parts, materials, &DescribedPart::volume);
    if (!volumes.empty()) return {std::move(volumes), "volumes stated for the materials"};
    return {Collect(parts, materials, &DescribedPart::width), "widths stated for the materials"};
}

void MaterialShares::IndexLayerSets() {
    if (isIndexed) return;
    isIndexed = true;
    for (const Entity& set : model.GetAll("IfcMaterialLayerSet"))
        byName[ComparableName(set.GetText("LayerSetName"))].push_back(set);
    for (const Entity& relation : model.GetAll("IfcRelAssociatesMaterial")) {
        const Entity set = LayerSetOf(relation.GetEntity("RelatingMaterial"));
        if (set.IsNone()) continue;
        for (const Entity& object : relation.GetEntities("RelatedObjects")) {
            const Entity type = object.IsA("IfcTypeObject") ? object : TypeOf(model, object);
            if (!type.IsNone()) PutOnce(byType[type], set);
            if (const std::string text = object.GetText("ObjectType"); !text.empty()) PutOnce(byObjectType[text], set);
        }
    }
}

FoundLayerSet MaterialShares::FindLayerSet(const Entity& element, const std::vector<SharingMaterial>& materials) {
    IndexLayerSets();
    std::vector<std::string> names;
    names.reserve(materials.size());
    for (const SharingMaterial& material : materials)
        names.push_back(material.name);
    std::sort(names.begin(), names.end());
    const Entity type = TypeOf(model, element);
    const std::string objectType = element.GetText("ObjectType");
    constexpr char SetOfTypeName[] = "layers of the set with the type's name";
    const FoundLayerSet places[] = {
        {FirstUnder(byType, type, names), "layers of the type"},
        {FirstUnder(byObjectType, objectType, names), "layers of an element with the same object type"},
        {FirstUnder(byName, ComparableName(type.GetText("Name")), names), SetOfTypeName},
        {FirstUnder(byName, ComparableName(objectType), names), SetOfTypeName}};
    for (const FoundLayerSet& found : places)
        if (!found.set.IsNone()) return found;
    return {};
}

} // namespace workbench::ifc
