// Which of the values that a file states for an element are its volume and area. Programs put them into different sets
// under different names; only whole names in known sets count, because "volume" may also be that of one brick.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "StatedValues.h"
#include "workbench/ifc/ElementRules.h"

namespace workbench::ifc {

/// Stated net before gross; of the same kind the value of the more trustworthy set. What no building element can have
/// is passed over, and becomes a sentence in WARNINGS that calls the element WHOSE.
[[nodiscard]] StatedQuantities PickStated(const std::vector<StatedValue>& values, AreaRule rule,
                                          const std::string& whose, std::vector<std::string>& warnings);

/// Of a door or window.
struct OpeningSize {
    std::optional<StatedQuantity> widthM, heightM, areaM2;
};
[[nodiscard]] OpeningSize PickOpeningSize(const std::vector<StatedValue>& values);

} // namespace workbench::ifc
