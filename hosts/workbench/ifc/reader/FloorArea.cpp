#include "FloorArea.h"

#include "Quantities.h"
#include "Relations.h"

namespace workbench::ifc {
namespace {

using entities::Entity;
using Quantities = std::map<std::string, double>;

std::optional<double> Pick(const Quantities& quantities, const std::string& name) {
    const auto found = quantities.find(name);
    return found != quantities.end() ? PlausibleQuantity(found->second) : std::nullopt;
}

std::optional<double> BuildingArea(const entities::Model& model, const UnitFactors& units) {
    std::optional<double> sum;
    for (const Entity& building : model.GetAll("IfcBuilding")) {
        const Quantities quantities = ReadQuantities(model, units, building, QuantityPlaces::QuantitySetsAndProperties);
        if (const auto area = Pick(quantities, "GrossFloorArea")) sum = sum.value_or(0.0) + *area;
    }
    return sum;
}

} // namespace

void ReadFloorArea(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building) {
    if (const auto area = BuildingArea(model, units)) {
        building.grossFloorAreaM2 = area;
        building.grossFloorAreaSource = FloorAreaSource::Building;
        return;
    }
    double sum = 0.0;
    int gross = 0;
    int net = 0;
    for (const Entity& space : model.GetAll("IfcSpace")) {
        if (WholeOf(model, space).IsA("IfcSpace")) continue;
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
