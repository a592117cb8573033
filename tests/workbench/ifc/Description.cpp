#include "Description.h"

#include <sstream>

using namespace workbench::ifc;

namespace ifctest {
namespace {

constexpr const char* FloorSources[] = {"none",         "building",      "spaces gross", "spaces net",
                                        "spaces mixed", "storeys gross", "storeys net",  "spaces other"};

void Describe(const ImportedBuilding& building, const ImportedElement& element, std::ostream& out) {
    out << element.globalId << ' ' << element.ifcType;
    if (!element.name.empty()) out << " \"" << element.name << '"';
    if (!element.typeName.empty()) out << " of type \"" << element.typeName << '"';
    out << " V " << element.volumeM3 << " {" << element.volumeOrigin << "} A " << element.areaM2 << " {"
        << element.areaOrigin << '}';
    if (element.statedVolumeM3) out << ", stated " << *element.statedVolumeM3;
    if (element.geometryVolumeM3) out << ", computed " << *element.geometryVolumeM3;
    for (const ImportedComponent& component : element.components)
        out << "; " << building.materials[component.material].name << ' ' << component.volumeM3 << " m3 "
            << component.areaM2 << " m2";
    if (!element.components.empty()) out << " {" << element.sharesOrigin << '}';
    if (building.layers[element.layer] != NoLayerName) out << " [" << building.layers[element.layer] << ']';
    if (element.storey) out << " in " << building.storeys[*element.storey].name;
    out << '\n';
}

void Describe(const char* title, const std::vector<ImportFinding>& findings, std::ostream& out) {
    for (const ImportFinding& finding : findings)
        out << title << ": " << finding.globalId << '\n';
}

} // namespace

std::string Describe(const ImportedBuilding& building) {
    std::ostringstream out;
    for (const ImportedElement& element : building.elements)
        Describe(building, element, out);
    for (const ImportedMaterial& material : building.materials)
        if (material.densityKgPerM3)
            out << material.name << ": " << *material.densityKgPerM3 << " kg/m3 {" << material.densityOrigin << "}\n";
    for (const auto& [type, count] : building.leftOut)
        out << "left out: " << count << ' ' << type << '\n';
    Describe("sum of parts", building.sumsOfParts, out);
    Describe("without quantity", building.withoutQuantity, out);
    Describe("without volume", building.withoutVolume, out);
    Describe("without material", building.withoutMaterial, out);
    Describe("shares unknown", building.sharesUnknown, out);
    for (const VolumeCorrection& correction : building.correctedVolumes)
        out << "corrected: " << correction.element.globalId << '\n';
    if (building.grossFloorAreaM2)
        out << "floor area " << *building.grossFloorAreaM2 << ", "
            << FloorSources[static_cast<std::size_t>(building.grossFloorAreaSource)] << '\n';
    for (const std::string& warning : building.warnings)
        out << "warning: " << warning << '\n';
    return out.str();
}

} // namespace ifctest
