#include "Quantities.h"

#include <cmath>

#include <ifcpp/IFC4/include/IfcAreaMeasure.h>
#include <ifcpp/IFC4/include/IfcBuilding.h>
#include <ifcpp/IFC4/include/IfcElementQuantity.h>
#include <ifcpp/IFC4/include/IfcIdentifier.h>
#include <ifcpp/IFC4/include/IfcLabel.h>
#include <ifcpp/IFC4/include/IfcLengthMeasure.h>
#include <ifcpp/IFC4/include/IfcNamedUnit.h>
#include <ifcpp/IFC4/include/IfcProperty.h>
#include <ifcpp/IFC4/include/IfcPropertySet.h>
#include <ifcpp/IFC4/include/IfcPropertySetDefinitionSet.h>
#include <ifcpp/IFC4/include/IfcPropertySingleValue.h>
#include <ifcpp/IFC4/include/IfcQuantityArea.h>
#include <ifcpp/IFC4/include/IfcQuantityLength.h>
#include <ifcpp/IFC4/include/IfcQuantityVolume.h>
#include <ifcpp/IFC4/include/IfcRelAggregates.h>
#include <ifcpp/IFC4/include/IfcRelDefinesByProperties.h>
#include <ifcpp/IFC4/include/IfcSpace.h>
#include <ifcpp/IFC4/include/IfcUnit.h>
#include <ifcpp/IFC4/include/IfcValue.h>
#include <ifcpp/IFC4/include/IfcVolumeMeasure.h>

namespace workbench::ifc {
namespace {

using Quantities = std::map<std::string, double>;

class QuantityReader {
public:
    QuantityReader(const LibraryModel& model, const UnitFactors& units) : model(model), units(units) {}

    void Read(const IfcPropertySetDefinition& set, QuantityPlaces places) {
        if (const auto* quantities = dynamic_cast<const IfcElementQuantity*>(&set)) {
            for (const auto& quantity : quantities->m_Quantities)
                Read(quantity.get());
        }
        const auto* properties = dynamic_cast<const IfcPropertySet*>(&set);
        if (properties == nullptr || places == QuantityPlaces::QuantitySets) return;
        for (const auto& property : properties->m_HasProperties)
            Read(dynamic_cast<const IfcPropertySingleValue*>(property.get()));
    }

    Quantities fromQuantities;
    Quantities fromProperties;

private:
    void Read(const IfcPhysicalQuantity* quantity) {
        if (const auto* volume = dynamic_cast<const IfcQuantityVolume*>(quantity)) {
            Put(*volume, volume->m_VolumeValue, units.volumeM3);
        } else if (const auto* area = dynamic_cast<const IfcQuantityArea*>(quantity)) {
            Put(*area, area->m_AreaValue, units.areaM2);
        } else if (const auto* length = dynamic_cast<const IfcQuantityLength*>(quantity)) {
            Put(*length, length->m_LengthValue, units.lengthM);
        }
    }

    template <class Measure>
    void Put(const IfcPhysicalSimpleQuantity& quantity, const std::shared_ptr<Measure>& measure, double projectFactor) {
        if (!measure) return;
        const double value = measure->m_value * UnitFactor(quantity.m_Unit).value_or(projectFactor);
        if (std::isfinite(value)) fromQuantities.emplace(model.Text(quantity.m_Name), value);
    }

    void Read(const IfcPropertySingleValue* property) {
        if (property == nullptr) return;
        const auto number = NumberOf(property->m_NominalValue);
        if (!number) return;
        const IfcValue* value = property->m_NominalValue.get();
        const double projectFactor = dynamic_cast<const IfcVolumeMeasure*>(value) != nullptr   ? units.volumeM3
                                     : dynamic_cast<const IfcAreaMeasure*>(value) != nullptr   ? units.areaM2
                                     : dynamic_cast<const IfcLengthMeasure*>(value) != nullptr ? units.lengthM
                                                                                               : 1.0;
        const double si = *number * UnitFactor(property->m_Unit).value_or(projectFactor);
        if (std::isfinite(si)) fromProperties.emplace(model.Text(property->m_Name), si);
    }

