// The result table: seven categories and a total, as numbers and as the texts that palette, report object and
// spreadsheet show. Pure: record and base sums in, table out.
#pragma once

#include "lca/GWPCalculation.h"
#include "lca/LCAProjectData.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lca {

/// GWP in kg CO2eq, per m2, and per m2 and year. Empty where the divisor area lies within 1e-5 of zero or the period is
/// 0: the table then shows "-" and counts 0.
struct CategoryResult {
    double gwp = 0.0;
    std::optional<double> gwpPerArea;
    std::optional<double> gwpPerAreaPerYear;
    std::optional<double> perPeriodGWP;           ///< before replacements; inventory, installations, construction
    std::optional<std::int32_t> serviceLifeYears; ///< where the row shows one
    std::optional<double> percentage;             ///< where the row shows one
    bool lacksServiceLife = false;                ///< a service life below 1 is used: the row's replacement factor is 0
};

struct Results {
    std::array<CategoryResult, CategoryCount> categories;
    double totalGwp = 0.0;
    double totalGwpPerArea = 0.0;
    double totalGwpPerAreaPerYear = 0.0;

    const CategoryResult& Get(ElementCategory category) const { return categories[static_cast<std::size_t>(category)]; }
};

Results ComputeResults(const LCAProjectData& record, const BaseSums& sums);

/// Whether every value is a number: extreme inputs can add up beyond what a double holds. The table shows "-" for what
/// is none, the charts leave it out.
bool IsFinite(const Results& results);

/// The total in the unit of the record's standards.
double GetTotalInUnit(const Results& results, GWPUnitType unit);

inline constexpr std::size_t TableColumns = 7;
/// From 0; the headers are row 0.
inline constexpr std::size_t UnitRow = 1, FirstCategoryRow = 2, TotalRow = FirstCategoryRow + CategoryCount;
inline constexpr std::size_t TableRows = TotalRow + 1;

/// Texts that the table takes over as they are.
struct TableLabels {
    std::array<std::string, TableColumns> headers;
    std::array<std::string, 5> units; ///< of columns 3 to 7
    std::array<std::string, CategoryCount> categories;
    std::string total;
};

using NumberFormatter = std::function<std::string(double)>;

/// 70 texts, row by row. A value that does not exist or is not finite is "-"; colour column and the unit row's first
/// two are empty.
std::vector<std::string> BuildTableText(const Results& results, const TableLabels& labels,
                                        const NumberFormatter& formatNumber);

/// Red, green, blue (0-255) of the seven category colours, 21 values; black where the record has none.
std::vector<double> BuildTypeColours(const LCAProjectData& record);

} // namespace lca
