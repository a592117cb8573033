// What the import of a building model yields: plain values in SI units, elements with their material components, and
// the lists of everything that was left out, doubted or missing. Knows neither the file's form nor the project
// file.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/Values.h"

namespace workbench::ifc {

using ElementKind = host::ElementType;

/// Where a volume or an area comes from.
enum class QuantitySource : std::uint8_t {
    None,           ///< neither stated nor computable; the quantity is 0
    StatedNet,      ///< the file's own NetVolume, NetSideArea or NetArea
    StatedGross,    ///< the file's own GrossVolume, GrossSideArea or GrossArea
    Geometry,       ///< closed meshes, openings subtracted; for an area half the surface of the geometry
    ShellThickness, ///< volume of an open shell: its area times the total layer thickness
    LayerThickness  ///< area: volume divided by the total layer thickness
};

/// The name of the component's material where the file gives an element none; exactly one entry of
/// ImportedBuilding::materials carries it, and only where it is used.
inline constexpr const char* NoMaterialName = "(no material)";
/// The layer of elements that the file puts on no presentation layer.
inline constexpr const char* NoLayerName = "(no layer)";

struct ImportedMaterial {
    std::string name;                     ///< UTF-8, unique in the building (equal names are one material)
    std::optional<double> densityKgPerM3; ///< the file's MassDensity, > 0
    std::string densityOrigin{};          ///< in plain English; see Origins.h
};

struct ImportedStorey {
    std::string name;
    double elevationM = 0.0;
};

/// One material's share of an element.
struct ImportedComponent {
    std::size_t material = 0; ///< index into ImportedBuilding::materials
    double volumeM3 = 0.0;    ///< >= 0
    double areaM2 = 0.0;      ///< >= 0; for layers the full area of the element
    double thicknessM = 0.0;  ///< of a layer as the file says it; 0 for what is none
};

struct ImportedElement {
    std::string globalId; ///< 22 characters in a proper file; kept as written, may repeat in a broken one
    std::string name;
    std::string typeName; ///< doors and windows: of the type that they are pieces of; may be empty
    std::string ifcType;  ///< as the schema writes it: "IfcWallStandardCase"
    ElementKind kind = ElementKind::Object;
    std::size_t layer = 0;                     ///< index into ImportedBuilding::layers
    std::optional<std::size_t> storey;         ///< index into ImportedBuilding::storeys
    std::vector<ImportedComponent> components; ///< empty for doors and windows; never empty for other elements
    double volumeM3 = 0.0;
    double areaM2 = 0.0;
    QuantitySource volumeSource = QuantitySource::None;
    QuantitySource areaSource = QuantitySource::None;
    std::string volumeOrigin; ///< in plain English, as areaOrigin and sharesOrigin; see Origins.h
    std::string areaOrigin;
    std::string sharesOrigin; ///< how volume and area were split among the components; empty without components
    std::optional<double> statedVolumeM3;   ///< as the file says it, net before gross, also where it is not used
    std::optional<double> geometryVolumeM3; ///< where it was computed
    std::optional<double> overallWidthM;    ///< doors and windows
    std::optional<double> overallHeightM;   ///< doors and windows
};

/// An element named in a list of findings.
struct ImportFinding {
    std::string globalId;
    std::string ifcType;
    std::string name;
};

/// A stated volume that was off by more than a factor of two; the geometry's volume is used in its place.
struct VolumeCorrection {
    ImportFinding element;
    double statedM3 = 0.0;
    double geometryM3 = 0.0;
};

enum class FloorAreaSource : std::uint8_t {
    None,
    Building,
    SpacesGross,
    SpacesNet,
    SpacesMixed, ///< each space with its best area
    StoreysGross,
    StoreysNet,
    SpacesOther ///< areas of spaces that are neither called gross nor net
};

struct ImportedBuilding {
    std::string schema;      ///< by which the file was read: "IFC2X3", "IFC4", "IFC4X3"
    std::string projectName; ///< may be empty
    std::vector<std::string> layers;
    std::vector<ImportedStorey> storeys; ///< by elevation
    std::vector<ImportedMaterial> materials;
    std::vector<ImportedElement> elements;  ///< in the order of the file's entity numbers
    std::map<std::string, int> leftOut;     ///< furnishing, distribution ...: how many by IFC type
    std::vector<ImportFinding> sumsOfParts; ///< aggregates whose parts carry the quantities; no element of their own
    std::vector<ImportFinding> withoutQuantity;
    std::vector<ImportFinding> withoutVolume; ///< with a surface, but no body and no layers that make a volume of it
    std::vector<ImportFinding> withoutMaterial;
    std::vector<ImportFinding> sharesUnknown; ///< several materials in equal shares, because the file gives none
    std::vector<VolumeCorrection> correctedVolumes;
    std::optional<double> grossFloorAreaM2;
    FloorAreaSource grossFloorAreaSource = FloorAreaSource::None;
    double metresPerLengthUnit = 1.0;
    std::vector<std::string> warnings; ///< whole sentences: missing units, unreadable geometry, ignored values
};

} // namespace workbench::ifc
