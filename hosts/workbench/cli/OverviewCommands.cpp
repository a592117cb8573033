// info, materials and record: looking at a model without assessing it.
#include "workbench/app/MaterialTable.h"
#include "workbench/app/ModelInput.h"
#include "workbench/app/Quantities.h"
#include "workbench/app/SchemaView.h"
#include "workbench/app/Text.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Waiting.h"

#include "lca/Numbers.h"

#include <nlohmann/json.hpp>

#include <algorithm>
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

/// What a material's row of the table says; the stored values where the project has some.
struct MaterialCells {
    std::string name;
    std::string unit;
    lca::MaterialGWP gwp;
    std::string serviceLife;
    std::string density;
};

MaterialCells ReadMaterialCells(const Model& model, const host::BuildingMaterial& material) {
    MaterialCells cells;
    cells.name = QuoteCell(material.name);
    cells.gwp = lca::DecodeMaterialGWP(GetMaterialGWPText(model, material.index));
    if (material.densityKgM3 > 0.0) cells.density = lca::WriteDecimal(material.densityKgM3);
    cells.unit = GetMaterialUnit(model, material.index);
    const Model::Values* values = model.FindMaterialValues(material.index);
    const host::PropertyDefinition* life = FindLCADefinition(model, lca::PropertyKey::ServiceYear);
    if (values == nullptr || life == nullptr) return cells;
    if (const auto value = values->find(life->guid); value != values->end() && value->second.integer > 0)
        cells.serviceLife = std::to_string(value->second.integer);
    return cells;
}

/// The GWP cell, or one cell by phase: a plain number then stands under the first used phase, where dialogs show it
/// too.
std::string WriteGWPCells(const lca::MaterialGWP& gwp, const std::vector<std::string>& phases,
                          const std::string& firstUsed) {
    if (phases.empty()) return gwp.plain ? lca::WriteDecimal(*gwp.plain) : std::string();
    std::string cells;
    for (const std::string& phase : phases) {
        if (&phase != &phases.front()) cells += ";";
        if (gwp.plain && phase == firstUsed) cells += lca::WriteDecimal(*gwp.plain);
        for (const auto& [name, value] : gwp.byPhase)
            if (name == phase) cells += lca::WriteDecimal(value);
    }
    return cells;
}

std::vector<MaterialCells> ListMaterialCells(const Model& model) {
    const std::vector<MaterialQuantity> sums = SumMaterialQuantities(model);
    std::vector<MaterialCells> list;
    for (const host::BuildingMaterial& material : model.GetBuildingMaterials())
        if (sums[static_cast<std::size_t>(material.index.value - 1)].components > 0)
            list.push_back(ReadMaterialCells(model, material));
    return list;
}

/// Empty where every material has one number or none: the table then has one GWP column.
std::vector<std::string> ListPhaseColumns(const std::vector<MaterialCells>& materials) {
    for (const MaterialCells& cells : materials)
        if (!cells.gwp.byPhase.empty()) return {"A1-A3", "A4", "B1", "C1", "C2", "C3", "C4", "D"};
    return {};
}

std::string GetFirstUsedPhase(const Model& model) {
    std::vector<std::string> phases = ReadRecord(model).usedPhases;
    return phases.empty() ? "A1-A3" : *std::min_element(phases.begin(), phases.end());
}

void AddOpenings(const Model& model, host::ElementType type, const char* appliesTo, const std::string& noGWP,
                 std::string& table) {
    std::set<std::string> names;
    for (const Element& element : model.GetElements())
        if (element.type == type) names.insert(element.name);
    for (const std::string& name : names)
        table.append(appliesTo)
            .append(";")
            .append(QuoteCell(name.empty() ? "*" : name))
            .append(";piece;")
            .append(noGWP)
            .append(";;\n");
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
    if (Outcome failure = ReadModel(path, KeepChanges::InMemory, input)) return failure;
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
    if (Outcome failure = ReadModel(path, KeepChanges::InMemory, input)) return failure;
    const Model& model = input.project->model;
    const std::vector<MaterialCells> materials = ListMaterialCells(model);
    const std::vector<std::string> phases = ListPhaseColumns(materials);
    std::string gwpColumns = phases.empty() ? "gwp" : "";
    for (const std::string& phase : phases)
        gwpColumns.append(gwpColumns.empty() ? "" : ";").append(phase);
    std::string table = "applies_to;name;unit;" + gwpColumns + ";service_life;density\n";
    const std::string firstUsed = GetFirstUsedPhase(model);
    for (const MaterialCells& cells : materials)
        table.append("material;")
            .append(cells.name)
            .append(";")
            .append(cells.unit)
            .append(";")
            .append(WriteGWPCells(cells.gwp, phases, firstUsed))
            .append(";")
            .append(cells.serviceLife)
            .append(";")
            .append(cells.density)
            .append("\n");
    const std::string noGWP(phases.empty() ? 0 : phases.size() - 1, ';');
    AddOpenings(model, host::ElementType::Door, "door", noGWP, table);
    AddOpenings(model, host::ElementType::Window, "window", noGWP, table);
    return WriteOutput(output, table);
}

Outcome RunRecord(const std::string& path, const std::string& jsonPath) {
    if (!IsProjectFile(path)) return Failure{UsageError, path + ": a record is kept in a project file (.kvp)"};
    ModelInput input;
    if (Outcome failure = ReadModel(path, KeepChanges::InMemory, input)) return failure;
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
