// info, materials and record: looking at a model without assessing it.
#include "workbench/cli/Commands.h"
#include "workbench/cli/MaterialTable.h"
#include "workbench/cli/ModelInput.h"
#include "workbench/cli/Quantities.h"
#include "workbench/cli/SchemaView.h"
#include "workbench/cli/Text.h"

#include "lca/Numbers.h"

#include <nlohmann/json.hpp>

#include <map>
#include <set>

namespace workbench::cli {

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string ListElements(const Model& model) {
    std::map<std::pair<std::string, std::string>, int> counts;
    for (const Element& element : model.GetElements())
        ++counts[{GetTypeName(element.type), model.FindLayer(element.layer)->name}];
    Rows rows = {{"Type", "Layer", "Elements"}};
    for (const auto& [key, count] : counts)
        rows.push_back({key.first, key.second, std::to_string(count)});
    rows.push_back({"total", "", std::to_string(model.GetElements().size())});
    return AlignColumns(rows, {Align::Left, Align::Left, Align::Right});
}

std::string ListMaterials(const Model& model) {
    const std::vector<MaterialQuantity> sums = SumMaterialQuantities(model);
    Rows rows = {{"Material", "Volume (m3)", "Area (m2)", "Density (kg/m3)", "Mass (kg)", "GWP/unit"}};
    for (const host::BuildingMaterial& material : model.GetBuildingMaterials()) {
        const MaterialQuantity& sum = sums[static_cast<std::size_t>(material.index.value - 1)];
        if (sum.components == 0) continue;
        const bool hasDensity = material.densityKgM3 > 0.0;
        const std::string gwp = GetMaterialGWPText(model, material.index);
        rows.push_back({material.name, FormatShort(sum.volumeM3, 3), FormatShort(sum.areaM2, 2),
                        hasDensity ? FormatShort(material.densityKgM3, 1) : "-",
                        hasDensity ? FormatShort(material.densityKgM3 * sum.volumeM3, 1) : "-",
                        gwp.empty() ? "-" : gwp});
    }
    return AlignColumns(rows, {Align::Left, Align::Right, Align::Right, Align::Right, Align::Right, Align::Left});
}

std::string DescribeBuilding(const ifc::ImportedBuilding& building) {
    std::string text = "Schema " + building.schema;
    if (!building.projectName.empty()) text += ", project \"" + building.projectName + "\"";
    text += "\n";
    if (building.grossFloorAreaM2) text += "Gross floor area: " + FormatShort(*building.grossFloorAreaM2, 2) + " m2\n";
    if (!building.sumsOfParts.empty())
        text += "Sums of their parts, counted by the parts: " + std::to_string(building.sumsOfParts.size()) + "\n";
    for (const auto& [type, count] : building.leftOut)
        text += "Left out: " + std::to_string(count) + " " + type + "\n";
    return text;
}

std::string GetCell(const lca::MaterialGWP& gwp) {
    return gwp.plain ? lca::WriteDecimal(*gwp.plain) : std::string();
}

void AddOpenings(const Model& model, host::ElementType type, const char* appliesTo, std::string& table) {
    std::set<std::string> names;
    for (const Element& element : model.GetElements())
        if (element.type == type) names.insert(element.name);
    for (const std::string& name : names)
        table += std::string(appliesTo) + ";" + QuoteCell(name.empty() ? "*" : name) + ";piece;;;\n";
}

std::string DescribeReading(lca::PropertyKey key, const lca::StoredValue& stored) {
    lca::LCAProjectData record;
    lca::BeginLoad(record);
    lca::ReadStoredValue(key, stored, record);
    lca::StoredValue again = stored;
    lca::WriteStoredValue(key, record, again);
    switch (lca::GetStoredKind(key)) {
    case lca::StoredKind::Integer:
        return std::to_string(again.integer);
    case lca::StoredKind::Real:
        return lca::WriteDecimal(again.real);
    case lca::StoredKind::Text:
        break;
    }
    if (key != lca::PropertyKey::GWPStandards) return again.text;
    const std::string_view unit = lca::GetKeyText(record.standardsUnit);
    return again.text + " [" + (unit.empty() ? "GWP_KG_M2_A" : std::string(unit)) + "]";
}

} // namespace

Outcome RunInfo(const std::string& path) {
    ModelInput input;
    if (Outcome failure = OpenModel(path, KeepChanges::InMemory, input)) return failure;
    const Model& model = input.project->model;
    std::string text = path + "\n";
    if (input.building) text += DescribeBuilding(*input.building);
    text.append("\n").append(ListElements(model)).append("\n").append(ListMaterials(model));
    std::vector<std::string> missing = input.warnings;
    if (input.building)
        for (std::string& finding : ListFindings(*input.building))
            missing.push_back(std::move(finding));
    if (!missing.empty()) text += "\nMissing or doubtful:\n";
    for (const std::string& finding : missing)
        text += "  " + finding + "\n";
    return WriteOutput({}, text);
}

Outcome RunMaterials(const std::string& path, const std::string& output) {
    ModelInput input;
    if (Outcome failure = OpenModel(path, KeepChanges::InMemory, input)) return failure;
    const Model& model = input.project->model;
    const std::vector<MaterialQuantity> sums = SumMaterialQuantities(model);
    std::string table = std::string(MaterialTableHeader) + "\n";
    for (const host::BuildingMaterial& material : model.GetBuildingMaterials()) {
        if (sums[static_cast<std::size_t>(material.index.value - 1)].components == 0) continue;
        const lca::MaterialGWP gwp = lca::DecodeMaterialGWP(GetMaterialGWPText(model, material.index));
        table += "material;" + QuoteCell(material.name) + ";m3;" + GetCell(gwp) + ";;" +
                 (material.densityKgM3 > 0.0 ? lca::WriteDecimal(material.densityKgM3) : std::string()) + "\n";
    }
    AddOpenings(model, host::ElementType::Door, "door", table);
    AddOpenings(model, host::ElementType::Window, "window", table);
    return WriteOutput(output, table);
}

Outcome RunRecord(const std::string& path, const std::string& jsonPath) {
    if (!IsProjectFile(path)) return Failure{UsageError, path + ": a record is kept in a project file (.kvp)"};
    ModelInput input;
    if (Outcome failure = OpenModel(path, KeepChanges::InMemory, input)) return failure;
    Rows rows = {{"Key", "Property", "Stored", "Read as"}};
    nlohmann::ordered_json json = nlohmann::ordered_json::array();
    for (std::size_t i = lca::FirstProjectKey; i < lca::PropertyKeyCount; ++i) {
        const auto key = static_cast<lca::PropertyKey>(i);
        const host::PropertyDefinition* definition = FindLCADefinition(input.project->model, key);
        const std::string name(lca::GetKeyText(key));
        if (definition == nullptr) {
            rows.push_back({name, "-", "-", "-"});
            json.push_back({{"key", name}, {"stored", nullptr}, {"read_as", nullptr}});
            continue;
        }
        const std::string stored = WriteStoredText(key, *definition);
        const std::string reading = DescribeReading(key, GetStoredValue(*definition));
        rows.push_back({name, definition->name, stored, reading});
        json.push_back({{"key", name},
                        {"property", definition->name},
                        {"description", definition->description},
                        {"stored", stored},
                        {"read_as", reading}});
    }
    if (jsonPath.empty())
        return WriteOutput({}, AlignColumns(rows, {Align::Left, Align::Left, Align::Left, Align::Left}));
    return WriteOutput(jsonPath, json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n");
}

} // namespace workbench::cli