    const LibraryModel& model;
    const UnitFactors& units;
};

std::optional<double> Pick(const Quantities& quantities, const std::string& name) {
    const auto found = quantities.find(name);
    return found != quantities.end() ? PlausibleQuantity(found->second) : std::nullopt;
}

/// A space that is part of another space is counted with it.
bool IsPartOfSpace(const IfcSpace& space) {
    for (const auto& whole : Alive<IfcRelAggregates>(space.m_Decomposes_inverse)) {
        if (std::dynamic_pointer_cast<IfcSpace>(whole->m_RelatingObject)) return true;
    }
    return false;
}

std::optional<double> BuildingArea(const LibraryModel& model, const UnitFactors& units) {
    std::optional<double> sum;
    for (const ModelEntity& found : model.Entities()) {
        if (found.role != EntityRole::Building) continue;
        const auto& building = dynamic_cast<const IfcBuilding&>(*found.entity);
        const Quantities quantities = ReadQuantities(model, units, building, QuantityPlaces::QuantitySetsAndProperties);
        if (const auto area = Pick(quantities, "GrossFloorArea")) sum = sum.value_or(0.0) + *area;
    }
    return sum;
}

} // namespace

Quantities ReadQuantities(const LibraryModel& model, const UnitFactors& units, const IfcObject& object,
                          QuantityPlaces places) {
    QuantityReader reader(model, units);
    for (const auto& relation : Alive<IfcRelDefinesByProperties>(object.m_IsDefinedBy_inverse)) {
        const auto* definition = relation->m_RelatingPropertyDefinition.get();
        if (const auto* single = dynamic_cast<const IfcPropertySetDefinition*>(definition)) {
            reader.Read(*single, places);
        } else if (const auto* several = dynamic_cast<const IfcPropertySetDefinitionSet*>(definition)) {
            for (const auto& set : several->m_vec) {
                if (set) reader.Read(*set, places);
            }
        }
    }
    reader.fromQuantities.merge(reader.fromProperties);
    return std::move(reader.fromQuantities);
}

StatedQuantities PickStated(const Quantities& quantities, AreaRule rule, const std::string& whose,
                            std::vector<std::string>& warnings) {
    const auto pick = [&](const char* name) -> std::optional<double> {
        const auto found = quantities.find(name);
        if (found == quantities.end()) return std::nullopt;
        const auto plausible = PlausibleQuantity(found->second);
        if (!plausible && found->second != 0.0) {
            warnings.push_back("The stated " + std::string(name) + " of " + whose + " (" +
                               std::to_string(found->second) +
                               ") is no quantity of a building element and is not used.");
        }
        return plausible;
    };
    StatedQuantities stated;
    stated.netVolumeM3 = pick("NetVolume");
    stated.grossVolumeM3 = pick("GrossVolume");
    if (rule == AreaRule::Side) {
        stated.netSideAreaM2 = pick("NetSideArea");
        stated.grossSideAreaM2 = pick("GrossSideArea");
    } else if (rule == AreaRule::Plan) {
        stated.netAreaM2 = pick("NetArea");
        stated.grossAreaM2 = pick("GrossArea");
    }
    return stated;
}

void ReadFloorArea(const LibraryModel& model, const UnitFactors& units, ImportedBuilding& building) {
    if (const auto area = BuildingArea(model, units)) {
        building.grossFloorAreaM2 = area;
        building.grossFloorAreaSource = FloorAreaSource::Building;
        return;
    }
    double sum = 0.0;
    int gross = 0;
    int net = 0;
    for (const ModelEntity& found : model.Entities()) {
        if (found.role != EntityRole::Space) continue;
        const auto& space = dynamic_cast<const IfcSpace&>(*found.entity);
        if (IsPartOfSpace(space)) continue;
        const Quantities quantities = ReadQuantities(model, units, space, QuantityPlaces::QuantitySetsAndProperties);
        if (const auto area = Pick(quantities, "GrossFloorArea")) {
            sum += *area;
            ++gross;
        } else if (const auto inner = Pick(quantities, "NetFloorArea")) {
            sum += *inner;
            ++net;
        }
    }
    if (gross + net == 0) return;
    building.grossFloorAreaM2 = sum;
    building.grossFloorAreaSource = net == 0     ? FloorAreaSource::SpacesGross
                                    : gross == 0 ? FloorAreaSource::SpacesNet
                                                 : FloorAreaSource::SpacesMixed;
}

} // namespace workbench::ifc
