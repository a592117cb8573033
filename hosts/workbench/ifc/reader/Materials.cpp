#include "Materials.h"

#include <algorithm>
#include <cmath>

#include "Relations.h"
#include "workbench/ifc/Origins.h"

namespace workbench::ifc {
namespace {

using entities::Entity;

/// Osmium has 22,600 kg/m3; what is heavier is in a wrong unit.
constexpr double HeaviestKgPerM3 = 30000.0;
constexpr int DeepestWhole = 8;
constexpr char OneMaterial[] = "one material";

} // namespace

MaterialUse Materials::UseOf(const Entity& object) {
    MaterialUse use = FindUse(object);
    const bool hasFractions = use.form == MaterialForm::Constituents &&
                              std::all_of(use.shares.begin(), use.shares.end(),
                                          [](const MaterialShare& share) { return share.fraction.has_value(); });
    const bool isList = use.form == MaterialForm::List || use.form == MaterialForm::Constituents;
    const bool isOfSeveral = std::any_of(use.shares.begin(), use.shares.end(), [&](const MaterialShare& share) {
        return share.material != use.shares.front().material;
    });
    if (use.form == MaterialForm::Single || (isList && !isOfSeveral)) use.origin = OneMaterial;
    if (isList && !hasFractions && isOfSeveral) FindShares(object, use);
    return use;
}

std::vector<SharingMaterial> Materials::Describe(const MaterialUse& use) const {
    std::vector<SharingMaterial> described;
    for (const MaterialShare& share : use.shares)
        described.push_back({building.materials[share.material].name, share.constituent});
    return described;
}

/// Replaces the equal shares of USE by better ones.
void Materials::FindShares(const Entity& object, MaterialUse& use) {
    const std::vector<SharingMaterial> materials = Describe(use);
    const FoundWeights weights = shares.FindWeights(object, materials);
    if (!weights.values.empty()) {
        use.form = MaterialForm::Constituents;
        use.origin = weights.origin;
        for (std::size_t i = 0; i < weights.values.size(); ++i)
            use.shares[i].fraction = weights.values[i];
    } else if (const FoundLayerSet found = shares.FindLayerSet(object, materials); !found.set.IsNone()) {
        use = Layers(found.set);
        use.origin = found.origin;
    } else {
        use.areSharesUnknown = true;
        use.origin = std::string(OriginBeginnings::EqualShares) + "; the model gives none";
    }
}

void Materials::TakeWeight(const MaterialUse& use, const StatedQuantities& stated) {
    if (use.form != MaterialForm::Single || !stated.netWeightKg || !stated.netVolumeM3) return;
    Weighed& sum = weighed[use.shares.front().material];
    sum.kg += stated.netWeightKg->value;
    sum.m3 += stated.netVolumeM3->value;
}

void Materials::DeriveDensities() {
    for (const auto& [index, sum] : weighed) {
        ImportedMaterial& material = building.materials[index];
        const double density = sum.kg / sum.m3;
        if (material.densityKgPerM3 || material.name == NoMaterialName || density > HeaviestKgPerM3) continue;
        material.densityKgPerM3 = density;
        material.densityOrigin = std::string(OriginBeginnings::Derived) + "NetWeight / NetVolume";
    }
}

MaterialUse Materials::FindUse(const Entity& object) {
    Entity part = object;
    for (int depth = 0; depth < DeepestWhole && !part.IsNone(); ++depth) {
        if (MaterialUse own = OwnUse(part); own.form != MaterialForm::None) return own;
        if (MaterialUse use = OwnUse(TypeOf(model, part)); use.form != MaterialForm::None) return use;
        part = WholeOf(model, part);
    }
    return {};
}

std::size_t Materials::WithoutMaterial() {
    return IndexOfName(NoMaterialName);
}

std::size_t Materials::IndexOfName(const std::string& name) {
    const auto [place, isNew] = byName.emplace(name.empty() ? NoMaterialName : name, building.materials.size());
    if (isNew) building.materials.push_back({place->first, std::nullopt});
    return place->second;
}

/// An air layer often has a name and no material.
std::size_t Materials::IndexOfLayer(const Entity& layer) {
    const Entity material = layer.GetEntity("Material");
    return material.IsNone() ? IndexOfName(layer.GetText("Name")) : IndexOf(material);
}

MaterialUse Materials::OwnUse(const Entity& definition) {
    for (const Entity& relation : model.GetReferencing(definition, "IfcRelAssociatesMaterial", "RelatedObjects")) {
        if (MaterialUse use = Read(relation.GetEntity("RelatingMaterial")); !use.shares.empty()) return use;
    }
    return {};
}

MaterialUse Materials::Read(const Entity& select) {
    if (select.IsA("IfcMaterialLayerSetUsage")) return Layers(select.GetEntity("ForLayerSet"));
    if (select.IsA("IfcMaterialLayerSet")) return Layers(select);
    if (select.IsA("IfcMaterialConstituentSet")) return Constituents(select);
    if (select.IsA("IfcMaterialProfileSetUsage")) return Profiles(select.GetEntity("ForProfileSet"));
    if (select.IsA("IfcMaterialProfileSet")) return Profiles(select);
    if (select.IsA("IfcMaterialList")) return List(select.GetEntities("Materials"));
    if (select.IsA("IfcMaterial")) return Single(select);
    const bool isOneOfSet =
        select.IsA("IfcMaterialLayer") || select.IsA("IfcMaterialConstituent") || select.IsA("IfcMaterialProfile");
    return isOneOfSet ? Single(select.GetEntity("Material")) : MaterialUse();
}

MaterialUse Materials::Single(const Entity& material) {
    return {.form = MaterialForm::Single, .shares = {{.material = IndexOf(material)}}};
}

MaterialUse Materials::List(const std::vector<Entity>& materials) {
    MaterialUse use{.form = MaterialForm::List};
    for (const Entity& material : materials)
        use.shares.push_back({.material = IndexOf(material)});
    return use;
}

MaterialUse Materials::Layers(const Entity& set) {
    MaterialUse use{.form = MaterialForm::Layers, .origin = "layers by thickness"};
    for (const Entity& layer : set.GetEntities("MaterialLayers")) {
        const double thickness = layer.GetReal("LayerThickness").value_or(0.0);
        if (thickness <= 0.0) continue;
        use.shares.push_back({.material = IndexOfLayer(layer), .thicknessM = thickness * units.lengthM});
    }
    return use;
}

MaterialUse Materials::Profiles(const Entity& set) {
    std::vector<Entity> materials;
    for (const Entity& profile : set.GetEntities("MaterialProfiles"))
        materials.push_back(profile.GetEntity("Material"));
    return materials.size() == 1 ? Single(materials.front()) : List(materials);
}

MaterialUse Materials::Constituents(const Entity& set) {
    MaterialUse use{.form = MaterialForm::Constituents, .origin = "constituents by fraction"};
    for (const Entity& constituent : set.GetEntities("MaterialConstituents"))
        use.shares.push_back({.material = IndexOf(constituent.GetEntity("Material")),
                              .fraction = constituent.GetReal("Fraction"),
                              .constituent = constituent.GetText("Name")});
    return use;
}

std::size_t Materials::IndexOf(const Entity& material) {
    if (material.IsNone()) return WithoutMaterial();
    if (const auto known = byEntity.find(material); known != byEntity.end()) return known->second;
    const std::string name = material.GetText("Name");
    const auto density = DensityOf(material);
    const std::size_t index = IndexOfName(name);
    ImportedMaterial& entry = building.materials[index];
    if (density && entry.densityKgPerM3 && std::abs(*density - *entry.densityKgPerM3) > 1e-6 * *density) {
        building.warnings.push_back("The material " + name + " has two densities; the first is used.");
    }
    if (density && !entry.densityKgPerM3) {
        entry.densityKgPerM3 = density;
        entry.densityOrigin = std::string(OriginBeginnings::Stated) + "MassDensity";
    }
    byEntity.emplace(material, index);
    return index;
}

/// By a property of the material, or by the older schema's attribute.
std::optional<double> Materials::StatedDensity(const Entity& material) const {
    std::optional<double> inOldSchema;
    for (const Entity& set : model.GetReferencing(material, "IfcMaterialProperties", "Material")) {
        std::vector<Entity> properties = set.GetEntities("Properties");
        for (const Entity& property : set.GetEntities("ExtendedProperties"))
            properties.push_back(property);
        for (const Entity& property : properties) {
            const auto number = property.GetReal("NominalValue");
            if (!number || property.GetText("Name") != "MassDensity") continue;
            return *number * UnitFactor(property.GetEntity("Unit")).value_or(units.densityKgPerM3);
        }
        if (const auto number = set.GetReal("MassDensity")) inOldSchema = *number * units.densityKgPerM3;
    }
    return inOldSchema;
}

std::optional<double> Materials::DensityOf(const Entity& material) const {
    const auto density = StatedDensity(material);
    if (!density || *density == 0.0) return std::nullopt;
    if (*density > 0.0 && *density <= HeaviestKgPerM3) return density;
    building.warnings.push_back("The density of the material " + material.GetText("Name") + " (" +
                                std::to_string(*density) + " kg/m3) cannot be right and is not used.");
    return std::nullopt;
}

} // namespace workbench::ifc
