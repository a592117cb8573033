#include "workbench/app/OpenedModel.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/ImportedProject.h"
#include "workbench/app/Quantities.h"
#include "workbench/app/Text.h"
#include "workbench/ifc/IfcImport.h"
#include "workbench/store/ProjectFile.h"
#include "workbench/text/CodePages.h"

namespace workbench {

namespace {

bool HasExtension(const std::string& path, std::string_view extension) {
    return FoldCase(std::filesystem::path(path).extension().string()) == extension;
}

/// Whether both name the same existing file.
bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return !a.empty() && !b.empty() && std::filesystem::equivalent(a, b, error);
}

/// sentence  without the element
Finding MakeFinding(const Model& model, const char* kind, const std::string& sentence,
                    const ifc::ImportFinding& source) {
    const std::optional<host::Guid> guid = ReadGlobalId(source.globalId);
    const std::uint32_t element = guid ? model.FindElement(*guid) : ElementIndex::NotFound;
    const double volumeM3 = element == ElementIndex::NotFound ? 0.0 : SumVolumeM3(model, model.GetElements()[element]);
    const std::string owner = NameElement(source.globalId, source.ifcType, source.name);
    return {kind, "elements", owner, sentence + ": " + owner, volumeM3};
}

Finding MakeFinding(const Model& model, const char* kind, const ifc::ImportFinding& source) {
    return MakeFinding(model, kind, kind, source);
}

Finding MakeFinding(const Model& model, const ifc::VolumeCorrection& correction) {
    return MakeFinding(model, "stated volume does not fit the geometry, which is used",
                       "stated volume " + FormatShort(correction.statedM3, 6) +
                           " m3 does not fit the geometry, whose " + FormatShort(correction.geometryM3, 6) +
                           " m3 is used",
                       correction.element);
}

/// By ifc::FloorAreaSource.
constexpr const char* FloorAreaSources[] = {"the model",
                                            "the building's gross floor area",
                                            "sum of the spaces' gross floor areas",
                                            "sum of the spaces' net floor areas",
                                            "sum of the spaces' gross, else net, else other areas",
                                            "sum of the storeys' gross floor areas",
                                            "sum of the storeys' net floor areas",
                                            "sum of the spaces' areas"};
static_assert(std::size(FloorAreaSources) == static_cast<std::size_t>(ifc::FloorAreaSource::SpacesOther) + 1);

std::optional<StatedFloorArea> GetFloorArea(const std::optional<ifc::ImportedBuilding>& building) {
    if (!building || !building->grossFloorAreaM2) return std::nullopt;
    const auto source = static_cast<std::size_t>(building->grossFloorAreaSource);
    return StatedFloorArea{*building->grossFloorAreaM2, FloorAreaSources[source]};
}

} // namespace

bool IsProjectFile(const std::string& path) {
    return HasExtension(path, ".kvp");
}

Result<OpenedModel> OpenedModel::Open(const ModelFile& file, const std::string& savePath,
                                      const ProgressObserver& observer) {
    const std::string& path = file.path;
    const bool isIfc = HasExtension(path, ".ifc") || HasExtension(path, ".ifczip");
    if (!isIfc && !IsProjectFile(path)) return Failure::Usage(path + ": a model is an .ifc, .ifczip or .kvp file");
    OpenedModel model(path, savePath);
    const Outcome outcome = isIfc ? model.ReadIfc(file, observer) : model.ReadProject();
    if (outcome.HasFailed()) return outcome.GetFailure();
    model.project->name = std::filesystem::path(path).stem().string();
    return model;
}

Outcome OpenedModel::ReadIfc(const ModelFile& file, const ProgressObserver& observer) {
    const std::string& codePage = file.codePage;
    if (!codePage.empty() && !IsKnownCodePage(codePage))
        return Failure::Usage("code page " + codePage + ": unknown; iconv -l lists the names");
    ifc::ImportResult result =
        ifc::ReadIfcFile(path, {.codePage = codePage, .everyBody = file.everyBody}, [&](double share) {
            observer(share);
            return true;
        });
    if (result.HasFailed()) return result;
    building = result.Take();
    if (building->elements.empty())
        return Failure::Input(
            path + ": the file has no building element (wall, slab, roof ...); export the building model itself");
    std::vector<Finding> replaced;
    project = CreateProject(*building, replaced);
    for (const std::string& sentence : building->warnings)
        warnings.push_back(MakeWarning(sentence, project->model));
    warnings.insert(warnings.end(), replaced.begin(), replaced.end());
    return Outcome::Done();
}

Outcome OpenedModel::ReadProject() {
    const KeepChanges keep = IsSameFile(path, savePath) ? KeepChanges::InFile : KeepChanges::InMemory;
    Result<std::unique_ptr<Project>> opened = OpenProjectFile(path, keep);
    if (opened.HasFailed()) return opened;
    project = opened.Take();
    return Outcome::Done();
}

Outcome OpenedModel::Start(Actor actor) {
    session = std::make_unique<Session>(std::move(actor));
    const host::ProjectEvent event = building ? host::ProjectEvent::New : host::ProjectEvent::Open;
    if (Outcome outcome = session->Start(std::move(project), event); outcome.HasFailed()) return outcome;
    return GetProject().GetStoreOutcome();
}

Result<std::vector<std::string>> OpenedModel::Apply(const StatedValues& values) {
    // Settings first: the phases decide what a door's or window's row amounts to.
    Result<std::vector<std::string>> notes = ApplyRecordSettings(*session, values.settings, GetFloorArea(building));
    if (notes.HasFailed()) return notes;
    if (!values.table.GetRows().empty())
        if (const Outcome outcome = ApplyMaterialTable(*session, values.table); outcome.HasFailed())
            return outcome.GetFailure();
    if (!values.elements.empty())
        if (const Outcome outcome = ApplyElementSettings(*session, values.elements); outcome.HasFailed())
            return outcome.GetFailure();
    return notes;
}

Outcome OpenedModel::Save() const {
    if (const Outcome& kept = GetProject().GetStoreOutcome(); kept.HasFailed()) return kept;
    if (savePath.empty() || GetProject().store) return Outcome::Done();
    return SaveProject(GetProject(), savePath);
}

std::vector<Finding> OpenedModel::ListFindings() const {
    std::vector<Finding> findings;
    if (!building) return findings;
    for (const ifc::ImportFinding& element : building->withoutQuantity)
        findings.push_back(MakeFinding(GetModel(), "no quantity and no usable geometry", element));
    for (const ifc::ImportFinding& element : building->withoutVolume)
        findings.push_back(MakeFinding(GetModel(), "has a surface, no volume", element));
    for (const ifc::ImportFinding& element : building->withoutMaterial)
        findings.push_back(MakeFinding(GetModel(), "no material", element));
    for (const ifc::ImportFinding& element : building->sharesUnknown)
        findings.push_back(MakeFinding(GetModel(), "shares of its materials unknown, equal ones are used", element));
    for (const ifc::VolumeCorrection& correction : building->correctedVolumes)
        findings.push_back(MakeFinding(GetModel(), correction));
    return findings;
}

} // namespace workbench
