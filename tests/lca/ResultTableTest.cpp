// The result table. Expected numbers are computed by hand beside each case.
#include "lca/ResultTable.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

using lca::ElementCategory;
using lca::FloorQuantity;
using lca::FloorSource;
using lca::LCAProjectData;

LCAProjectData MakeRecord() {
    LCAProjectData
        record; // period 50, doors and windows 25, inventory 30 at 5 %, installations 25 at 10 %, process 10 %
    record.SetFloorValue(FloorQuantity::GrossFloorArea, FloorSource::ByHand, 200);
    record.SetFloorValue(FloorQuantity::ReferenceFloorArea, FloorSource::ByHand, 100);
    return record;
}

double GWPOf(const LCAProjectData& record, const lca::BaseSums& sums, ElementCategory category) {
    return lca::ComputeResults(record, sums).Get(category).gwp;
}

TEST(Results, DoorsCountTheirProvisions) {
    LCAProjectData record = MakeRecord();
    const lca::BaseSums sums{0, 1000, 0};
    for (const auto& [life, gwp] :
         std::vector<std::pair<std::int32_t, double>>{{30, 2000}, {50, 1000}, {25, 2000}, {1, 50000}}) {
        record.elementLives[ElementCategory::Doors] = life;
        EXPECT_DOUBLE_EQ(GWPOf(record, sums, ElementCategory::Doors), gwp) << life;
    }
}

TEST(Results, InventoryIsAShareOrAFixedValue) {
    LCAProjectData record = MakeRecord();
    record.contributionShare[ElementCategory::Inventory] = 10;
    record.elementLives[ElementCategory::Inventory] = 50;
    const lca::BaseSums sums{500, 300, 200};
    lca::CategoryResult row = lca::ComputeResults(record, sums).Get(ElementCategory::Inventory);
    EXPECT_DOUBLE_EQ(row.gwp, 100);
    EXPECT_DOUBLE_EQ(row.perPeriodGWP.value(), 100);
    EXPECT_EQ(row.percentage, 10);
    record.contributionEnabled[ElementCategory::Inventory] = false;
    record.contributionGWP[ElementCategory::Inventory] = 42;
    row = lca::ComputeResults(record, sums).Get(ElementCategory::Inventory);
    EXPECT_DOUBLE_EQ(row.gwp, 42);
    EXPECT_FALSE(row.percentage.has_value());
    EXPECT_FALSE(row.serviceLifeYears.has_value());
}

TEST(Results, ConstructionIsNeverMultiplied) {
    LCAProjectData record = MakeRecord();
    record.elementLives[ElementCategory::BuildingProcess] = 5;
    EXPECT_DOUBLE_EQ(GWPOf(record, {500, 300, 200}, ElementCategory::BuildingProcess), 100);
}

TEST(Results, OperationLessSolar) {
    LCAProjectData record = MakeRecord();
    record.SetFloorValue(FloorQuantity::OperationalEmission, FloorSource::ByHand, 1000);
    record.SetFloorValue(FloorQuantity::SolarPanels, FloorSource::ByHand, 2000);
    // 50 * 1000 - 50 * 0.053 * 2000
    EXPECT_DOUBLE_EQ(GWPOf(record, {}, ElementCategory::OperatingEmission), 44700);
    record.SetFloorValue(FloorQuantity::MaxSolarContribution, FloorSource::EnergyEvaluation, 25);
    record.SetFloorChoice(FloorQuantity::MaxSolarContribution, FloorSource::EnergyEvaluation);
    // 50 * 1000 - 50 * 0.053 * 25 * 200
    EXPECT_DOUBLE_EQ(GWPOf(record, {}, ElementCategory::OperatingEmission), 36750);
}

TEST(Results, OperationDividesByTheGrossAreaOnly) {
    LCAProjectData record = MakeRecord();
    record.SetFloorValue(FloorQuantity::OperationalEmission, FloorSource::ByHand, 1000);
    const lca::Results results = lca::ComputeResults(record, {1000, 0, 0});
    EXPECT_DOUBLE_EQ(results.Get(ElementCategory::OperatingEmission).gwpPerArea.value(), 250); // 50000 / 200
    EXPECT_DOUBLE_EQ(results.Get(ElementCategory::BuildingComponents).gwpPerArea.value(), 10); // 1000 / 100
    EXPECT_DOUBLE_EQ(results.Get(ElementCategory::BuildingComponents).gwpPerAreaPerYear.value(), 0.2);
}

TEST(Results, TotalsAreTheSumsOfTheRows) {
    const lca::Results results = lca::ComputeResults(MakeRecord(), {5000, 300, 700});
    // 5000 + 2*300 + 2*700 + 5% of 6000 * 2 + 10% of 6000 * 2 + 10% of 6000
    EXPECT_DOUBLE_EQ(results.totalGwp, 5000 + 600 + 1400 + 600 + 1200 + 600);
    EXPECT_DOUBLE_EQ(results.totalGwpPerArea, 94);
    EXPECT_DOUBLE_EQ(results.totalGwpPerAreaPerYear, 1.88);
    EXPECT_EQ(lca::GetTotalInUnit(results, lca::GWPUnitType::Total), results.totalGwp);
    EXPECT_EQ(lca::GetTotalInUnit(results, lca::GWPUnitType::PerAreaAndYear), results.totalGwpPerAreaPerYear);
}

