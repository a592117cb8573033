#include "Quantities.h"

#include <cmath>

namespace workbench::ifc {
namespace {

using entities::Entity;
using Quantities = std::map<std::string, double>;

class QuantityReader {
public:
    QuantityReader(const entities::Model& model, const UnitFactors& units) : model(model), units(units) {}

    void Read(const Entity& set, QuantityPlaces places) {
        for (const Entity& quantity : set.GetEntities("Quantities")) {
            ReadQuantity(quantity, "VolumeValue", units.volumeM3);
            ReadQuantity(quantity, "AreaValue", units.areaM2);
            ReadQuantity(quantity, "LengthValue", units.lengthM);
        }
        if (places == QuantityPlaces::QuantitySets) return;
        for (const Entity& property : set.GetEntities("HasProperties"))
            ReadProperty(property);
    }

    Quantities fromQuantities;
    Quantities fromProperties;

private:
    void ReadQuantity(const Entity& quantity, const char* attribute, double projectFactor) {
        const auto number = quantity.GetReal(attribute);
        if (!number) return;
        const double value = *number * UnitFactor(quantity.GetEntity("Unit")).value_or(projectFactor);
        if (std::isfinite(value)) fromQuantities.emplace(quantity.GetText("Name"), value);
    }

    void ReadProperty(const Entity& property) {
        const step::Value value = property.Get("NominalValue");
        const auto number = value.GetNumber();
        if (!number) return;
        const schema::Schema& schema = model.GetSchema();
        const double projectFactor = schema.IsValueOf(value.GetTypeName(), "IfcVolumeMeasure")   ? units.volumeM3
                                     : schema.IsValueOf(value.GetTypeName(), "IfcAreaMeasure")   ? units.areaM2
                                     : schema.IsValueOf(value.GetTypeName(), "IfcLengthMeasure") ? units.lengthM
                                                                                                 : 1.0;
        const double si = *number * UnitFactor(property.GetEntity("Unit")).value_or(projectFactor);
        if (std::isfinite(si)) fromProperties.emplace(property.GetText("Name"), si);
    }

    const entities::Model& model;
    const UnitFactors& units;
};

} // namespace

Quantities ReadQuantities(const entities::Model& model, const UnitFactors& units, const Entity& object,
                          QuantityPlaces places) {
    QuantityReader reader(model, units);
    for (const Entity& relation : model.GetReferencing(object, "IfcRelDefinesByProperties", "RelatedObjects")) {
        model.ForEachReference(relation.Get("RelatingPropertyDefinition"),
                               [&](const Entity& set) { reader.Read(set, places); });
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

} // namespace workbench::ifc
