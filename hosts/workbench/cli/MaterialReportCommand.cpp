// report-materials: the embodied carbon by layer and building material, and placing its report object.
#include "workbench/app/ModelInput.h"
#include "workbench/app/Session.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Placing.h"
#include "workbench/cli/Waiting.h"

#include <nlohmann/json.hpp>

namespace workbench::cli {

namespace {

Outcome CheckOptions(const MaterialReportOptions& options) {
    if (Outcome failure = CheckSave(options.save)) return failure;
    if (Outcome failure = CheckPlacing("--place", options.place, options.save)) return failure;
    if (options.place.empty() && !options.favorite.empty())
        return Failure{UsageError, "--favorite tells how the report is placed; give --place X,Y too"};
    return {};
}

std::string WriteTable(const MaterialReportContent& content) {
    std::vector<std::vector<std::string>> rows = {content.headers};
    for (const MaterialSumRow& row : content.rows)
        rows.push_back(row.cells);
    std::string text = AlignColumns(rows, {Align::Left, Align::Left, Align::Right});
    const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
    text.insert(lastLine, std::string(text.find('\n'), '-') + "\n");
    return text;
}

std::string WriteJson(const MaterialReportOptions& options, const MaterialReportContent& content,
                      const std::vector<std::string>& warnings) {
    nlohmann::ordered_json json;
    json["file"] = options.model;
    json["materials"] = DescribeMaterials(content);
    json["total"] = content.rows.back().gwp.value_or(0.0);
    json["warnings"] = warnings;
    return json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

Outcome Place(Session& session, const MaterialReportOptions& options, MaterialReportContent& content) {
    MaterialReportPlacing placing{{}, options.favorite};
    if (options.place.empty()) return session.ReadMaterialReport(content);
    if (Outcome failure = ParsePoint("--place", options.place, placing.point)) return failure;
    const std::size_t formerMessages = session.GetMessages().size();
    if (Outcome failure = session.ReadMaterialReport(content, &placing)) return failure;
    if (session.GetMessages().size() == formerMessages) return {};
    return Failure{InputUnreadable, session.GetMessages().back()};
}

} // namespace

nlohmann::ordered_json DescribeMaterials(const MaterialReportContent& content) {
    nlohmann::ordered_json materials = nlohmann::ordered_json::array();
    for (const MaterialSumRow& row : content.rows)
        if (row.kind == MaterialSumRow::Kind::Material)
            materials.push_back({{"layer", row.layer}, {"material", row.material}, {"gwp", row.gwp.value_or(0.0)}});
    return materials;
}

Outcome RunMaterialReport(const MaterialReportOptions& options) {
    if (Outcome failure = CheckOptions(options)) return failure;
    const KeepChanges keep = IsSameFile(options.model, options.save) ? KeepChanges::InFile : KeepChanges::InMemory;
    ModelInput input;
    if (Outcome failure = ReadModel(options.model, keep, input)) return failure;
    const host::ProjectEvent event = input.building ? host::ProjectEvent::New : host::ProjectEvent::Open;
    Session session;
    if (Outcome failure = session.StartAs(std::move(input.project), event, options.model, options.as, Purpose::Reading))
        return failure;
    if (Outcome failure = Calculate(session)) return failure;
    MaterialReportContent content;
    if (Outcome failure = Place(session, options, content)) return failure;
    if (const std::string& failure = session.GetProject().GetStoreFailure(); !failure.empty())
        return Failure{OutputUnwritable, failure};
    if (!options.save.empty() && keep == KeepChanges::InMemory) {
        const std::string failure = SaveProject(session.GetProject(), options.save);
        if (!failure.empty()) return Failure{OutputUnwritable, failure};
    }
    std::vector<std::string> warnings = input.warnings;
    warnings.insert(warnings.end(), session.GetMessages().begin(), session.GetMessages().end());
    for (const std::string& warning : warnings)
        PrintWarning(warning);
    if (options.json != "-")
        if (Outcome failure = WriteOutput({}, WriteTable(content))) return failure;
    return options.json.empty() ? Outcome() : WriteOutput(options.json, WriteJson(options, content, warnings));
}

} // namespace workbench::cli
