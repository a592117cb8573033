// The rules by which stated quantities, geometry and material assignment become an element's volume, area and
// components. Pure functions of plain values in SI units.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/ifc/ImportedBuilding.h"

namespace workbench::ifc {

/// A value with what the file calls it: "BaseQuantities.NetVolume".
struct StatedQuantity {
    double value = 0.0;
    std::string name;
};

/// What the file states; nothing where it states nothing or nonsense.
struct StatedQuantities {
    std::optional<StatedQuantity> netVolumeM3, grossVolumeM3;
    std::optional<StatedQuantity> netSideAreaM2, grossSideAreaM2;
    std::optional<StatedQuantity> netAreaM2, grossAreaM2;
    std::optional<StatedQuantity> leftFaceAreaM2, rightFaceAreaM2; ///< of a wall; their mean is its side area
    std::optional<StatedQuantity> roundedVolumeM3;                 ///< counts only where there is no geometry
    std::optional<StatedQuantity> thicknessM;                      ///< counts only where there are no layers
    std::optional<StatedQuantity> netWeightKg;
};

/// Body of an element as meshes, openings subtracted.
struct MeshQuantities {
    double closedVolumeM3 = 0.0;  ///< sum of the closed meshes' absolute volumes
    double closedSurfaceM2 = 0.0; ///< sum of the closed meshes' surfaces
    double openSurfaceM2 = 0.0;   ///< sum of the open shells' areas
    std::string method = {};      ///< how the closed volume came about: "closed faces"
};

/// Which stated areas count for an element.
enum class AreaRule : std::uint8_t { None, Side, Plan };

enum class MaterialForm : std::uint8_t { None, Single, Layers, Constituents, List };

struct MaterialShare {
    std::size_t material = 0;            ///< index into ImportedBuilding::materials
    double thicknessM = 0.0;             ///< layers
    std::optional<double> fraction = {}; ///< constituents; of their sum
    std::string constituent = {};        ///< name of the part, where it has one
};

struct MaterialUse {
    MaterialForm form = MaterialForm::None;
    std::vector<MaterialShare> shares = {};
    bool areSharesUnknown = false; ///< of different materials the file says nothing but their names
    std::string origin = {};       ///< of the shares; see Origins.h
};

/// Of a plate.
struct Thickness {
    double valueM = 0.0;                          ///< 0: unknown
    std::string name = "thickness of the layers"; ///< in origins
};

/// A stated volume may be off from the geometry's by this factor before it is believed to be in a wrong unit.
inline constexpr double MostOff = 2.0;
/// Openings and clippings may leave this share of a body.
inline constexpr double LeastLeft = 0.05;

/// Whether a stated volume fits the body.
enum class VolumeCheck : std::uint8_t {
    Open,  ///< the body as it is decides, where there is one
    Passed ///< it need not be computed for that
};

/// By the volume before openings and clippings are taken out. Wrong units are off by factors of 35 and more.
[[nodiscard]] VolumeCheck CheckByUncut(double statedM3, double uncutM3);

/// The stated volume that counts, net before gross.
[[nodiscard]] std::optional<StatedQuantity> StatedVolume(const StatedQuantities& stated);
/// Whether an area is stated that counts for elements of this rule.
[[nodiscard]] bool HasStatedArea(AreaRule rule, const StatedQuantities& stated);

/// VALUE where it can be a quantity of a building element: finite, above 0, at most ten million m2 or m3.
[[nodiscard]] std::optional<double> PlausibleQuantity(double value);

/// Sum of the layer thicknesses above 0; where there is none, the stated one.
[[nodiscard]] Thickness ThicknessOf(const StatedQuantities& stated, const MaterialUse& use);

/// Sets volume, area, their sources and origins and what was stated and computed. A rounded volume counts where nothing
/// else does. A stated volume that did not pass and is off from closed meshes by more than a factor of two gives way to
/// them, and so does the area stated beside it; then true is answered.
[[nodiscard]] bool SetQuantities(ImportedElement& element, AreaRule rule, const StatedQuantities& stated,
                                 const std::optional<MeshQuantities>& meshes, const Thickness& thickness,
                                 VolumeCheck check);

/// Splits the element's volume and area by its materials: layers above 0 by thickness, each with the full area;
/// constituents by their fractions, brought to a sum of 1, where all have one, else in equal shares, as lists are.
/// Nothing where USE names no material.
[[nodiscard]] std::vector<ImportedComponent> SplitByMaterial(const MaterialUse& use, double volumeM3, double areaM2);

} // namespace workbench::ifc
