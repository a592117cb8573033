// Sums over the elements of a model, for overviews.
#pragma once

#include "workbench/model/Model.h"

#include <string>
#include <vector>

namespace workbench {

struct MaterialQuantity {
    std::size_t components = 0;
    double volumeM3 = 0.0;
    double areaM2 = 0.0;
    std::size_t withoutVolume = 0; ///< components that have an area only
    std::size_t withoutArea = 0;   ///< components that have a volume only
};

/// One entry per building material, in attribute order.
std::vector<MaterialQuantity> SumMaterialQuantities(const Model& model);

/// A door or window, which has no components.
bool IsOpening(const Element& element);

double SumVolumeM3(const Model& model, const Element& element);
/// Of all elements.
double SumVolumeM3(const Model& model);

/// A part of a volume in percent, as people read it: "3.4 %"; empty where the part or the volume is 0.
std::string FormatShare(double partM3, double totalM3);

/// What people call a kind of element.
std::string GetTypeName(host::ElementType type);

} // namespace workbench
