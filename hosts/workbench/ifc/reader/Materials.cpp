#include "Materials.h"

#include <cmath>
#include <set>

#include <ifcpp/IFC4/include/IfcIdentifier.h>
#include <ifcpp/IFC4/include/IfcLabel.h>
#include <ifcpp/IFC4/include/IfcMaterial.h>
#include <ifcpp/IFC4/include/IfcMaterialConstituent.h>
#include <ifcpp/IFC4/include/IfcMaterialConstituentSet.h>
#include <ifcpp/IFC4/include/IfcMaterialLayer.h>
#include <ifcpp/IFC4/include/IfcMaterialLayerSet.h>
#include <ifcpp/IFC4/include/IfcMaterialLayerSetUsage.h>
#include <ifcpp/IFC4/include/IfcMaterialList.h>
#include <ifcpp/IFC4/include/IfcMaterialProfile.h>
#include <ifcpp/IFC4/include/IfcMaterialProfileSet.h>
#include <ifcpp/IFC4/include/IfcMaterialProfileSetUsage.h>
#include <ifcpp/IFC4/include/IfcMaterialProperties.h>
#include <ifcpp/IFC4/include/IfcNonNegativeLengthMeasure.h>
#include <ifcpp/IFC4/include/IfcNormalisedRatioMeasure.h>
#include <ifcpp/IFC4/include/IfcObject.h>
#include <ifcpp/IFC4/include/IfcPropertySingleValue.h>
#include <ifcpp/IFC4/include/IfcRelAggregates.h>
#include <ifcpp/IFC4/include/IfcRelAssociatesMaterial.h>
#include <ifcpp/IFC4/include/IfcRelDefinesByType.h>
#include <ifcpp/IFC4/include/IfcTypeObject.h>
#include <ifcpp/IFC4/include/IfcUnit.h>
#include <ifcpp/IFC4/include/IfcValue.h>

