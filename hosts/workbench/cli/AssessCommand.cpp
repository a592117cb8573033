#include "workbench/app/EnergyTransfer.h"
#include "workbench/app/ModelInput.h"
#include "workbench/app/ModelSettings.h"
#include "workbench/app/Quantities.h"
#include "workbench/app/SchemaView.h"
#include "workbench/app/Session.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Placing.h"
#include "workbench/cli/Waiting.h"
#include "workbench/text/Letters.h"

#include <nlohmann/json.hpp>

namespace workbench::cli {

namespace {

using nlohmann::ordered_json;

/// Everything that is read before the model is touched, so that a bad argument changes nothing.
struct Preparation {
    MaterialTable table;
    RecordSettings settings;
    std::vector<ElementSetting> elements;
};

Outcome Prepare(const AssessOptions& options, Preparation& preparation) {
    if (Outcome failure = CheckSave(options.save)) return failure;
    if (!options.report.empty() && FoldCase(std::filesystem::path(options.report).extension().string()) != ".xlsx")
        return Failure{UsageError, "--report " + options.report + ": a spreadsheet report ends in .xlsx"};
    if (Outcome failure = CheckPlacing("--place-report", options.placeReport, options.save)) return failure;
    if (!options.window.empty() && options.placeReport.empty())
        return Failure{UsageError, "--window tells where the report is placed; give --place-report X,Y too"};
    if (!options.materials.empty())
        if (Outcome failure = MaterialTable::Read(options.materials, preparation.table)) return failure;
    if (!options.settings.empty())
        if (Outcome failure = preparation.settings.AddFile(options.settings)) return failure;
    for (const std::string& argument : options.sets)
        if (Outcome failure = preparation.settings.AddArgument(argument)) return failure;
    for (const std::string& argument : options.elements) {
        ElementSetting setting;
        if (Outcome failure = ParseElementSetting(argument, setting)) return failure;
        preparation.elements.push_back(std::move(setting));
    }
    return {};
}

std::string DescribeSource(ifc::FloorAreaSource source) {
    switch (source) {
    case ifc::FloorAreaSource::None:
        break;
    case ifc::FloorAreaSource::Building:
        return "the building's gross floor area";
    case ifc::FloorAreaSource::SpacesGross:
        return "sum of the spaces' gross floor areas";
    case ifc::FloorAreaSource::SpacesNet:
        return "sum of the spaces' net floor areas";
    case ifc::FloorAreaSource::SpacesMixed:
        return "sum of the spaces' gross, else net floor areas";
    }
    return "the model";
}

struct Assessment {
    ModelInput input;
    Session session;
    PaletteContent palette;
    MaterialReportContent materials;   ///< of the material report's dialog; only for JSON
    std::vector<std::string> findings; ///< what --strict stops at
    std::vector<std::string> notes;
};

Outcome ApplyAll(const Preparation& preparation, Assessment& assessment) {
    WorkbenchHost& host = assessment.session.GetHost();
    std::optional<double> area;
    std::string source;
    if (const auto& building = assessment.input.building) {
        area = building->grossFloorAreaM2;
        source = DescribeSource(building->grossFloorAreaSource);
    }
    // Settings first: the phases decide what a door's or window's row amounts to.
    if (Outcome failure = ApplyRecordSettings(host, preparation.settings, area, source, assessment.notes))
        return failure;
    if (!preparation.table.GetRows().empty())
        if (Outcome failure = ApplyMaterialTable(host, preparation.table)) return failure;
    if (preparation.elements.empty()) return {};
    return ApplyElementSettings(host, preparation.elements);
}

Outcome TakeEnergyData(const AssessOptions& options, Assessment& assessment) {
    EnergyTransfer transfer;
    if (Outcome failure = ExportEnergyData(assessment.session, options.energy, {}, transfer)) return failure;
    const std::vector<std::string> changes = DescribeChanges(transfer, options.energy);
    assessment.notes.insert(assessment.notes.end(), changes.begin(), changes.end());
    return {};
}

Outcome Assess(const AssessOptions& options, const Preparation& preparation, Assessment& assessment) {
    const KeepChanges keep = IsSameFile(options.model, options.save) ? KeepChanges::InFile : KeepChanges::InMemory;
    if (Outcome failure = ReadModel(options.model, keep, assessment.input)) return failure;
    if (Outcome failure = CheckElementSettings(assessment.input.project->model, preparation.elements)) return failure;
    const host::ProjectEvent event = assessment.input.building ? host::ProjectEvent::New : host::ProjectEvent::Open;
    const bool changesSettings = !preparation.table.GetRows().empty() || !options.sets.empty() ||
                                 !options.settings.empty() || !options.elements.empty() || !options.energy.empty();
    if (Outcome failure =
            assessment.session.StartAs(std::move(assessment.input.project), event, options.model, options.as,
                                       changesSettings ? Purpose::Changing : Purpose::Reading))
        return failure;
    if (const std::string& failure = assessment.session.GetProject().GetStoreFailure(); !failure.empty())
        return Failure{OutputUnwritable, failure};
    if (Outcome failure = ApplyAll(preparation, assessment)) return failure;
    if (!options.energy.empty())
        if (Outcome failure = TakeEnergyData(options, assessment)) return failure;
    if (!options.refuse.empty())
        assessment.session.GetHost().refusals.rule = [&](const std::string& operation, const host::Guid&) {
            return operation == options.refuse ? host::Errors::General : host::NoError;
        };
    if (Outcome failure = Calculate(assessment.session)) return failure;
    if (Outcome failure = assessment.session.ReadPalette(assessment.palette)) return failure;
    if (!options.placeReport.empty()) {
        host::Point point;
        if (Outcome failure = OpenWindow(assessment.session.GetHost(), options.window)) return failure;
        if (Outcome failure = ParsePoint("--place-report", options.placeReport, point)) return failure;
        if (Outcome failure = assessment.session.PlaceResultReport(point)) return failure;
    }
    if (!options.report.empty())
        if (Outcome failure = assessment.session.GenerateReport(options.report)) return failure;
    if (!options.charts.empty())
        if (Outcome failure = assessment.session.WriteCharts(options.charts)) return failure;
    if (!options.json.empty())
        if (Outcome failure = assessment.session.ReadMaterialReport(assessment.materials)) return failure;
    if (assessment.input.building) assessment.findings = ListFindings(*assessment.input.building);
    if (assessment.palette.isIncomplete)
        assessment.findings.push_back("the results are incomplete: not everything in the model could be read");
    for (std::string& missing : ListMissingValues(assessment.session.GetProject().model))
        assessment.findings.push_back(std::move(missing));
    if (options.save.empty() || keep == KeepChanges::InFile) return {};
    const std::string failure = SaveProject(assessment.session.GetProject(), options.save);
    return failure.empty() ? Outcome() : Failure{OutputUnwritable, failure};
}

ordered_json ToJson(const std::optional<double>& value) {
    return value ? ordered_json(*value) : ordered_json();
}

ordered_json DescribeModel(const AssessOptions& options, Assessment& assessment) {
    const Model& model = assessment.session.GetProject().model;
    ordered_json json;
    json["file"] = options.model;
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
    const auto& building = assessment.input.building;
    json["left_out"] = building ? ordered_json(building->leftOut) : ordered_json::object();
    json["sums_of_parts"] = building ? building->sumsOfParts.size() : 0;
    json["without_quantity"] = ordered_json::array();
    if (building)
        for (const ifc::ImportFinding& element : building->withoutQuantity)
            json["without_quantity"].push_back(element.globalId);
    return json;
}

ordered_json DescribeSettings(const Model& model) {
    ordered_json json = ordered_json::object();
    for (std::size_t i = lca::FirstProjectKey; i < lca::PropertyKeyCount; ++i) {
        const auto key = static_cast<lca::PropertyKey>(i);
        const host::PropertyDefinition* definition = FindLCADefinition(model, key);
        if (definition == nullptr) continue;
        const std::string name(lca::GetKeyText(key));
        switch (lca::GetStoredKind(key)) {
        case lca::StoredKind::Integer:
            json[name] = definition->defaultValue.integer;
            break;
        case lca::StoredKind::Real:
            json[name] = definition->defaultValue.real;
            break;
        case lca::StoredKind::Text:
            json[name] = definition->defaultValue.text;
            break;
        }
        if (key != lca::PropertyKey::GWPStandards) continue;
        const std::string_view unit = lca::GetKeyText(lca::ReadUnitMarker(definition->description));
        json[StandardsUnitKey] = unit.empty() ? "GWP_KG_M2_A" : std::string(unit);
    }
    return json;
}

void AddSums(const TableRow& row, ordered_json& json) {
    json["gwp"] = ToJson(row.gwp);
    json["gwp_per_area"] = ToJson(row.gwpPerArea);
    json["gwp_per_area_per_year"] = ToJson(row.gwpPerAreaPerYear);
}

std::string WriteJson(const AssessOptions& options, Assessment& assessment, const std::vector<std::string>& warnings) {
    ordered_json json;
    json["model"] = DescribeModel(options, assessment);
    json["settings"] = DescribeSettings(assessment.session.GetProject().model);
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
    // Names of a damaged model may hold bytes that are no UTF-8.
    return json.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

std::string WriteTable(const PaletteContent& palette) {
    std::vector<std::vector<std::string>> rows = {palette.headers, palette.units};
    for (const TableRow& row : palette.categories)
        rows.push_back(row.cells);
    rows.push_back(palette.total.cells);
    std::string text =
        AlignColumns(rows, {Align::Left, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right});
    const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
    const std::size_t width = text.find('\n');
    text.insert(lastLine, std::string(width, '-') + "\n");
    return text + "Last update: " + palette.lastUpdate + "\n";
}

} // namespace

Outcome RunAssess(const AssessOptions& options) {
    Preparation preparation;
    if (Outcome failure = Prepare(options, preparation)) return failure;
    Assessment assessment;
    if (Outcome failure = Assess(options, preparation, assessment)) return failure;
    std::vector<std::string> warnings = assessment.input.warnings;
    warnings.insert(warnings.end(), assessment.findings.begin(), assessment.findings.end());
    warnings.insert(warnings.end(), assessment.session.GetMessages().begin(), assessment.session.GetMessages().end());
    if (!options.isQuiet) {
        for (const std::string& warning : warnings)
            PrintWarning(warning);
        for (const std::string& note : assessment.notes)
            PrintNote(note);
    }
    warnings.insert(warnings.end(), assessment.notes.begin(), assessment.notes.end());
    if (!options.isQuiet && options.json != "-")
        if (Outcome failure = WriteOutput({}, WriteTable(assessment.palette))) return failure;
    if (!options.json.empty())
        if (Outcome failure = WriteOutput(options.json, WriteJson(options, assessment, warnings))) return failure;
    if (options.isStrict && !assessment.findings.empty())
        return Failure{StrictFindings, options.model + ": " + std::to_string(assessment.findings.size()) +
                                           " finding(s), the first: " + assessment.findings.front()};
    return {};
}

} // namespace workbench::cli
