// The rules by which stated quantities, geometry and material assignment become an element's volume, area and
// components. Pure functions of plain values in SI units.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/ifc/ImportedBuilding.h"

namespace workbench::ifc {

/// What the file states; nothing where it states nothing or nonsense.
struct StatedQuantities {
    std::optional<double> netVolumeM3, grossVolumeM3;
    std::optional<double> netSideAreaM2, grossSideAreaM2;
    std::optional<double> netAreaM2, grossAreaM2;
    std::optional<double> leftFaceAreaM2, rightFaceAreaM2; ///< of a wall; their mean is its side area
    std::optional<double> roundedVolumeM3;                 ///< counts only where there is no geometry
    std::optional<double> thicknessM;                      ///< counts only where there are no layers
    std::optional<double> netWeightKg;
};

/// Body of an element as meshes, openings subtracted.
struct MeshQuantities {
    double closedVolumeM3 = 0.0;  ///< sum of the closed meshes' absolute volumes
    double closedSurfaceM2 = 0.0; ///< sum of the closed meshes' surfaces
    double openSurfaceM2 = 0.0;   ///< sum of the open shells' areas
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
};

/// A stated volume may be off from the geometry's by this factor before it is believed to be in a wrong unit.
inline constexpr double MostOff = 2.0;

/// The stated volume or area that counts, net before gross.
[[nodiscard]] std::optional<double> StatedVolume(const StatedQuantities& stated);
[[nodiscard]] std::optional<double> StatedArea(AreaRule rule, const StatedQuantities& stated);

/// VALUE where it can be a quantity of a building element: finite, above 0, at most ten million m2 or m3.
[[nodiscard]] std::optional<double> PlausibleQuantity(double value);

/// Sum of the layer thicknesses above 0; 0 for other forms.
[[nodiscard]] double TotalThicknessM(const MaterialUse& use);

/// Sets volume, area, their sources and what was stated and computed. A rounded volume counts where nothing else does.
/// A stated volume that is off from closed meshes by more than a factor of two gives way to them, and so does the area
/// stated beside it; then true is answered.
[[nodiscard]] bool SetQuantities(ImportedElement& element, AreaRule rule, const StatedQuantities& stated,
                                 const std::optional<MeshQuantities>& meshes, double totalThicknessM);

/// Splits the element's volume and area by its materials: layers above 0 by thickness, each with the full area;
/// constituents by their fractions, brought to a sum of 1, where all have one, else in equal shares, as lists are.
/// Nothing where USE names no material.
[[nodiscard]] std::vector<ImportedComponent> SplitByMaterial(const MaterialUse& use, double volumeM3, double areaM2);

} // namespace workbench::ifc
