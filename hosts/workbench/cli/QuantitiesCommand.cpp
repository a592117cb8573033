// quantities: what each element is made of, how much of it, and where the numbers come from.
#include "workbench/app/Quantities.h"
#include "workbench/app/QuantityTable.h"
#include "workbench/app/Text.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/FindingText.h"
#include "workbench/cli/JsonText.h"
#include "workbench/cli/Opening.h"
#include "workbench/text/Letters.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>

namespace workbench::cli {

namespace {

using nlohmann::ordered_json;
using Rows = std::vector<std::vector<std::string>>;

constexpr char OnlyDoubtful[] = "doubtful";

/// What the options ask for, checked.
struct Request {
    std::vector<SumKey> keys; ///< none: each part of each element
    bool isDoubtfulOnly = false;
    bool isJson = false;
};

std::optional<SumKey> FindSumKey(const std::string& name) {
    const auto found = std::find(std::begin(SumKeyNames), std::end(SumKeyNames), name);
    if (found == std::end(SumKeyNames)) return std::nullopt;
    return static_cast<SumKey>(found - std::begin(SumKeyNames));
}

Result<std::vector<SumKey>> ParseKeys(const std::string& list) {
    std::vector<SumKey> keys;
    for (std::size_t begin = 0; !list.empty() && begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        const std::optional<SumKey> key = FindSumKey(list.substr(begin, end - begin));
        if (!key || std::find(keys.begin(), keys.end(), *key) != keys.end())
            return Failure::Usage("--by " + list + ": it is type, storey, layer, material, each at most once");
        keys.push_back(*key);
        begin = end + 1;
    }
    return keys;
}

Result<Request> ParseRequest(const QuantitiesOptions& options) {
    Result<std::vector<SumKey>> keys = ParseKeys(options.by);
    if (keys.HasFailed()) return keys.GetFailure();
    if (!options.only.empty() && options.only != OnlyDoubtful)
        return Failure::Usage("--only " + options.only + ": it is doubtful");
    if (options.model.everyBody && IsProjectFile(options.model.path))
        return Failure::Usage("--compute: " + options.model.path + " is a project file, which has no bodies");
    const std::string extension = FoldCase(std::filesystem::path(options.output).extension().string());
    if (!options.output.empty() && extension != ".csv" && extension != ".json")
        return Failure::Usage("--out " + options.output + ": a table of quantities ends in .csv or .json");
    return Request{keys.Take(), !options.only.empty(), extension == ".json"};
}

std::string ShowCell(const Cell& cell, const TableColumn& column) {
    if (const auto* text = std::get_if<std::string>(&cell)) return PutOnOneLine(*text);
    if (const auto* count = std::get_if<std::int64_t>(&cell)) return std::to_string(*count);
    if (const auto* number = std::get_if<double>(&cell)) return FormatShort(*number, column.decimals);
    return "-";
}

bool IsEmpty(const QuantityTable& table, std::size_t column) {
    return std::all_of(table.rows.begin(), table.rows.end(), [&](const std::vector<Cell>& row) {
        return std::holds_alternative<std::monostate>(row[column]);
    });
}

/// What is made of columns in which nothing is known.
enum class EmptyColumns { Shown, Hidden };

/// Without the columns that are for files.
std::string ShowTable(const QuantityTable& table, EmptyColumns empty) {
    Rows rows(table.rows.size() + 1);
    std::vector<Align> alignment;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const TableColumn& column = table.columns[i];
        if (*column.heading == '\0' || (empty == EmptyColumns::Hidden && IsEmpty(table, i))) continue;
        alignment.push_back(column.decimals == NoNumber ? Align::Left : Align::Right);
        rows.front().emplace_back(column.heading);
        for (std::size_t row = 0; row < table.rows.size(); ++row)
            rows[row + 1].push_back(ShowCell(table.rows[row][i], column));
    }
    return AlignColumns(rows, alignment);
}

std::string ShowSources(const QuantitySummary& summary) {
    Rows rows = {{"Volume from", "Elements", "Volume (m3)", "Share"}};
    for (const VolumeSource& source : summary.sources) {
        const std::string share = FormatShare(source.volumeM3, summary.volumeM3);
        rows.push_back({source.origin, std::to_string(source.elements), FormatShort(source.volumeM3, 3),
                        share.empty() ? "-" : share});
    }
    rows.push_back({"total", std::to_string(summary.elements), FormatShort(summary.volumeM3, 3), ""});
    return AlignColumnsWithTotal(rows, {Align::Left, Align::Right, Align::Right, Align::Right});
}

std::string ShowSummary(const OpenedModel& opened, const std::vector<ElementQuantities>& elements,
                        const QuantitySummary& summary) {
    std::string text = opened.GetPath() + "\n\n" + ShowSources(summary);
    text += "\nStated and computed volume: " + std::to_string(summary.compared) + " elements have both";
    if (summary.compared > 0)
        text += "; of " + FormatShort(summary.statedM3, 3) + " m3 stated they differ by " +
                FormatShort(summary.differenceM3, 3) + " m3 in sum";
    const std::string share = FormatShare(summary.doubtfulVolumeM3, summary.volumeM3);
    text += "\nDoubtful: " + std::to_string(summary.doubtful) + " of " + std::to_string(summary.elements) +
            " elements" + (share.empty() ? "" : ", " + share + " of the volume") + "\n";
    return text + WriteGroups(ListDoubts(elements), summary.volumeM3);
}

ordered_json ToJson(const Cell& cell) {
    if (std::holds_alternative<std::monostate>(cell)) return nullptr;
    if (const auto* text = std::get_if<std::string>(&cell)) return *text;
    if (const auto* count = std::get_if<std::int64_t>(&cell)) return *count;
    return std::get<double>(cell);
}

ordered_json DescribeSummary(const QuantitySummary& summary) {
    ordered_json sources = ordered_json::array();
    for (const VolumeSource& source : summary.sources)
        sources.push_back(
            {{"volume_source", source.origin}, {"elements", source.elements}, {"volume_m3", source.volumeM3}});
    return {{"elements", summary.elements},
            {"volume_m3", summary.volumeM3},
            {"volume_sources", sources},
            {"compared_elements", summary.compared},
            {"compared_stated_m3", summary.statedM3},
            {"compared_difference_m3", summary.differenceM3},
            {"doubtful_elements", summary.doubtful},
            {"doubtful_volume_m3", summary.doubtfulVolumeM3}};
}

std::string WriteJson(const OpenedModel& opened, const QuantitySummary& summary, const QuantityTable& table,
                      const char* listName) {
    ordered_json json;
    json["file"] = opened.GetPath();
    json["summary"] = DescribeSummary(summary);
    ordered_json& list = json[listName] = ordered_json::array();
    for (const std::vector<Cell>& row : table.rows) {
        ordered_json entry;
        for (std::size_t i = 0; i < row.size(); ++i)
            entry[table.columns[i].key] = ToJson(row[i]);
        list.push_back(std::move(entry));
    }
    return WriteJsonText(json);
}

/// For the screen, where what is to be looked at comes first.
void PutDoubtfulFirst(std::vector<ElementQuantities>& elements) {
    std::stable_partition(elements.begin(), elements.end(),
                          [](const ElementQuantities& one) { return !one.doubts.empty(); });
}

Outcome WriteTable(const QuantitiesOptions& options, const Request& request, const OpenedModel& opened,
                   std::vector<ElementQuantities> elements, const QuantitySummary& summary) {
    const Model& model = opened.GetModel();
    if (request.isDoubtfulOnly)
        std::erase_if(elements, [](const ElementQuantities& one) { return one.doubts.empty(); });
    if (options.output.empty()) PutDoubtfulFirst(elements);
    const bool isSummed = !request.keys.empty();
    const QuantityTable table = isSummed ? SumParts(model, elements, request.keys) : ListParts(model, elements);
    if (options.output.empty())
        return WriteOutput(
            {}, std::string("\n").append(ShowTable(table, isSummed ? EmptyColumns::Shown : EmptyColumns::Hidden)));
    return WriteOutput(options.output, request.isJson
                                           ? WriteJson(opened, summary, table, isSummed ? "sums" : "components")
                                           : WriteCsv(table));
}

} // namespace

Outcome RunQuantities(const QuantitiesOptions& options) {
    Result<Request> request = ParseRequest(options);
    if (request.HasFailed()) return request;
    const Result<OpenedModel> opened = OpenModel(options.model);
    if (opened.HasFailed()) return opened;
    const Model& model = opened.Get().GetModel();
    for (const std::string& line : ListGroups(opened.Get().GetWarnings(), SumVolumeM3(model)))
        PrintWarning(line);
    const std::vector<ElementQuantities> elements = ListQuantities(model);
    const QuantitySummary summary = Summarise(elements);
    if (Outcome shown = WriteOutput({}, ShowSummary(opened.Get(), elements, summary)); shown.HasFailed()) return shown;
    return WriteTable(options, request.Get(), opened.Get(), elements, summary);
}

} // namespace workbench::cli
