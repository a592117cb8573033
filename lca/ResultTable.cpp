#include "lca/ResultTable.h"

#include <cmath>

namespace lca {

namespace {

constexpr char NoValue[] = "-";

/// Operational emission over the period less what the solar yield saves in electricity.
double ComputeOperatingGWP(const LCAProjectData& record, double periodYears) {
    const bool isLimited = record.GetFloorChoice(FloorQuantity::MaxSolarContribution) == FloorSource::EnergyEvaluation;
    const double solarYieldKWh = isLimited ? record.GetFloorValue(FloorQuantity::MaxSolarContribution) *
                                                 record.GetFloorValue(FloorQuantity::GrossFloorArea)
                                           : record.GetFloorValue(FloorQuantity::SolarPanels);
    return periodYears * record.GetFloorValue(FloorQuantity::OperationalEmission) -
           periodYears * record.GetFloorValue(FloorQuantity::ElectricitySourceFactor) * solarYieldKWh;
}

/// Replacement factor of a category by its own service life, noted in the row.
double TakeProvisions(const LCAProjectData& record, ElementCategory category, CategoryResult& row) {
    const std::int32_t life = ValueOr(record.elementLives, category, std::int32_t{0});
    row.serviceLifeYears = life;
    row.lacksServiceLife = life < 1;
    return row.lacksServiceLife ? 0.0 : static_cast<double>(CountProvisions(record.consideredServiceLifeYears, life));
}

/// Inventory, installations and construction: a share of the building, or a value stated directly.
void ComputeShare(const LCAProjectData& record, ElementCategory category, double buildingGWP, CategoryResult& row) {
    if (!ValueOr(record.contributionEnabled, category, false)) {
        row.gwp = ValueOr(record.contributionGWP, category, 0.0);
        row.perPeriodGWP = row.gwp;
        return;
    }
    const double percentage = ValueOr(record.contributionShare, category, 0.0);
    row.percentage = percentage;
    row.perPeriodGWP = percentage / 100.0 * buildingGWP;
    row.gwp = *row.perPeriodGWP;
    if (GetRow(category).hasServiceLife) row.gwp *= TakeProvisions(record, category, row);
}

void DivideByArea(CategoryResult& row, double areaM2, std::uint32_t periodYears) {
    if (std::fabs(areaM2) <= SmallestArea) return;
    row.gwpPerArea = row.gwp / areaM2;
    if (periodYears > 0) row.gwpPerAreaPerYear = *row.gwpPerArea / periodYears;
}

} // namespace

Results ComputeResults(const LCAProjectData& record, const BaseSums& sums) {
    Results results;
    double buildingGWP = 0.0;
    for (const CategoryRow& category : CategoryRows)
        if (category.sum != nullptr) buildingGWP += sums.*category.sum;
    for (const CategoryRow& category : CategoryRows) {
        CategoryResult& row = results.categories[static_cast<std::size_t>(category.category)];
        if (category.isShare)
            ComputeShare(record, category.category, buildingGWP, row);
        else if (category.sum == nullptr)
            row.gwp = ComputeOperatingGWP(record, record.consideredServiceLifeYears);
        else if (category.hasServiceLife)
            row.gwp = TakeProvisions(record, category.category, row) * sums.*category.sum;
        else
            row.gwp = sums.*category.sum;
        DivideByArea(row, record.GetFloorValue(category.area), record.consideredServiceLifeYears);
        results.totalGwp += row.gwp;
        results.totalGwpPerArea += row.gwpPerArea.value_or(0.0);
        results.totalGwpPerAreaPerYear += row.gwpPerAreaPerYear.value_or(0.0);
    }
    return results;
}

bool IsFinite(const Results& results) {
    // A row that is none spoils the total in the same unit.
    return std::isfinite(results.totalGwp) && std::isfinite(results.totalGwpPerArea) &&
           std::isfinite(results.totalGwpPerAreaPerYear);
}

double GetTotalInUnit(const Results& results, GWPUnitType unit) {
    if (unit == GWPUnitType::Total) return results.totalGwp;
    return unit == GWPUnitType::PerArea ? results.totalGwpPerArea : results.totalGwpPerAreaPerYear;
}

std::vector<std::string> BuildTableText(const Results& results, const TableLabels& labels,
                                        const NumberFormatter& formatNumber) {
    std::vector<std::string> texts(labels.headers.begin(), labels.headers.end());
    texts.reserve(TableColumns * TableRows);
    texts.insert(texts.end(), 2, std::string());
    texts.insert(texts.end(), labels.units.begin(), labels.units.end());
    const auto add = [&](const std::optional<double>& value) {
        texts.push_back(value && std::isfinite(*value) ? formatNumber(*value) : std::string(NoValue));
    };
    for (std::size_t i = 0; i < CategoryCount; ++i) {
        const CategoryResult& row = results.categories[i];
        texts.insert(texts.end(), {std::string(), labels.categories[i]});
        add(row.serviceLifeYears);
        add(row.percentage);
        add(row.gwp);
        add(row.gwpPerArea);
        add(row.gwpPerAreaPerYear);
    }
    texts.insert(texts.end(), {std::string(), labels.total, NoValue, NoValue});
    add(results.totalGwp);
    add(results.totalGwpPerArea);
    add(results.totalGwpPerAreaPerYear);
    return texts;
}

std::vector<double> BuildTypeColours(const LCAProjectData& record) {
    std::vector<double> channels;
    for (const CategoryRow& row : CategoryRows) {
        const Colour colour = ValueOr(record.elementColours, row.category, Colour());
        channels.insert(channels.end(), {double(colour.red), double(colour.green), double(colour.blue)});
    }
    return channels;
}

} // namespace lca
