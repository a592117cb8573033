#include "workbench/app/Quantities.h"
#include "workbench/app/SchemaView.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/FindingText.h"
#include "workbench/cli/JsonText.h"
#include "workbench/cli/Opening.h"
#include "workbench/cli/Options.h"
#include "workbench/text/Letters.h"

#include <nlohmann/json.hpp>

namespace workbench::cli {

namespace {

using nlohmann::ordered_json;

/// What is checked and read before the model is touched, so that a bad argument changes nothing.
struct Preparation {
    StatedValues values;
    std::optional<host::Point> place; ///< of the result report
};

Outcome CheckOptions(const AssessOptions& options) {
    if (Outcome outcome = CheckSave(options.save); outcome.HasFailed()) return outcome;
    if (!options.report.empty() && FoldCase(std::filesystem::path(options.report).extension().string()) != ".xlsx")
        return Failure::Usage("--report " + options.report + ": a spreadsheet report ends in .xlsx");
    return Outcome::Done();
}

Result<StatedValues> ReadValues(const AssessOptions& options) {
    StatedValues values;
    if (!options.materials.empty()) {
        Result<MaterialTable> table = MaterialTable::Read(options.materials);
        if (table.HasFailed()) return table.GetFailure();
        values.table = table.Take();
    }
    if (!options.settings.empty())
        if (const Outcome outcome = values.settings.AddFile(options.settings); outcome.HasFailed())
            return outcome.GetFailure();
    for (const std::string& argument : options.sets)
        if (const Outcome outcome = values.settings.AddArgument(argument); outcome.HasFailed())
            return outcome.GetFailure().Named("--set " + argument);
    for (const std::string& argument : options.elements) {
        Result<ElementSetting> setting = ParseElementSetting(argument);
        if (setting.HasFailed()) return setting.GetFailure().Named("--element " + argument);
        values.elements.push_back(setting.Take());
    }
    return values;
}

Result<Preparation> Prepare(const AssessOptions& options) {
    if (const Outcome outcome = CheckOptions(options); outcome.HasFailed()) return outcome.GetFailure();
    Result<std::optional<host::Point>> place = ParsePlace("--place-report", options.placeReport, options.save);
    if (place.HasFailed()) return place.GetFailure();
    if (!options.window.empty() && !place.Get())
        return Failure::Usage("--window tells where the report is placed; give --place-report X,Y too");
    Result<StatedValues> values = ReadValues(options);
    if (values.HasFailed()) return values.GetFailure();
    return Preparation{values.Take(), place.Take()};
}

struct Assessment {
    OpenedModel model;
    PaletteContent palette;
    MaterialReportContent materials; ///< of the material report's dialog; only for JSON
    std::vector<Finding> findings;   ///< what --strict stops at
    std::vector<std::string> notes;
};

Outcome TakeEnergyData(const AssessOptions& options, Assessment& assessment) {
    Result<EnergyTransfer> transfer = SendEnergyData(assessment.model.GetSession(), options.energy, {});
    if (transfer.HasFailed()) return transfer;
    const std::vector<std::string> changes = DescribeChanges(transfer.Get(), options.energy);
    assessment.notes.insert(assessment.notes.end(), changes.begin(), changes.end());
    return Outcome::Done();
}

/// From the opened model to one that is ready to be calculated.
Outcome TakeInputs(const AssessOptions& options, const StatedValues& values, Assessment& assessment) {
    OpenedModel& model = assessment.model;
    if (const ElementSetting* missing = FindMissingElement(model.GetModel(), values.elements))
        return Failure::Usage("--element " + missing->text + ": the model has no such element");
    const bool changesSettings = !values.IsEmpty() || !options.energy.empty();
    const Purpose purpose = changesSettings ? Purpose::Changing : Purpose::Reading;
    if (Outcome outcome = StartAs(model, options.as, purpose); outcome.HasFailed()) return outcome;
    Result<std::vector<std::string>> notes = model.Apply(values);
    if (notes.HasFailed()) return notes;
    assessment.notes = notes.Take();
    return options.energy.empty() ? Outcome::Done() : TakeEnergyData(options, assessment);
}

/// What is asked for besides the table of the palette.
Outcome MakeReports(const AssessOptions& options, const std::optional<host::Point>& place, Assessment& assessment) {
    Session& session = assessment.model.GetSession();
    if (place) {
        if (Outcome outcome = OpenWindow(session.GetHost(), options.window); outcome.HasFailed()) return outcome;
        Outcome placed = session.PlaceResultReport(*place);
        if (const Outcome& stored = session.GetProject().GetStoreOutcome(); stored.HasFailed()) return stored;
        if (placed.HasFailed()) return placed;
    }
    if (!options.report.empty())
        if (Outcome outcome = session.GenerateReport(options.report); outcome.HasFailed()) return outcome;
    if (!options.charts.empty())
        if (Outcome outcome = session.WriteCharts(options.charts); outcome.HasFailed()) return outcome;
    if (options.json.empty()) return Outcome::Done();
    Result<MaterialReportContent> materials = session.ReadMaterialReport();
    if (materials.HasFailed()) return materials;
    assessment.materials = materials.Take();
    return Outcome::Done();
}

std::vector<Finding> ListFindings(const Assessment& assessment) {
    constexpr char Incomplete[] = "the results are incomplete: not everything in the model could be read";
    std::vector<Finding> findings = assessment.model.ListFindings();
    if (assessment.palette.isIncomplete) findings.push_back({Incomplete, "times", {}, Incomplete, 0.0});
    for (Finding& missing : ListMissingValues(assessment.model.GetModel()))
        findings.push_back(std::move(missing));
    return findings;
}

Outcome Assess(const AssessOptions& options, const Preparation& preparation, Assessment& assessment) {
    if (Outcome outcome = TakeInputs(options, preparation.values, assessment); outcome.HasFailed()) return outcome;
    Session& session = assessment.model.GetSession();
    if (!options.refuse.empty())
        session.GetHost().refusals.rule = [&](const std::string& operation, const host::Guid&) {
            return operation == options.refuse ? host::Errors::General : host::NoError;
        };
    if (Outcome outcome = Calculate(session); outcome.HasFailed()) return outcome;
    Result<PaletteContent> palette = session.ReadPalette();
    if (palette.HasFailed()) return palette;
    assessment.palette = palette.Take();
    if (Outcome outcome = MakeReports(options, preparation.place, assessment); outcome.HasFailed()) return outcome;
    assessment.findings = ListFindings(assessment);
    return assessment.model.Save();
}

ordered_json ToJson(const std::optional<double>& value) {
    return value ? ordered_json(*value) : ordered_json();
}

/// GlobalIds; none for null.
ordered_json ListIds(const std::vector<ifc::ImportFinding>* findings) {
    ordered_json ids = ordered_json::array();
    if (!findings) return ids;
    for (const ifc::ImportFinding& finding : *findings)
        ids.push_back(finding.globalId);
    return ids;
}

ordered_json DescribeModel(const OpenedModel& opened) {
    const Model& model = opened.GetModel();
    ordered_json json;
    json["file"] = opened.GetPath();
    json["elements"] = model.GetElements().size();
    std::map<std::string, int> byType;
    std::size_t components = 0;
    for (const Element& element : model.GetElements()) {
        ++byType[GetTypeName(element.type)];
        components += element.componentCount;
    }
    json["elements_by_type"] = byType;
    json["components"] = components;
    json["materials"] = model.GetBuildingMaterials().size();
    json["layers"] = model.GetLayers().size();
    const std::optional<ifc::ImportedBuilding>& building = opened.GetBuilding();
    json["left_out"] = building ? ordered_json(building->leftOut) : ordered_json::object();
    json["sums_of_parts"] = building ? building->sumsOfParts.size() : 0;
    json["without_quantity"] = ListIds(building ? &building->withoutQuantity : nullptr);
    json["without_volume"] = ListIds(building ? &building->withoutVolume : nullptr);
    json["shares_unknown"] = ListIds(building ? &building->sharesUnknown : nullptr);
    return json;
}

ordered_json DescribeSettings(const Model& model) {
    ordered_json json = ordered_json::object();
    for (const lca::PropertyKeyRow& row : lca::GetPropertyKeys()) {
        const host::PropertyDefinition* definition = FindLCADefinition(model, row.key);
        if (definition == nullptr || !lca::IsProjectKey(row.key)) continue;
        ordered_json& stored = json[std::string(row.text)];
        if (const std::optional<lca::StoredValue> value = definition->defaultValue.GetPlain())
            std::visit([&stored](const auto& plain) { stored = plain; }, *value);
        if (row.key == lca::PropertyKey::GWPStandards)
            json[StandardsUnitKey] = std::string(lca::GetKeyText(lca::ReadUnitMarker(definition->description)));
    }
    return json;
}

void AddSums(const TableRow& row, ordered_json& json) {
    json["gwp"] = ToJson(row.gwp);
    json["gwp_per_area"] = ToJson(row.gwpPerArea);
    json["gwp_per_area_per_year"] = ToJson(row.gwpPerAreaPerYear);
}

std::string WriteJson(const Assessment& assessment, const std::vector<std::string>& warnings) {
    ordered_json json;
    json["model"] = DescribeModel(assessment.model);
    json["settings"] = DescribeSettings(assessment.model.GetModel());
    json["categories"] = ordered_json::array();
    for (std::size_t i = 0; i < assessment.palette.categories.size(); ++i) {
        const TableRow& row = assessment.palette.categories[i];
        ordered_json category;
        category["key"] = std::string(lca::GetKeyText(static_cast<lca::ElementCategory>(i)));
        category["label"] = row.label;
        category["service_life"] = ToJson(row.serviceLifeYears);
        category["percentage"] = ToJson(row.percentage);
        AddSums(row, category);
        json["categories"].push_back(std::move(category));
    }
    json["total"] = ordered_json::object();
    AddSums(assessment.palette.total, json["total"]);
    json["materials"] = DescribeMaterials(assessment.materials);
    json["warnings"] = warnings;
    return WriteJsonText(json);
}

std::string WriteTable(const PaletteContent& palette) {
    std::vector<std::vector<std::string>> rows = {palette.headers, palette.units};
    for (const TableRow& row : palette.categories)
        rows.push_back(row.cells);
    rows.push_back(palette.total.cells);
    return AlignColumnsWithTotal(rows,
                                 {Align::Left, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right}) +
           "Last update: " + palette.lastUpdate + "\n";
}

void PrintWarnings(const AssessOptions& options, const Assessment& assessment, const std::vector<Finding>& findings) {
    const double totalM3 = SumVolumeM3(assessment.model.GetModel());
    for (const std::string& line : options.isVerbose ? ListSentences(findings) : ListGroups(findings, totalM3))
        PrintWarning(line);
    for (const std::string& message : assessment.model.GetSession().GetMessages())
        PrintWarning(message);
    for (const std::string& note : assessment.notes)
        PrintNote(note);
}

} // namespace

Outcome RunAssess(const AssessOptions& options) {
    Result<Preparation> preparation = Prepare(options);
    if (preparation.HasFailed()) return preparation;
    Result<OpenedModel> opened = OpenModel(options.model, options.save);
    if (opened.HasFailed()) return opened;
    Assessment assessment{opened.Take(), {}, {}, {}, {}};
    if (Outcome outcome = Assess(options, preparation.Get(), assessment); outcome.HasFailed()) return outcome;
    const std::vector<std::string>& messages = assessment.model.GetSession().GetMessages();
    std::vector<Finding> findings = assessment.model.GetWarnings();
    findings.insert(findings.end(), assessment.findings.begin(), assessment.findings.end());
    std::vector<std::string> warnings = ListSentences(findings);
    warnings.insert(warnings.end(), messages.begin(), messages.end());
    if (!options.isQuiet) PrintWarnings(options, assessment, findings);
    warnings.insert(warnings.end(), assessment.notes.begin(), assessment.notes.end());
    if (!options.isQuiet && options.json != "-")
        if (Outcome outcome = WriteOutput({}, WriteTable(assessment.palette)); outcome.HasFailed()) return outcome;
    if (!options.json.empty())
        if (Outcome outcome = WriteOutput(options.json, WriteJson(assessment, warnings)); outcome.HasFailed())
            return outcome;
    if (options.isStrict && !assessment.findings.empty())
        return Failure::Findings(options.model.path + ": " + std::to_string(assessment.findings.size()) +
                                 " finding(s), the first: " + assessment.findings.front().sentence);
    return Outcome::Done();
}

} // namespace workbench::cli
