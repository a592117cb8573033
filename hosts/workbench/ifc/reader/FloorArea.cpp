#include "FloorArea.h"

#include <cstdint>
#include <string_view>

#include "Relations.h"
#include "StatedValues.h"
#include "workbench/ifc/ElementRules.h"

namespace workbench::ifc {
namespace {

using entities::Entity;

/// How good an area is as the gross area of what it is stated for.
enum class AreaKind : std::uint8_t { Gross, Net, Other };

struct AreaName {
    std::string_view name;
    AreaKind kind;
    bool isOfDimensions; ///< counts as a property of a set of sizes only
};

/// The better ones first.
constexpr AreaName AreaNames[] = {{"grossfloorarea", AreaKind::Gross, false},
                                  {"netfloorarea", AreaKind::Net, false},
                                  {"gsa bim area", AreaKind::Other, false},
                                  {"netarea", AreaKind::Other, false},
                                  {"horizontal area", AreaKind::Other, false},
                                  {"area", AreaKind::Other, true},
                                  {"面積", AreaKind::Other, true},
                                  {"面积", AreaKind::Other, true}};

std::optional<double> Pick(const std::vector<StatedValue>& values, const AreaName& wanted) {
    for (const StatedValue& value : values) {
        if (value.measure != Measure::Area || value.name != wanted.name) continue;
        if (wanted.isOfDimensions && !IsOfDimensions(value)) continue;
        if (const auto area = PlausibleQuantity(value.value)) return area;
    }
    return std::nullopt;
}

/// Areas of several objects: each counts with its best one.
struct AreaSum {
    double areaM2 = 0.0;
    std::size_t gross = 0, net = 0, other = 0; ///< how many objects gave which

    [[nodiscard]] bool IsEmpty() const { return gross + net + other == 0; }

    void Add(const std::vector<StatedValue>& values, AreaKind worst) {
        for (const AreaName& name : AreaNames) {
            if (name.kind > worst) return;
            const auto area = Pick(values, name);
            if (!area) continue;
            areaM2 += *area;
            ++(name.kind == AreaKind::Gross ? gross : name.kind == AreaKind::Net ? net : other);
            return;
        }
    }
};

bool IsOutside(const Entity& space) {
    return space.Get("PredefinedType").GetEnumeration() == "EXTERNAL" ||
           space.Get("InteriorOrExteriorSpace").GetEnumeration() == "EXTERNAL";
}

FloorAreaSource SourceOfSpaces(const AreaSum& sum) {
    const std::size_t all = sum.gross + sum.net + sum.other;
    if (sum.gross == all) return FloorAreaSource::SpacesGross;
    if (sum.net == all) return FloorAreaSource::SpacesNet;
    return sum.other == all ? FloorAreaSource::SpacesOther : FloorAreaSource::SpacesMixed;
}

class FloorAreaReader {
public:
    FloorAreaReader(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building)
        : model(model), units(units), building(building) {}

    void Run() {
        if (Take(SumOf("IfcBuilding", AreaKind::Gross), FloorAreaSource::Building)) return;
        if (Take(SumOf("IfcBuildingStorey", AreaKind::Gross), FloorAreaSource::StoreysGross)) return;
        const AreaSum spaces = SumOf("IfcSpace", AreaKind::Other);
        if (spaces.gross > 0 && Take(spaces, SourceOfSpaces(spaces))) return;
        if (Take(SumOf("IfcBuildingStorey", AreaKind::Net), FloorAreaSource::StoreysNet)) return;
        Take(spaces, SourceOfSpaces(spaces));
    }

private:
    [[nodiscard]] AreaSum SumOf(const char* type, AreaKind worst) const {
        AreaSum sum;
        for (const Entity& object : model.GetAll(type)) {
            if (!WholeOf(model, object).IsA(type) && !IsOutside(object))
                sum.Add(ReadStatedValues(model, units, object), worst);
        }
        return sum;
    }

    bool Take(const AreaSum& sum, FloorAreaSource source) {
        if (sum.IsEmpty()) return false;
        building.grossFloorAreaM2 = sum.areaM2;
        building.grossFloorAreaSource = source;
        return true;
    }

    const entities::Model& model;
    const UnitFactors& units;
    ImportedBuilding& building;
};

} // namespace

void ReadFloorArea(const entities::Model& model, const UnitFactors& units, ImportedBuilding& building) {
    FloorAreaReader(model, units, building).Run();
}

} // namespace workbench::ifc
