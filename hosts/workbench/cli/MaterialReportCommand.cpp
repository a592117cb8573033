// report-materials: the embodied carbon by layer and building material, and placing its report object.
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/FindingText.h"
#include "workbench/cli/JsonText.h"
#include "workbench/cli/Opening.h"
#include "workbench/cli/Options.h"

#include <nlohmann/json.hpp>

namespace workbench::cli {

namespace {

/// Where the report is placed; none where it is not.
Result<std::optional<host::Point>> CheckOptions(const MaterialReportOptions& options) {
    if (const Outcome outcome = CheckSave(options.save); outcome.HasFailed()) return outcome.GetFailure();
    Result<std::optional<host::Point>> place = ParsePlace("--place", options.place, options.save);
    if (!place.HasFailed() && options.place.empty() && !options.favorite.empty())
        return Failure::Usage("--favorite tells how the report is placed; give --place X,Y too");
    return place;
}

std::string WriteTable(const MaterialReportContent& content) {
    std::vector<std::vector<std::string>> rows = {content.headers};
    for (const MaterialSumRow& row : content.rows)
        rows.push_back(row.cells);
    return AlignColumnsWithTotal(rows, {Align::Left, Align::Left, Align::Right});
}

std::string WriteJson(const MaterialReportOptions& options, const MaterialReportContent& content,
                      const std::vector<std::string>& warnings) {
    nlohmann::ordered_json json;
    json["file"] = options.model.path;
    json["materials"] = DescribeMaterials(content);
    json["total"] = content.rows.back().gwp.value_or(0.0);
    json["warnings"] = warnings;
    return WriteJsonText(json);
}

Result<MaterialReportContent> ReadReport(Session& session, const std::optional<host::Point>& place,
                                         const std::string& favorite) {
    if (!place) return session.ReadMaterialReport();
    const MaterialReportPlacing placing{*place, favorite};
    const std::size_t formerMessages = session.GetMessages().size();
    Result<MaterialReportContent> content = session.ReadMaterialReport(&placing);
    if (content.GetCode() == ExitCode::Usage) return content.GetFailure().Named("--favorite " + favorite);
    if (!content.HasFailed() && session.GetMessages().size() > formerMessages)
        return Failure::Input(session.GetMessages().back());
    return content;
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
    Result<std::optional<host::Point>> place = CheckOptions(options);
    if (place.HasFailed()) return place;
    Result<OpenedModel> opened = OpenModel(options.model, options.save);
    if (opened.HasFailed()) return opened;
    OpenedModel& model = opened.Get();
    if (Outcome outcome = StartAs(model, options.as, Purpose::Reading); outcome.HasFailed()) return outcome;
    Session& session = model.GetSession();
    if (Outcome outcome = Calculate(session); outcome.HasFailed()) return outcome;
    Result<MaterialReportContent> content = ReadReport(session, place.Get(), options.favorite);
    if (const Outcome& stored = model.GetProject().GetStoreOutcome(); stored.HasFailed()) return stored;
    if (content.HasFailed()) return content;
    if (Outcome outcome = model.Save(); outcome.HasFailed()) return outcome;
    std::vector<std::string> warnings = ListSentences(model.GetWarnings());
    warnings.insert(warnings.end(), session.GetMessages().begin(), session.GetMessages().end());
    for (const std::string& warning : warnings)
        PrintWarning(warning);
    if (options.json != "-")
        if (Outcome outcome = WriteOutput({}, WriteTable(content.Get())); outcome.HasFailed()) return outcome;
    if (options.json.empty()) return Outcome::Done();
    return WriteOutput(options.json, WriteJson(options, content.Get(), warnings));
}

} // namespace workbench::cli
