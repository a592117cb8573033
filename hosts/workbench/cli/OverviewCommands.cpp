// info, materials and record: looking at a model without assessing it.
#include "workbench/app/MaterialTable.h"
#include "workbench/app/Quantities.h"
#include "workbench/app/SchemaView.h"
#include "workbench/app/Text.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/FindingText.h"
#include "workbench/cli/JsonText.h"
#include "workbench/cli/Opening.h"

#include "lca/LifeCycleModules.h"
#include "lca/Numbers.h"
#include "lca/RecordEncodings.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>

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
    const host::Variant* life = FindMaterialValue(model, material.index, lca::PropertyKey::ServiceYear);
    if (life != nullptr && life->integer > 0) cells.serviceLife = std::to_string(life->integer);
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
    std::vector<std::string> columns;
    if (std::any_of(materials.begin(), materials.end(), [](const auto& cells) { return !cells.gwp.byPhase.empty(); }))
        for (const lca::LifeCycleModule& module : lca::LifeCycleModules)
            columns.emplace_back(module.code);
    return columns;
}

std::string GetFirstUsedPhase(const Model& model) {
    std::vector<std::string> phases = ReadRecord(model).usedPhases;
    return phases.empty() ? std::string(lca::LifeCycleModules.front().code)
                          : *std::min_element(phases.begin(), phases.end());
}

/// Doors or windows of one type.
struct OpeningSum {
    int count = 0;
    double areaM2 = 0.0;
};

void AddOpenings(const Model& model, host::ElementType type, const char* appliesTo, const std::string& noGWP,
                 std::string& table) {
    std::map<std::string, OpeningSum> sums;
    for (const Element& element : model.GetElements()) {
        if (element.type != type) continue;
        OpeningSum& sum = sums[element.typeName.empty() ? element.name : element.typeName];
        ++sum.count;
        sum.areaM2 += element.openingAreaM2;
    }
    for (const auto& [name, sum] : sums)
        table.append(appliesTo)
            .append(";")
            .append(QuoteCell(name.empty() ? "*" : name))
            .append(";piece;")
            .append(noGWP)
            .append(";;;")
            .append(std::to_string(sum.count))
            .append(";")
            .append(FormatShort(sum.areaM2, 3))
            .append("\n");
}

/// The stored value as the add-on reads it.
std::string DescribeReading(const lca::PropertyKeyRow& row, const std::optional<lca::StoredValue>& stored,
                            const std::string& description) {
    lca::LCAProjectData record;
    lca::BeginLoad(record);
    if (stored) lca::ReadStoredValue(row.key, *stored, description, record);
    const std::string reading = lca::WriteStoredText(row.encode(record));
    return row.key == lca::PropertyKey::GWPStandards
               ? reading + " [" + std::string(lca::GetKeyText(record.standardsUnit)) + "]"
               : reading;
}

std::string WriteFindings(const OpenedModel& opened, bool isVerbose) {
    std::vector<Finding> findings = opened.GetWarnings();
    for (Finding& finding : opened.ListFindings())
        findings.push_back(std::move(finding));
    if (findings.empty()) return {};
    if (!isVerbose) return "\nMissing or doubtful:\n" + WriteGroups(findings, SumVolumeM3(opened.GetModel()));
    std::string text = "\nMissing or doubtful:\n";
    for (const std::string& sentence : ListSentences(findings))
        text += "  " + sentence + "\n";
    return text;
}

} // namespace

Outcome RunInfo(const ModelFile& file, bool isVerbose) {
    const Result<OpenedModel> opened = OpenModel(file);
    if (opened.HasFailed()) return opened;
    const Model& model = opened.Get().GetModel();
    std::string text = file.path + "\n";
    if (const auto& building = opened.Get().GetBuilding()) text += DescribeBuilding(*building);
    text.append("\n").append(ListElements(model)).append("\n").append(ListMaterials(model));
    text += WriteFindings(opened.Get(), isVerbose);
    return WriteOutput({}, text);
}

Outcome RunMaterials(const ModelFile& file, const std::string& output) {
    const Result<OpenedModel> opened = OpenModel(file);
    if (opened.HasFailed()) return opened;
    const Model& model = opened.Get().GetModel();
    const std::vector<MaterialCells> materials = ListMaterialCells(model);
    const std::vector<std::string> phases = ListPhaseColumns(materials);
    std::string gwpColumns = phases.empty() ? "gwp" : "";
    for (const std::string& phase : phases)
        gwpColumns.append(gwpColumns.empty() ? "" : ";").append(phase);
    std::string table = "applies_to;name;unit;" + gwpColumns + ";service_life;density;count;area_m2\n";
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
            .append(";;\n");
    const std::string noGWP(phases.empty() ? 0 : phases.size() - 1, ';');
    AddOpenings(model, host::ElementType::Door, "door", noGWP, table);
    AddOpenings(model, host::ElementType::Window, "window", noGWP, table);
    return WriteOutput(output, table);
}

Outcome RunRecord(const std::string& path, const std::string& jsonPath) {
    if (!IsProjectFile(path)) return Failure::Usage(path + ": a record is kept in a project file (.kvp)");
    const Result<OpenedModel> opened = OpenModel({path});
    if (opened.HasFailed()) return opened;
    Rows rows = {{"Key", "Property", "Stored", "Read as"}};
    nlohmann::ordered_json json = nlohmann::ordered_json::array();
    for (const lca::PropertyKeyRow& row : lca::GetPropertyKeys()) {
        if (!lca::IsProjectKey(row.key)) continue;
        const host::PropertyDefinition* definition = FindLCADefinition(opened.Get().GetModel(), row.key);
        const std::string name(row.text);
        if (definition == nullptr) {
            rows.push_back({name, "-", "-", "-"});
            json.push_back({{"key", name}, {"stored", nullptr}, {"read_as", nullptr}});
            continue;
        }
        const std::optional<lca::StoredValue> value = definition->defaultValue.GetPlain();
        const std::optional<std::string> stored = value ? std::optional(lca::WriteStoredText(*value)) : std::nullopt;
        const std::string reading = DescribeReading(row, value, definition->description);
        rows.push_back({name, definition->name, stored.value_or("-"), reading});
        json.push_back({{"key", name},
                        {"property", definition->name},
                        {"description", definition->description},
                        {"stored", stored ? nlohmann::ordered_json(*stored) : nlohmann::ordered_json()},
                        {"read_as", reading}});
    }
    if (jsonPath.empty())
        return WriteOutput({}, AlignColumns(rows, {Align::Left, Align::Left, Align::Left, Align::Left}));
    return WriteOutput(jsonPath, WriteJsonText(json));
}

} // namespace workbench::cli
