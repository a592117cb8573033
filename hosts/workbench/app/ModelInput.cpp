#include "workbench/app/ModelInput.h"

#include "workbench/app/ImportedProject.h"
#include "workbench/app/Text.h"
#include "workbench/ifc/IfcImport.h"

namespace workbench {

namespace {

bool HasExtension(const std::string& path, std::string_view extension) {
    return FoldCase(std::filesystem::path(path).extension().string()) == extension;
}

Outcome ImportIfc(const std::string& path, const ProgressObserver& observer, ModelInput& input) {
    ifc::ImportResult result = ifc::ReadIfcFile(path, {}, [&](double share) {
        observer(share);
        return true;
    });
    if (!result.IsOk()) return Failure{InputUnreadable, result.Sentence()};
    input.building = std::move(result).TakeBuilding();
    if (input.building->elements.empty())
        return Failure{
            InputUnreadable,
            path + ": the file has no building element (wall, slab, roof ...); export the building model itself"};
    input.warnings = input.building->warnings;
    input.project = CreateProject(*input.building, input.warnings);
    return {};
}

std::string Name(const ifc::ImportFinding& element) {
    return element.globalId + " (" + element.ifcType + (element.name.empty() ? "" : " \"" + element.name + "\"") + ")";
}

} // namespace

bool IsProjectFile(const std::string& path) {
    return HasExtension(path, ".kvp");
}

bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return !a.empty() && !b.empty() && std::filesystem::equivalent(a, b, error);
}

Outcome OpenModel(const std::string& path, KeepChanges keep, const ProgressObserver& observer, ModelInput& input) {
    if (HasExtension(path, ".ifc")) {
        if (Outcome failure = ImportIfc(path, observer, input)) return failure;
    } else {
        if (!IsProjectFile(path)) return Failure{UsageError, path + ": a model is an .ifc or a .kvp file"};
        OpenedProject opened = OpenProjectFile(path, keep);
        if (!opened.project) return Failure{InputUnreadable, opened.failure};
        input.project = std::move(opened.project);
    }
    input.project->name = std::filesystem::path(path).stem().string();
    return {};
}

std::vector<std::string> ListFindings(const ifc::ImportedBuilding& building) {
    std::vector<std::string> findings;
    for (const ifc::ImportFinding& element : building.withoutQuantity)
        findings.push_back("no quantity and no usable geometry: " + Name(element));
    for (const ifc::ImportFinding& element : building.withoutMaterial)
        findings.push_back("no material: " + Name(element));
    for (const ifc::VolumeCorrection& correction : building.correctedVolumes)
        findings.push_back("stated volume " + FormatShort(correction.statedM3, 6) +
                           " m3 does not fit the geometry, whose " + FormatShort(correction.geometryM3, 6) +
                           " m3 is used: " + Name(correction.element));
    return findings;
}

} // namespace workbench
