#include "Quantities.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace workbench::ifc {
namespace {

/// In the order of trust.
enum class SetGroup : std::uint8_t {
    Standard,      ///< "Qto_..."
    Base,          ///< "BaseQuantities"
    Nameless,      ///< of one program's older editions
    Plain,         ///< "Quantities"
    OtherQuantity, ///< quantity sets of other names; only the standard's names count
    Dimensions,    ///< property sets of sizes, in several languages
    Common,        ///< property sets of the standard
    Rounded,       ///< values with one decimal
    Unknown
};

SetGroup GroupOf(const StatedValue& value) {
    const std::string_view set = value.set;
    if (set == "tekla quantity") return SetGroup::Rounded;
    if (IsOfDimensions(value)) return SetGroup::Dimensions;
    if (value.isProperty) {
        const bool isCommon = set == "pset_roofcommon" || set == "pset_coveringcommon";
        return isCommon ? SetGroup::Common : SetGroup::Unknown;
    }
    if (set.starts_with("qto_")) return SetGroup::Standard;
    if (set == "basequantities") return SetGroup::Base;
    if (set.empty()) return SetGroup::Nameless;
    return set == "quantities" ? SetGroup::Plain : SetGroup::OtherQuantity;
}

using Target = std::optional<StatedQuantity> StatedQuantities::*;

/// What a name means in the sets from one group to another.
struct NameRow {
    std::string_view name;
    Measure measure;
    SetGroup first, last;
    Target target;
    AreaRule rule = AreaRule::None; ///< for areas: of which elements
};

constexpr SetGroup Standard = SetGroup::Standard;
constexpr SetGroup Nameless = SetGroup::Nameless;
constexpr SetGroup OtherQuantity = SetGroup::OtherQuantity;
constexpr SetGroup Dimensions = SetGroup::Dimensions;
constexpr SetGroup Common = SetGroup::Common;
constexpr SetGroup Rounded = SetGroup::Rounded;
using Stated = StatedQuantities;

constexpr NameRow NameRows[] = {
    {"netvolume", Measure::Volume, Standard, OtherQuantity, &Stated::netVolumeM3},
    {"grossvolume", Measure::Volume, Standard, OtherQuantity, &Stated::grossVolumeM3},
    {"netsidearea", Measure::Area, Standard, OtherQuantity, &Stated::netSideAreaM2, AreaRule::Side},
    {"grosssidearea", Measure::Area, Standard, OtherQuantity, &Stated::grossSideAreaM2, AreaRule::Side},
    {"netarea", Measure::Area, Standard, OtherQuantity, &Stated::netAreaM2, AreaRule::Plan},
    {"grossarea", Measure::Area, Standard, OtherQuantity, &Stated::grossAreaM2, AreaRule::Plan},
    {"grossceilingarea", Measure::Area, SetGroup::Base, SetGroup::Base, &Stated::grossAreaM2, AreaRule::Plan},
    {"netweight", Measure::Mass, Standard, OtherQuantity, &Stated::netWeightKg},
    {"volume", Measure::Volume, Nameless, Nameless, &Stated::netVolumeM3},
    {"horizontal area", Measure::Area, Nameless, Nameless, &Stated::netAreaM2, AreaRule::Plan},
    {"left face area", Measure::Area, Nameless, Nameless, &Stated::leftFaceAreaM2, AreaRule::Side},
    {"right face area", Measure::Area, Nameless, Nameless, &Stated::rightFaceAreaM2, AreaRule::Side},
    {"volume", Measure::Volume, Dimensions, Dimensions, &Stated::netVolumeM3},
    {"体積", Measure::Volume, Dimensions, Dimensions, &Stated::netVolumeM3},
    {"体积", Measure::Volume, Dimensions, Dimensions, &Stated::netVolumeM3},
    {"area", Measure::Area, Dimensions, Dimensions, &Stated::netSideAreaM2, AreaRule::Side},
    {"面積", Measure::Area, Dimensions, Dimensions, &Stated::netSideAreaM2, AreaRule::Side},
    {"面积", Measure::Area, Dimensions, Dimensions, &Stated::netSideAreaM2, AreaRule::Side},
    {"area", Measure::Area, Dimensions, Dimensions, &Stated::netAreaM2, AreaRule::Plan},
    {"面積", Measure::Area, Dimensions, Dimensions, &Stated::netAreaM2, AreaRule::Plan},
    {"面积", Measure::Area, Dimensions, Dimensions, &Stated::netAreaM2, AreaRule::Plan},
    {"totalarea", Measure::Area, Common, Common, &Stated::netAreaM2, AreaRule::Plan},
    {"totalthickness", Measure::Length, Common, Common, &Stated::thicknessM},
    {"volume", Measure::Volume, Rounded, Rounded, &Stated::roundedVolumeM3},
};

const NameRow* RowOf(const StatedValue& value, SetGroup group, AreaRule rule) {
    const auto found = std::find_if(std::begin(NameRows), std::end(NameRows), [&](const NameRow& row) {
        return row.name == value.name && row.measure == value.measure && row.first <= group && group <= row.last &&
               (row.rule == AreaRule::None || row.rule == rule);
    });
    return found == std::end(NameRows) ? nullptr : found;
}

/// By trust, those of one group in their order.
std::vector<const StatedValue*> ByTrust(const std::vector<StatedValue>& values) {
    std::vector<const StatedValue*> ordered;
    ordered.reserve(values.size());
    for (const StatedValue& value : values)
        ordered.push_back(&value);
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const StatedValue* a, const StatedValue* b) { return GroupOf(*a) < GroupOf(*b); });
    return ordered;
}