namespace workbench::ifc {
namespace {

/// Osmium has 22,600 kg/m3; what is heavier is in a wrong unit.
constexpr double heaviestKgPerM3 = 30000.0;
constexpr int deepestWhole = 8;

} // namespace

Materials::Materials(const LibraryModel& model, const UnitFactors& units, ImportedBuilding& building)
    : model(model), units(units), building(building) {
    for (const StatedDensity& density : model.Step().densities)
        oldDensities.emplace(density.material, density.value * units.densityKgPerM3);
}

MaterialUse Materials::UseOf(const IfcObject& object) {
    const IfcObject* part = &object;
    for (int depth = 0; depth < deepestWhole && part != nullptr; ++depth) {
        if (MaterialUse own = OwnUse(*part); own.form != MaterialForm::None) return own;
        for (const auto& typed : Alive<IfcRelDefinesByType>(part->m_IsTypedBy_inverse)) {
            if (!typed->m_RelatingType) continue;
            if (MaterialUse use = OwnUse(*typed->m_RelatingType); use.form != MaterialForm::None) return use;
        }
        const auto wholes = Alive<IfcRelAggregates>(part->m_Decomposes_inverse);
        part = wholes.empty() ? nullptr : dynamic_cast<const IfcObject*>(wholes.front()->m_RelatingObject.get());
    }
    return {};
}

std::size_t Materials::WithoutMaterial() {
    const auto [place, isNew] = byName.emplace(NoMaterialName, building.materials.size());
    if (isNew) building.materials.push_back({NoMaterialName, std::nullopt});
    return place->second;
}

MaterialUse Materials::OwnUse(const IfcObjectDefinition& definition) {
    for (const auto& relation : Alive<IfcRelAssociatesMaterial>(definition.m_HasAssociations_inverse)) {
        if (MaterialUse use = Read(relation->m_RelatingMaterial); !use.shares.empty()) return use;
    }
    return {};
}

MaterialUse Materials::Read(const std::shared_ptr<IfcMaterialSelect>& select) {
    if (const auto usage = std::dynamic_pointer_cast<IfcMaterialLayerSetUsage>(select))
        return Layers(usage->m_ForLayerSet);
    if (const auto set = std::dynamic_pointer_cast<IfcMaterialLayerSet>(select)) return Layers(set);
    if (const auto layer = std::dynamic_pointer_cast<IfcMaterialLayer>(select)) return Single(layer->m_Material);
    if (const auto set = std::dynamic_pointer_cast<IfcMaterialConstituentSet>(select)) return Constituents(*set);
    if (const auto one = std::dynamic_pointer_cast<IfcMaterialConstituent>(select)) return Single(one->m_Material);
    if (const auto usage = std::dynamic_pointer_cast<IfcMaterialProfileSetUsage>(select))
        return Profiles(usage->m_ForProfileSet);
    if (const auto set = std::dynamic_pointer_cast<IfcMaterialProfileSet>(select)) return Profiles(set);
    if (const auto profile = std::dynamic_pointer_cast<IfcMaterialProfile>(select)) return Single(profile->m_Material);
    if (const auto list = std::dynamic_pointer_cast<IfcMaterialList>(select)) return List(list->m_Materials);
    if (const auto material = std::dynamic_pointer_cast<IfcMaterial>(select)) return Single(material);
    return {};
}

MaterialUse Materials::Single(const std::shared_ptr<IfcMaterial>& material) {
    return {MaterialForm::Single, {{IndexOf(material), 0.0, std::nullopt}}};
}

MaterialUse Materials::List(const std::vector<std::shared_ptr<IfcMaterial>>& materials) {
    MaterialUse use{MaterialForm::List, {}};
    for (const auto& material : materials)
        use.shares.push_back({IndexOf(material), 0.0, std::nullopt});
    return use;
}

MaterialUse Materials::Layers(const std::shared_ptr<IfcMaterialLayerSet>& set) {
    MaterialUse use{MaterialForm::Layers, {}};
    if (!set) return use;
    for (const auto& layer : set->m_MaterialLayers) {
        const double thickness = layer && layer->m_LayerThickness ? layer->m_LayerThickness->m_value : 0.0;
        if (!std::isfinite(thickness) || thickness <= 0.0) continue;
        use.shares.push_back({IndexOf(layer->m_Material), thickness * units.lengthM, std::nullopt});
    }
    return use;
}

MaterialUse Materials::Profiles(const std::shared_ptr<IfcMaterialProfileSet>& set) {
    std::vector<std::shared_ptr<IfcMaterial>> materials;
    if (!set) return {};
    for (const auto& profile : set->m_MaterialProfiles) {
        if (profile) materials.push_back(profile->m_Material);
    }
    return materials.size() == 1 ? Single(materials.front()) : List(materials);
}

MaterialUse Materials::Constituents(const IfcMaterialConstituentSet& set) {
    MaterialUse use{MaterialForm::Constituents, {}};
    for (const auto& constituent : set.m_MaterialConstituents) {
        if (!constituent) continue;
        const auto& fraction = constituent->m_Fraction;
        use.shares.push_back({IndexOf(constituent->m_Material), 0.0,
                              fraction ? std::optional<double>(fraction->m_value) : std::nullopt});
    }
    return use;
}

std::size_t Materials::IndexOf(const std::shared_ptr<IfcMaterial>& material) {
    if (!material) return WithoutMaterial();
    if (const auto known = byEntity.find(material.get()); known != byEntity.end()) return known->second;
    std::string name = model.Text(material->m_Name);
    if (name.empty()) name = NoMaterialName;
    const auto density = DensityOf(*material);
    const auto [place, isNew] = byName.emplace(name, building.materials.size());
    if (isNew) building.materials.push_back({name, std::nullopt});
    ImportedMaterial& entry = building.materials[place->second];
    if (density && entry.densityKgPerM3 && std::abs(*density - *entry.densityKgPerM3) > 1e-6 * *density) {
        building.warnings.push_back("The material " + name + " has two densities; the first is used.");
    }
    if (!entry.densityKgPerM3) entry.densityKgPerM3 = density;
    byEntity.emplace(material.get(), place->second);
    return place->second;
}

std::optional<double> Materials::DensityOf(const IfcMaterial& material) const {
    std::optional<double> density;
    for (const auto& set : Alive<IfcMaterialProperties>(material.m_HasProperties_inverse)) {
        for (const auto& property : set->m_Properties) {
            const auto single = std::dynamic_pointer_cast<IfcPropertySingleValue>(property);
            if (!single || density || model.Text(single->m_Name) != "MassDensity") continue;
            const auto number = NumberOf(single->m_NominalValue);
            if (number) density = *number * UnitFactor(single->m_Unit).value_or(units.densityKgPerM3);
        }
    }
    if (!density) {
        const auto old = oldDensities.find(material.m_entity_id);
        if (old != oldDensities.end()) density = old->second;
    }
    if (!density || *density == 0.0) return std::nullopt;
    if (*density > 0.0 && *density <= heaviestKgPerM3) return density;
    building.warnings.push_back("The density of the material " + model.Text(material.m_Name) + " (" +
                                std::to_string(*density) + " kg/m3) cannot be right and is not used.");
    return std::nullopt;
}

} // namespace workbench::ifc
