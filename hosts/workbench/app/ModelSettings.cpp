#include "workbench/app/ModelSettings.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/Quantities.h"
#include "workbench/app/SchemaView.h"
#include "workbench/app/Text.h"

#include <map>

namespace workbench {

namespace {

using lca::PropertyKey;

/// Runs a command that may find nothing to change.
Outcome RunCommand(Session& session, const char* name, const std::function<host::ErrorCode()>& command) {
    const host::ErrorCode code = session.GetHost().commands.Call(name, command);
    if (code == host::NoError || code == host::Errors::UndoEmpty) return Outcome::Done();
    return session.DescribeWriteRefusal(code);
}

host::PropertyValue MakeValue(const host::PropertyDefinition& definition, host::Variant value) {
    return {definition.guid, host::PropertyStatus::HasValue, false, std::move(value)};
}

/// A material carries its LCA values only when it is classified with an item that the definitions are available to.
host::ErrorCode EnsureClassified(WorkbenchHost& host, host::AttributeIndex material,
                                 const host::PropertyDefinition& definition) {
    if (definition.availability.empty()) return host::Errors::BadProperty;
    const host::ErrorCode code = host.classifications.ClassifyMaterial(material, definition.availability.front());
    return code == host::Errors::NameAlreadyUsed ? host::NoError : code; // it has one of that system
}

void FillDensity(Project& project, const host::BuildingMaterial& material, const MaterialRow& row) {
    if (!row.densityKgM3 || material.densityKgM3 > 0.0) return;
    host::BuildingMaterial changed = material;
    changed.densityKgM3 = *row.densityKgM3;
    project.Record({material, changed});
}

host::ErrorCode WriteMaterial(WorkbenchHost& host, const host::BuildingMaterial& material, const MaterialRow& row) {
    const Model& model = host.GetProject()->model;
    const host::PropertyDefinition* gwp = FindLCADefinition(model, PropertyKey::GWPPerUnit);
    const host::PropertyDefinition* unit = FindLCADefinition(model, PropertyKey::UnitType);
    const host::PropertyDefinition* life = FindLCADefinition(model, PropertyKey::ServiceYear);
    if (gwp == nullptr || unit == nullptr || life == nullptr) return host::Errors::BadProperty;
    if (const host::ErrorCode code = EnsureClassified(host, material.index, *gwp)) return code;
    const std::vector<host::PropertyValue> values = {
        MakeValue(*gwp, host::Variant::OfText(lca::EncodeMaterialGWP(row.gwp))),
        MakeValue(*unit, host::Variant::OfGuid(FindOption(*unit, row.unit))),
        MakeValue(*life, host::Variant::OfInteger(row.serviceLifeYears.value_or(0)))};
    if (const host::ErrorCode code = host.properties.WriteMaterialValues(material.index, values)) return code;
    FillDensity(*host.GetProject(), material, row);
    return host::NoError;
}

host::ErrorCode WriteOpening(WorkbenchHost& host, const Element& element, const MaterialRow& row,
                             const std::vector<std::string>& usedPhases) {
    const host::PropertyDefinition* gwp = FindLCADefinition(host.GetProject()->model, PropertyKey::GWP);
    if (gwp == nullptr) return host::Errors::BadProperty;
    const double perUnit = lca::SumMaterialGWP(row.gwp, usedPhases);
    const double total = row.unit == "m2" ? perUnit * element.openingAreaM2 : perUnit;
    return host.properties.WriteElementValues(element.guid, {MakeValue(*gwp, host::Variant::OfReal(total))});
}

host::ErrorCode WriteStoredRecord(WorkbenchHost& host, const lca::LCAProjectData& record) {
    for (const lca::PropertyKeyRow& row : lca::GetPropertyKeys()) {
        if (!lca::IsProjectKey(row.key)) continue;
        const host::PropertyDefinition* found = FindLCADefinition(host.GetProject()->model, row.key);
        if (found == nullptr) return host::Errors::BadProperty;
        host::PropertyDefinition definition = *found;
        definition.description = lca::WriteDescription(row.key, record, definition.description);
        definition.defaultValue = host::Variant::OfPlain(row.encode(record));
        if (const host::ErrorCode code = host.properties.ChangeDefinition(definition)) return code;
    }
    return host::NoError;
}

void OfferFloorArea(lca::FloorQuantity quantity, const char* name, const StatedFloorArea& stated,
                    lca::LCAProjectData& record, std::vector<std::string>& notes) {
    if (record.GetFloorValue(quantity) != 0.0) return;
    record.SetFloorValue(quantity, lca::FloorSource::ByHand, stated.areaM2);
    record.SetFloorChoice(quantity, lca::FloorSource::ByHand);
    notes.push_back(std::string(name) + " floor area taken from the model (" + stated.source +
                    "): " + FormatShort(stated.areaM2, 2) + " m2");
}

/// What keeps a material's quantities from being counted.
struct MissingValue {
    std::string kind;
    std::string sentence; ///< what the material has, and what to do
};

std::optional<MissingValue> FindMissingQuantity(const std::string& unit, const MaterialQuantity& quantity) {
    const bool isArea = unit == "m2";
    const std::size_t lacking = isArea ? quantity.withoutArea : quantity.withoutVolume;
    if (lacking == 0) return std::nullopt;
    const std::string missing = isArea ? "area" : "volume";
    return MissingValue{"GWP per " + unit + " and components without " + missing + ", which count as 0",
                        "a GWP per " + unit + " and in " + std::to_string(lacking) + " of " +
                            std::to_string(quantity.components) + " components no " + missing +
                            ", which count as 0; check the model's quantities"};
}

/// None where everything can be counted.
std::optional<MissingValue> FindMissingValue(const Model& model, const host::BuildingMaterial& material,
                                             const MaterialQuantity& quantity) {
    const std::string text = GetMaterialGWPText(model, material.index);
    if (text.empty())
        return MissingValue{"no GWP, which counts as 0 until it is in the material table",
                            "no GWP and counts as 0; add it to the material table"};
    const lca::MaterialGWP gwp = lca::DecodeMaterialGWP(text);
    if (!gwp.plain && gwp.byPhase.empty())
        return MissingValue{"GWP that cannot be read and counts as 0", "a GWP that cannot be read (\"" + text +
                                                                           "\") and counts as 0; give a number in "
                                                                           "the material table"};
    const std::string unit = GetMaterialUnit(model, material.index);
    if (unit == "kg" && material.densityKgM3 <= 0.0)
        return MissingValue{"GWP per kg and no density, which counts as 0",
                            "a GWP per kg and no density, and counts as 0; add its density"};
    return FindMissingQuantity(unit, quantity);
}

void ListMaterialsWithoutValue(const Model& model, std::vector<Finding>& findings) {
    const std::vector<MaterialQuantity> quantities = SumMaterialQuantities(model);
    for (const host::BuildingMaterial& material : model.GetBuildingMaterials()) {
        const MaterialQuantity& quantity = quantities[static_cast<std::size_t>(material.index.value - 1)];
        if (quantity.components == 0) continue;
        const std::optional<MissingValue> missing = FindMissingValue(model, material, quantity);
        if (!missing) continue;
        const std::string owner = "\"" + material.name + "\" (" + FormatShort(quantity.volumeM3, 3) + " m3)";
        findings.push_back(
            {missing->kind, "materials", owner, "material " + owner + " has " + missing->sentence, quantity.volumeM3});
    }
}

bool HasOwnGWP(const Model& model, std::uint32_t element) {
    const host::PropertyDefinition* gwp = FindLCADefinition(model, PropertyKey::GWP);
    const Model::Values* values = model.FindElementValues(element);
    if (values == nullptr || gwp == nullptr) return false;
    const auto own = values->find(gwp->guid);
    return own != values->end() && own->second.real != 0.0;
}

void ListOpeningsWithoutValue(const Model& model, std::vector<Finding>& findings) {
    std::map<std::string, int> openings;
    for (std::uint32_t i = 0; i < model.GetElements().size(); ++i) {
        const Element& element = model.GetElements()[i];
        if (!IsOpening(element) || HasOwnGWP(model, i)) continue;
        const char* kind = element.type == host::ElementType::Door ? "door" : "window";
        ++openings[std::string(kind) + " \"" + element.name + "\""];
    }
    for (const auto& [name, count] : openings) {
        const std::string owner = name + " (" + std::to_string(count) + (count == 1 ? " piece" : " pieces") + ")";
        findings.push_back({"doors and windows without GWP, which counts as 0 until it is in the material table",
                            "names", owner, owner + " has no GWP and counts as 0; add it to the material table", 0.0});
    }
}

} // namespace

Outcome ApplyMaterialTable(Session& session, const MaterialTable& table) {
    WorkbenchHost& host = session.GetHost();
    const std::vector<std::string> usedPhases = ReadRecord(host.GetProject()->model).usedPhases;
    return RunCommand(session, "Set LCA values from a table", [&] {
        // A copy: filling in densities replaces attributes.
        const std::vector<host::BuildingMaterial> materials = host.GetProject()->model.GetBuildingMaterials();
        for (const host::BuildingMaterial& material : materials)
            if (const MaterialRow* row = table.Find(AppliesTo::Material, {material.name}))
                if (const host::ErrorCode code = WriteMaterial(host, material, *row)) return code;
        for (const Element& element : host.GetProject()->model.GetElements()) {
            if (!IsOpening(element)) continue;
            const bool isDoor = element.type == host::ElementType::Door;
            const MaterialRow* row =
                table.Find(isDoor ? AppliesTo::Door : AppliesTo::Window, {element.name, element.typeName});
            if (row == nullptr) continue;
            if (const host::ErrorCode code = WriteOpening(host, element, *row, usedPhases)) return code;
        }
        return host::NoError;
    });
}

const ElementSetting* FindMissingElement(const Model& model, const std::vector<ElementSetting>& settings) {
    for (const ElementSetting& setting : settings)
        if (model.FindElement(setting.element) == ElementIndex::NotFound) return &setting;
    return nullptr;
}

Outcome ApplyElementSettings(Session& session, const std::vector<ElementSetting>& settings) {
    WorkbenchHost& host = session.GetHost();
    return RunCommand(session, "Set element values", [&] {
        for (const ElementSetting& setting : settings) {
            const host::PropertyDefinition* definition = FindLCADefinition(host.GetProject()->model, setting.key);
            if (definition == nullptr) return host::Errors::BadProperty;
            const std::vector<host::PropertyValue> values = {MakeValue(*definition, setting.value)};
            if (const host::ErrorCode code = host.properties.WriteElementValues(setting.element, values)) return code;
        }
        return host::NoError;
    });
}

Result<std::vector<std::string>> ApplyRecordSettings(Session& session, const RecordSettings& settings,
                                                     const std::optional<StatedFloorArea>& stated) {
    std::vector<std::string> notes;
    WorkbenchHost& host = session.GetHost();
    lca::LCAProjectData record = ReadRecord(host.GetProject()->model);
    settings.Apply(record);
    if (stated) {
        OfferFloorArea(lca::FloorQuantity::GrossFloorArea, "gross", *stated, record, notes);
        OfferFloorArea(lca::FloorQuantity::ReferenceFloorArea, "reference", *stated, record, notes);
    }
    if (settings.IsEmpty() && notes.empty()) return notes;
    const Outcome outcome =
        RunCommand(session, "Set project settings", [&] { return WriteStoredRecord(host, record); });
    if (outcome.HasFailed()) return outcome.GetFailure();
    return notes;
}

std::vector<Finding> ListMissingValues(const Model& model) {
    std::vector<Finding> findings;
    ListMaterialsWithoutValue(model, findings);
    ListOpeningsWithoutValue(model, findings);
    return findings;
}

} // namespace workbench