std::optional<StatedQuantity> QuantityOf(const StatedValue& value) {
    const std::optional<double> plausible = PlausibleQuantity(value.value);
    return plausible ? std::optional(StatedQuantity{*plausible, value.writtenName}) : std::nullopt;
}

/// The side area of a wall whose two faces are stated.
void TakeFaces(StatedQuantities& stated) {
    if (stated.netSideAreaM2 || !stated.leftFaceAreaM2 || !stated.rightFaceAreaM2) return;
    stated.netSideAreaM2 = {(stated.leftFaceAreaM2->value + stated.rightFaceAreaM2->value) / 2.0,
                            "mean of " + stated.leftFaceAreaM2->name + " and " + stated.rightFaceAreaM2->name};
}

} // namespace

StatedQuantities PickStated(const std::vector<StatedValue>& values, AreaRule rule, const std::string& whose,
                            std::vector<std::string>& warnings) {
    StatedQuantities stated;
    for (const StatedValue* value : ByTrust(values)) {
        const NameRow* row = RowOf(*value, GroupOf(*value), rule);
        if (!row || stated.*row->target) continue;
        stated.*row->target = QuantityOf(*value);
        if (!(stated.*row->target) && value->value != 0.0) {
            warnings.push_back("The stated " + value->writtenName + " of " + whose + " (" +
                               std::to_string(value->value) +
                               ") is no quantity of a building element and is not used.");
        }
    }
    TakeFaces(stated);
    return stated;
}

OpeningSize PickOpeningSize(const std::vector<StatedValue>& values) {
    OpeningSize size;
    const auto take = [](std::optional<StatedQuantity>& place, const StatedValue& value) {
        if (!place) place = QuantityOf(value);
    };
    for (const StatedValue* value : ByTrust(values)) {
        if (GroupOf(*value) > SetGroup::OtherQuantity) continue;
        if (value->measure == Measure::Length && value->name == "width") take(size.widthM, *value);
        if (value->measure == Measure::Length && value->name == "height") take(size.heightM, *value);
        if (value->measure == Measure::Area && value->name == "area") take(size.areaM2, *value);
    }
    return size;
}

} // namespace workbench::ifc
