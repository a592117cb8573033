// The project's assessment settings: plain values with their defaults and the rules for the floor and energy
// quantities. Copying is how dialogs take and give back their working copies.
#pragma once

#include "lca/Categories.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace lca {

struct Standard {
    std::string name;
    double limit = 0.0; ///< in the record's standards unit

    friend bool operator==(const Standard& a, const Standard& b) { return a.name == b.name && a.limit == b.limit; }
};

/// m2; an area within this distance of 0 counts as not given.
inline constexpr double SmallestArea = 1e-5;

/// Where a floor quantity's value comes from; true in the stored choice flag is the energy evaluation.
enum class FloorSource { ByHand, EnergyEvaluation };

class LCAProjectData {
public:
    LCAProjectData();

    /// Back to the defaults.
    void Reset();

    /// Puts the value into the source's map and into the plain field.
    void SetFloorValue(FloorQuantity quantity, FloorSource source, double value);
    void SetFloorChoice(FloorQuantity quantity, FloorSource source);
    /// The same as a choice of the user: the plain field takes the value that then counts, and of the solar panels'
    /// yield from the energy evaluation and the limit in its place, which exclude each other, the other one's choice
    /// ends.
    void ChooseFloorSource(FloorQuantity quantity, FloorSource source);
    /// ByHand where nothing was chosen.
    FloorSource GetFloorChoice(FloorQuantity quantity) const;
    /// The source's map, else the plain field, never the other map. The reference floor area from the energy evaluation
    /// is the gross floor area under the gross floor area's own choice.
    double GetFloorValue(FloorQuantity quantity, FloorSource source) const;
    /// The value under the quantity's own choice.
    double GetFloorValue(FloorQuantity quantity) const { return GetFloorValue(quantity, GetFloorChoice(quantity)); }

    double GetPlainValue(FloorQuantity quantity) const { return plainValues[static_cast<std::size_t>(quantity)]; }
    void SetPlainValue(FloorQuantity quantity, double value) {
        plainValues[static_cast<std::size_t>(quantity)] = value;
    }

    bool IsPhaseUsed(const std::string& code) const;
    /// A phase that comes into use goes to the end of the list.
    void SetPhaseUsed(const std::string& code, bool isUsed);

    /// m2 x years by which a GWP per area and year becomes a GWP; none while the reference floor area counts as not
    /// given or the period is 0, so that there is no such value.
    std::optional<double> GetAreaYears() const;

    std::uint32_t consideredServiceLifeYears = 50; ///< reference study period
    GWPUnitType standardsUnit = GWPUnitType::PerAreaAndYear;
    std::vector<Standard> standards;
    std::vector<std::string> usedPhases; ///< EN 15978 module codes

    std::map<FloorQuantity, bool> floorChoice; ///< true: from the energy evaluation
    std::map<FloorQuantity, double> evaluatedFloorValues;
    std::map<FloorQuantity, double> enteredFloorValues;

    std::map<ElementCategory, bool> contributionEnabled;  ///< true: stated as a share
    std::map<ElementCategory, double> contributionShare;  ///< percent
    std::map<ElementCategory, double> contributionGWP;    ///< kg CO2eq
    std::map<ElementCategory, std::int32_t> elementLives; ///< years
    std::map<ElementCategory, Colour> elementColours;

    friend bool operator==(const LCAProjectData& a, const LCAProjectData& b);

private:
    std::array<double, FloorQuantityCount> plainValues{};
};

/// The entry of a map, or the given value where there is none.
template <typename Key, typename Value>
Value ValueOr(const std::map<Key, Value>& map, Key key, Value otherwise) {
    const auto entry = map.find(key);
    return entry == map.end() ? otherwise : entry->second;
}

} // namespace lca
