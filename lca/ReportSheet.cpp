#include "lca/ReportSheet.h"

#include "text/Utf8.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace lca {

namespace {

constexpr std::size_t TextColumns = 2; ///< the others hold numbers

/// The four numbers of a row that are left blank unless they are above 0.
struct Inputs {
    double embodied = 0.0; ///< kg CO2e
    double percentage = 0.0;
    double serviceLifeYears = 0.0;
    double replacements = 0.0;
};

SheetCell TextCell(CellRole role, std::string text) {
    return {role, std::move(text), {}};
}

SheetCell NumberCell(CellRole role, double number) {
    return {role, {}, number == 0.0 ? 0.0 : number}; // no sign on a zero
}

SheetCell InputCell(double number) {
    return number > 0.0 ? NumberCell(CellRole::Number, number) : TextCell(CellRole::Text, {});
}

SheetCell AsYears(SheetCell cell) {
    cell.decimals = 0;
    return cell;
}

CellRole GetLabelRole(const CategoryRow& row) {
    return row.sum == nullptr && !row.hasServiceLife ? CellRole::StageLabel : CellRole::PartLabel;
}

Inputs WithServiceLife(double embodied, double percentage, double periodYears, double serviceLifeYears) {
    return {embodied, percentage, serviceLifeYears, periodYears / serviceLifeYears};
}

Inputs GetInputs(const LCAProjectData& record, const BaseSums& sums, const Results& results, const CategoryRow& row) {
    const double period = record.consideredServiceLifeYears;
    const double life = row.hasServiceLife ? ValueOr(record.elementLives, row.category, 0) : period;
    if (row.sum != nullptr) return WithServiceLife(sums.*row.sum, 0.0, period, life);
    if (!row.isShare) return {record.GetFloorValue(FloorQuantity::OperationalEmission), 0.0, 0.0, 0.0};
    const double perPeriod = results.Get(row.category).perPeriodGWP.value_or(0.0);
    const auto share = [&](ElementCategory category) { return ValueOr(record.contributionShare, category, 0.0); };
    if (row.hasServiceLife) return WithServiceLife(perPeriod, share(row.category), period, life);
    // The construction process shows the percentage of the installations.
    return {perPeriod, share(ElementCategory::Installations), 0.0, 0.0};
}

/// By category; null for those that go on with the stage above them.
constexpr std::string ReportSheetTexts::*StageTexts[] = {&ReportSheetTexts::useStage,
                                                         &ReportSheetTexts::productStageAndEndOfLife,
                                                         &ReportSheetTexts::countedPhases,
                                                         nullptr,
                                                         nullptr,
                                                         nullptr,
                                                         &ReportSheetTexts::constructionStage};
static_assert(std::size(StageTexts) == CategoryCount);

SheetRow BuildHeader(const ReportSheetTexts& texts) {
    SheetRow row;
    for (std::string header : texts.headers) {
        std::replace(header.begin(), header.end(), '\r', '\n');
        const CellRole role = row.size() < TextColumns ? CellRole::Header : CellRole::NumberHeader;
        row.push_back(TextCell(role, std::move(header)));
    }
    return row;
}

SheetRow BuildRow(CellRole label, const std::string& name, const std::string& stage, const Inputs& inputs) {
    return {TextCell(label, name),
            TextCell(CellRole::Text, stage),
            InputCell(inputs.embodied),
            InputCell(inputs.percentage),
            AsYears(InputCell(inputs.serviceLifeYears)),
            InputCell(inputs.replacements)};
}

} // namespace

std::vector<SheetRow> BuildResultSheet(const LCAProjectData& record, const BaseSums& sums, const Results& results,
                                       const ReportSheetTexts& texts) {
    std::vector<SheetRow> rows = {BuildHeader(texts)};
    for (std::size_t i = 0; i < CategoryCount; ++i) {
        const CategoryRow& category = CategoryRows[i];
        SheetRow row = BuildRow(GetLabelRole(category), texts.categories[i],
                                StageTexts[i] == nullptr ? std::string() : texts.*StageTexts[i],
                                GetInputs(record, sums, results, category));
        const CategoryResult& result = results.categories[i];
        for (const double number :
             {result.gwp, result.gwpPerArea.value_or(0.0), result.gwpPerAreaPerYear.value_or(0.0)})
            row.push_back(NumberCell(CellRole::Number, number));
        rows.push_back(std::move(row));
    }
    SheetRow total = BuildRow(CellRole::TotalLabel, texts.total, {}, {});
    total.push_back(NumberCell(CellRole::TotalNumber, results.totalGwp));
    total.push_back(NumberCell(CellRole::TotalNumber, results.totalGwpPerArea));
    total.push_back(NumberCell(CellRole::TotalPerYear, results.totalGwpPerAreaPerYear));
    rows.push_back(std::move(total));
    rows.emplace_back();
    // Beside the label a cell stays free, over which it goes on.
    rows.push_back({TextCell(CellRole::NoteLabel, texts.consideredPeriod), TextCell(CellRole::NoteLabel, {}),
                    AsYears(NumberCell(CellRole::NoteNumber, record.consideredServiceLifeYears))});
    rows.push_back({TextCell(CellRole::NoteLabel, texts.grossFloorArea), TextCell(CellRole::NoteLabel, {}),
                    NumberCell(CellRole::NoteNumber, record.GetFloorValue(FloorQuantity::GrossFloorArea))});
    return rows;
}

unsigned CountShownDecimals(double number, unsigned most) {
    if (!std::isfinite(number)) return most;
    constexpr int DecimalsOfOnes = 5; ///< of six digits
    char text[32];
    std::snprintf(text, sizeof text, "%.*e", DecimalsOfOnes, number);
    const int exponent = std::atoi(std::strchr(text, 'e') + 1);
    return static_cast<unsigned>(std::clamp(DecimalsOfOnes - exponent, 0, static_cast<int>(most)));
}

std::string MakeCellText(const std::string& text) {
    return text.rfind('=', 0) == 0 ? " " + text : text;
}

std::string MakeSheetName(const std::string& name) {
    constexpr std::size_t LongestName = 31;
    std::string result(utf8::CutToCharacters(name, LongestName));
    std::replace_if(
        result.begin(), result.end(),
        [](char letter) { return std::string_view("*/:?[\\]").find(letter) != std::string_view::npos; }, '_');
    return result;
}

} // namespace lca
