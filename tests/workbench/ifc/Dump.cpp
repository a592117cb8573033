// Prints what the import makes of a file, for a person to look at: kelvarnix-ifc-dump FILE
#include <cstdio>
#include <map>

#include "workbench/ifc/IfcImport.h"

using namespace workbench::ifc;

namespace {

const char* Name(QuantitySource source) {
    constexpr const char* Names[] = {"none", "net", "gross", "geometry", "shell", "layers"};
    return Names[static_cast<std::size_t>(source)];
}

void Print(const ImportedBuilding& building, const ImportedElement& element) {
    std::printf("%-22s %-24s %-28s V %-9s %10.4f  A %-8s %10.4f", element.globalId.c_str(), element.ifcType.c_str(),
                element.name.c_str(), Name(element.volumeSource), element.volumeM3, Name(element.areaSource),
                element.areaM2);
    if (element.statedVolumeM3) std::printf("  stated %.4f", *element.statedVolumeM3);
    if (element.geometryVolumeM3) std::printf("  computed %.4f", *element.geometryVolumeM3);
    std::printf("  [%s, %s]\n", building.layers[element.layer].c_str(),
                element.storey ? building.storeys[*element.storey].name.c_str() : "-");
}

void PrintFindings(const char* title, const std::vector<ImportFinding>& findings) {
    for (const ImportFinding& finding : findings)
        std::printf("%s: %s %s %s\n", title, finding.globalId.c_str(), finding.ifcType.c_str(), finding.name.c_str());
}

void Print(const ImportedBuilding& building) {
    std::printf("%s \"%s\"\n", building.schema.c_str(), building.projectName.c_str());
    std::map<std::size_t, double> volumes;
    for (const ImportedElement& element : building.elements) {
        Print(building, element);
        for (const ImportedComponent& component : element.components)
            volumes[component.material] += component.volumeM3;
    }
    for (const auto& [material, volume] : volumes) {
        const ImportedMaterial& entry = building.materials[material];
        std::printf("material %-32s %12.5f m3  density %g\n", entry.name.c_str(), volume,
                    entry.densityKgPerM3.value_or(0.0));
    }
    for (const auto& [type, count] : building.leftOut)
        std::printf("left out: %d %s\n", count, type.c_str());
    PrintFindings("sum of parts", building.sumsOfParts);
    PrintFindings("without quantity", building.withoutQuantity);
    PrintFindings("without material", building.withoutMaterial);
    for (const VolumeCorrection& correction : building.correctedVolumes) {
        std::printf("corrected: %s stated %g, geometry %g\n", correction.element.globalId.c_str(), correction.statedM3,
                    correction.geometryM3);
    }
    std::printf("gross floor area %g, source %d\n", building.grossFloorAreaM2.value_or(0.0),
                static_cast<int>(building.grossFloorAreaSource));
    for (const std::string& warning : building.warnings)
        std::printf("warning: %s\n", warning.c_str());
}

} // namespace

int main(int count, char** words) {
    if (count != 2) return 2;
    const ImportResult result = ReadIfcFile(words[1]);
    if (result.HasFailed()) {
        std::fprintf(stderr, "%s\n", result.GetText().c_str());
        return 3;
    }
    Print(result.Get());
    return 0;
}