TEST(Results, AnAreaOrPeriodOfZeroLeavesGaps) {
    const struct {
        double areaM2;
        std::uint32_t periodYears;
        std::optional<double> perArea, perAreaPerYear, areaYears;
    } rows[] = {{1e-5, 50, {}, {}, {}},
                {-1e-5, 50, {}, {}, {}},
                {2e-5, 50, 5e7, 1e6, 1e-3},
                {-100, 50, -10, -0.2, -5000}, // no sense, but no gap
                {100, 0, 10, {}, {}}};
    for (const auto& row : rows) {
        LCAProjectData record = MakeRecord();
        record.SetFloorValue(FloorQuantity::ReferenceFloorArea, FloorSource::ByHand, row.areaM2);
        record.consideredServiceLifeYears = row.periodYears;
        const lca::Results results = lca::ComputeResults(record, {1000, 0, 0});
        const lca::CategoryResult& components = results.Get(ElementCategory::BuildingComponents);
        const auto expectEqual = [&](std::optional<double> found, std::optional<double> expected) {
            ASSERT_EQ(found.has_value(), expected.has_value()) << row.areaM2;
            EXPECT_DOUBLE_EQ(found.value_or(0.0), expected.value_or(0.0)) << row.areaM2;
        };
        expectEqual(components.gwpPerArea, row.perArea);
        expectEqual(components.gwpPerAreaPerYear, row.perAreaPerYear);
        expectEqual(record.GetAreaYears(), row.areaYears);
        // The operation has an area of its own; a gap counts 0.
        EXPECT_TRUE(results.Get(ElementCategory::OperatingEmission).gwpPerArea.has_value());
        EXPECT_EQ(results.totalGwpPerAreaPerYear == 0.0, !row.perAreaPerYear.has_value()) << row.areaM2;
    }
}

TEST(Results, ServiceLivesBelowOneAreToldOnlyWhereUsed) {
    LCAProjectData record = MakeRecord();
    record.elementLives = {{ElementCategory::Windows, 0}, {ElementCategory::Inventory, -3}};
    record.contributionEnabled[ElementCategory::Installations] = false;
    const lca::Results results = lca::ComputeResults(record, {100, 10, 10});
    EXPECT_TRUE(results.Get(ElementCategory::Doors).lacksServiceLife); // no entry counts as 0
    EXPECT_TRUE(results.Get(ElementCategory::Windows).lacksServiceLife);
    EXPECT_TRUE(results.Get(ElementCategory::Inventory).lacksServiceLife);
    EXPECT_FALSE(results.Get(ElementCategory::Installations).lacksServiceLife);
    EXPECT_FALSE(results.Get(ElementCategory::BuildingProcess).lacksServiceLife);
    EXPECT_EQ(results.Get(ElementCategory::Windows).gwp, 0);
}

std::string TwoDecimals(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

TEST(TableText, TenRowsOfSevenTexts) {
    lca::TableLabels labels;
    labels.headers = {"Col.", "Type", "Service life", "Contribution", "GWP", "per area", "per year"};
    labels.units = {"(year)", "(%)", "(kg)", "(kg/m2)", "(kg/m2/a)"};
    labels.categories = {"B6", "Parts", "Doors", "Windows", "Inventory", "Installations", "Process"};
    labels.total = "TOTAL";
    LCAProjectData record = MakeRecord();
    record.SetFloorValue(FloorQuantity::GrossFloorArea, FloorSource::ByHand, 0);
    const auto texts = lca::BuildTableText(lca::ComputeResults(record, {5000, 300, 700}), labels, TwoDecimals);
    ASSERT_EQ(texts.size(), 70U);
    using Row = std::vector<std::string>;
    const auto row = [&](std::ptrdiff_t r) { return Row(texts.begin() + 7 * r, texts.begin() + 7 * (r + 1)); };
    EXPECT_EQ(row(1), (Row{"", "", "(year)", "(%)", "(kg)", "(kg/m2)", "(kg/m2/a)"}));
    EXPECT_EQ(row(2), (Row{"", "B6", "-", "-", "0.00", "-", "-"}));
    EXPECT_EQ(row(3), (Row{"", "Parts", "-", "-", "5000.00", "50.00", "1.00"}));
    EXPECT_EQ(row(4), (Row{"", "Doors", "25.00", "-", "600.00", "6.00", "0.12"}));
    EXPECT_EQ(row(6), (Row{"", "Inventory", "30.00", "5.00", "600.00", "6.00", "0.12"}));
    EXPECT_EQ(row(8), (Row{"", "Process", "-", "10.00", "600.00", "6.00", "0.12"}));
    EXPECT_EQ(row(9), (Row{"", "TOTAL", "-", "-", "9400.00", "94.00", "1.88"}));
}

TEST(TypeColours, TwentyOneChannels) {
    LCAProjectData record;
    record.elementColours.erase(ElementCategory::Doors);
    const std::vector<double> channels = lca::BuildTypeColours(record);
    ASSERT_EQ(channels.size(), 21U);
    EXPECT_EQ((std::vector<double>(channels.begin(), channels.begin() + 9)),
              (std::vector<double>{179, 109, 77, 43, 130, 226, 0, 0, 0}));
}

} // namespace
