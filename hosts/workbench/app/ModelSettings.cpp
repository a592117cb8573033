#include "workbench/app/ModelSettings.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/Quantities.h"
#include "workbench/app/SchemaView.h"
#include "workbench/app/Text.h"

#include "lca/RecordEncodings.h"

#include <map>

namespace workbench {

namespace {

using lca::PropertyKey;

/// Runs a command that may find nothing to change.
Outcome RunCommand(WorkbenchHost& host, const char* name, const std::function<host::ErrorCode()>& command) {
    const host::ErrorCode code = host.commands.Call(name, command);
    if (code == host::NoError || code == host::Errors::UndoEmpty) return {};
    return DescribeWriteRefusal(code, *host.GetProject());
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

bool IsOpening(const Element& element) {
    return element.type == host::ElementType::Door || element.type == host::ElementType::Window;
}

host::ErrorCode WriteStoredRecord(WorkbenchHost& host, const lca::LCAProjectData& record) {
    for (std::size_t i = lca::FirstProjectKey; i < lca::PropertyKeyCount; ++i) {
        const auto key = static_cast<PropertyKey>(i);
        const host::PropertyDefinition* found = FindLCADefinition(host.GetProject()->model, key);
        if (found == nullptr) return host::Errors::BadProperty;
        host::PropertyDefinition definition = *found;
        lca::StoredValue stored = GetStoredValue(definition);
        lca::WriteStoredValue(key, record, stored);
        definition.description = stored.description;
        switch (lca::GetStoredKind(key)) {
        case lca::StoredKind::Integer:
            definition.defaultValue = host::Variant::OfInteger(stored.integer);
            break;
        case lca::StoredKind::Real:
            definition.defaultValue = host::Variant::OfReal(stored.real);
            break;
        case lca::StoredKind::Text:
            definition.defaultValue = host::Variant::OfText(stored.text);
            break;
        }
        if (const host::ErrorCode code = host.properties.ChangeDefinition(definition)) return code;
    }
    return host::NoError;
}

void OfferFloorArea(lca::FloorQuantity quantity, const char* name, double areaM2, const std::string& source,
                    lca::LCAProjectData& record, std::vector<std::string>& notes) {
    if (record.GetFloorValue(quantity) != 0.0) return;
    record.SetFloorValue(quantity, lca::FloorSource::ByHand, areaM2);
    record.SetFloorChoice(quantity, lca::FloorSource::ByHand);
    notes.push_back(std::string(name) + " floor area taken from the model (" + source + "): " + FormatShort(areaM2, 2) +
                    " m2");
}

/// What keeps a material's quantities from being counted, and what to do; empty where nothing does.
std::string FindMissingValue(const Model& model, const host::BuildingMaterial& material,
                             const MaterialQuantity& quantity) {
    const std::string text = GetMaterialGWPText(model, material.index);
    if (text.empty()) return "no GWP and counts as 0; add it to the material table";
    const lca::MaterialGWP gwp = lca::DecodeMaterialGWP(text);
    if (!gwp.plain && gwp.byPhase.empty())
        return "a GWP that cannot be read (\"" + text + "\") and counts as 0; give a number in the material table";
    const std::string unit = GetMaterialUnit(model, material.index);
    if (unit == "kg" && material.densityKgM3 <= 0.0)
        return "a GWP per kg and no density, and counts as 0; add its density";
    const bool isArea = unit == "m2";
    const std::size_t lacking = isArea ? quantity.withoutArea : quantity.withoutVolume;
    if (lacking == 0) return {};
    return "a GWP per " + unit + " and in " + std::to_string(lacking) + " of " + std::to_string(quantity.components) +
           " components no " + (isArea ? "area" : "volume") + ", which count as 0; check the model's quantities";
}

} // namespace

Failure DescribeWriteRefusal(host::ErrorCode code, const Project& project) {
    if (!project.GetStoreFailure().empty()) return {OutputUnwritable, project.GetStoreFailure()};
    if (code == host::Errors::NoAccessRight)
        return {OutputUnwritable,
                "the project is shared and its settings are not reserved by this member; reserve them with kelvarnix "
                "teamwork and try again"};
    return {OutputUnwritable, "the project did not take the values (host error " + host::WriteErrorCode(code) + ")"};
}

Outcome ApplyMaterialTable(WorkbenchHost& host, const MaterialTable& table) {
    const std::vector<std::string> usedPhases = ReadRecord(host.GetProject()->model).usedPhases;
    return RunCommand(host, "Set LCA values from a table", [&] {
        // A copy: filling in densities replaces attributes.
        const std::vector<host::BuildingMaterial> materials = host.GetProject()->model.GetBuildingMaterials();
        for (const host::BuildingMaterial& material : materials)
            if (const MaterialRow* row = table.Find(AppliesTo::Material, material.name))
                if (const host::ErrorCode code = WriteMaterial(host, material, *row)) return code;
        for (const Element& element : host.GetProject()->model.GetElements()) {
            if (!IsOpening(element)) continue;
            const bool isDoor = element.type == host::ElementType::Door;
            const MaterialRow* row = table.Find(isDoor ? AppliesTo::Door : AppliesTo::Window, element.name);
            if (row == nullptr) continue;
            if (const host::ErrorCode code = WriteOpening(host, element, *row, usedPhases)) return code;
        }
        return host::NoError;
    });
}

Outcome CheckElementSettings(const Model& model, const std::vector<ElementSetting>& settings) {
    for (const ElementSetting& setting : settings)
        if (model.FindElement(setting.element) == ElementIndex::NotFound)
            return Failure{UsageError, "--element " + setting.argument + ": the model has no such element"};
    return {};
}

Outcome ApplyElementSettings(WorkbenchHost& host, const std::vector<ElementSetting>& settings) {
    return RunCommand(host, "Set element values", [&] {
        for (const ElementSetting& setting : settings) {
            const host::PropertyDefinition* definition = FindLCADefinition(host.GetProject()->model, setting.key);
            if (definition == nullptr) return host::Errors::BadProperty;
            const std::vector<host::PropertyValue> values = {MakeValue(*definition, setting.value)};
            if (const host::ErrorCode code = host.properties.WriteElementValues(setting.element, values)) return code;
        }
        return host::NoError;
    });
}

Outcome ApplyRecordSettings(WorkbenchHost& host, const RecordSettings& settings, std::optional<double> floorAreaM2,
                            const std::string& floorAreaSource, std::vector<std::string>& notes) {
    lca::LCAProjectData record = ReadRecord(host.GetProject()->model);
    settings.Apply(record);
    if (floorAreaM2) {
        OfferFloorArea(lca::FloorQuantity::GrossFloorArea, "gross", *floorAreaM2, floorAreaSource, record, notes);
        OfferFloorArea(lca::FloorQuantity::ReferenceFloorArea, "reference", *floorAreaM2, floorAreaSource, record,
                       notes);
    }
    if (settings.IsEmpty() && notes.empty()) return {};
    return RunCommand(host, "Set project settings", [&] { return WriteStoredRecord(host, record); });
}

std::vector<std::string> ListMissingValues(const Model& model) {
    std::vector<std::string> sentences;
    const std::vector<MaterialQuantity> quantities = SumMaterialQuantities(model);
    for (const host::BuildingMaterial& material : model.GetBuildingMaterials()) {
        const MaterialQuantity& quantity = quantities[static_cast<std::size_t>(material.index.value - 1)];
        if (quantity.components == 0) continue;
        const std::string missing = FindMissingValue(model, material, quantity);
        if (missing.empty()) continue;
        sentences.push_back("material \"" + material.name + "\" (" + FormatShort(quantity.volumeM3, 3) + " m3) has " +
                            missing);
    }
    std::map<std::string, int> openings;
    const host::PropertyDefinition* gwp = FindLCADefinition(model, PropertyKey::GWP);
    for (std::uint32_t i = 0; i < model.GetElements().size(); ++i) {
        const Element& element = model.GetElements()[i];
        if (!IsOpening(element)) continue;
        const Model::Values* values = model.FindElementValues(i);
        const auto own =
            values == nullptr || gwp == nullptr ? Model::Values::const_iterator() : values->find(gwp->guid);
        const bool hasGWP = values != nullptr && gwp != nullptr && own != values->end() && own->second.real != 0.0;
        if (!hasGWP)
            ++openings[std::string(element.type == host::ElementType::Door ? "door" : "window") + " \"" + element.name +
                       "\""];
    }
    for (const auto& [name, count] : openings)
        sentences.push_back(name + " (" + std::to_string(count) + (count == 1 ? " piece" : " pieces") +
                            ") has no GWP and counts as 0; add it to the material table");
    return sentences;
}

} // namespace workbench
