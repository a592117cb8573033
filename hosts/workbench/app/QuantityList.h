// The quantities of each element and of its parts by material, with what is doubtful about them.
#pragma once

#include "workbench/app/Findings.h"
#include "workbench/model/Model.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

enum class Doubt : std::uint8_t {
    NoQuantity,           ///< neither volume nor area
    SurfaceWithoutVolume, ///< an area, no volume
    StatedOff,            ///< stated and computed volume differ by more than MostOffShare of the computed one
    OpenShell,            ///< volume of a body that is not closed
    ClosedByCaps,         ///< volume of a body that had to be closed
    NoMaterial,
    EqualShares ///< materials without thicknesses or fractions
};

inline constexpr double MostOffShare = 0.05;

const char* DescribeDoubt(Doubt doubt);

/// What an element has of one material; a door or window is one part without a material.
struct QuantityPart {
    std::optional<host::AttributeIndex> material;
    double thicknessM = 0.0; ///< of a layer; 0 for what is none
    double volumeM3 = 0.0;
    double areaM2 = 0.0;
    std::optional<double> massKg; ///< none without a density
    /// The element's, split as its volume is.
    std::optional<double> statedVolumeM3;
    std::optional<double> computedVolumeM3;
};

struct ElementQuantities {
    const Element* element = nullptr; ///< in the model
    double volumeM3 = 0.0;
    double areaM2 = 0.0; ///< layers lie behind each other: their area counts once
    std::vector<Doubt> doubts;
    std::vector<QuantityPart> parts; ///< never empty
};

/// In the model's order. The model must outlive the list.
std::vector<ElementQuantities> ListQuantities(const Model& model);

/// Empty where nothing is known.
std::string FindOrigin(const Element& element, const char* field);

/// Every doubt about every element, for telling them by kind.
std::vector<Finding> ListDoubts(const std::vector<ElementQuantities>& elements);

/// How many elements have their volume from where.
struct VolumeSource {
    std::string origin; ///< in plain English
    std::size_t elements = 0;
    double volumeM3 = 0.0;
};

struct QuantitySummary {
    std::vector<VolumeSource> sources; ///< the largest volume first
    double volumeM3 = 0.0;
    std::size_t elements = 0;
    std::size_t doubtful = 0; ///< elements
    double doubtfulVolumeM3 = 0.0;
    std::size_t compared = 0;  ///< elements whose volume is both stated and computed
    double statedM3 = 0.0;     ///< of these
    double differenceM3 = 0.0; ///< of these, sum of |stated - computed|
};

QuantitySummary Summarise(const std::vector<ElementQuantities>& elements);

} // namespace workbench
