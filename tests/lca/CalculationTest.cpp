// GWP of a component and the sums by layer and material. Expected values are computed by hand beside each case.
#include "lca/GWPCalculation.h"
#include "lca/MaterialSumTable.h"

#include <gtest/gtest.h>

namespace {

using lca::MaterialUnit;
using lca::MaterialValues;

struct ComponentCase {
    const char* name;
    MaterialValues material;
    double share, volumeM3, areaM2;
    std::uint32_t periodYears;
    double gwp;
};

class ComponentTest : public testing::TestWithParam<ComponentCase> {};

TEST_P(ComponentTest, EqualsTheSumByHand) {
    const ComponentCase& one = GetParam();
    EXPECT_DOUBLE_EQ(lca::ComputeContribution(one.material, one.share, one.volumeM3, one.areaM2, one.periodYears).gwp,
                     one.gwp);
}

INSTANTIATE_TEST_SUITE_P(
    Components, ComponentTest,
    testing::Values(
        ComponentCase{"WallWithoutServiceLife", {300, {}, MaterialUnit::CubicMetre, 0, 0}, 1, 2, 9, 50, 600},
        ComponentCase{"ProvidedThreeTimes", {300, {}, MaterialUnit::CubicMetre, 20, 0}, 1, 2, 9, 50, 1800},
        ComponentCase{"ProvidedTwice", {300, {}, MaterialUnit::CubicMetre, 25, 0}, 1, 2, 9, 50, 1200},
        ComponentCase{"OutlivesThePeriod", {300, {}, MaterialUnit::CubicMetre, 80, 0}, 1, 2, 9, 50, 600},
        ComponentCase{"NegativeLifeIsNone", {300, {}, MaterialUnit::CubicMetre, -5, 0}, 1, 2, 9, 50, 600},
        ComponentCase{"ByMass", {1.5, {}, MaterialUnit::Kilogram, 0, 500}, 1, 2, 9, 50, 1500},
        ComponentCase{"ByMassTwice", {1.5, {}, MaterialUnit::Kilogram, 30, 500}, 1, 2, 9, 50, 3000},
        ComponentCase{"ByArea", {10, {}, MaterialUnit::SquareMetre, 0, 0}, 1, 2, 9, 50, 90},
        ComponentCase{"HalfCounts", {300, {}, MaterialUnit::CubicMetre, 20, 0}, 0.5, 2, 9, 50, 900},
        ComponentCase{"PeriodZeroWithLife", {300, {}, MaterialUnit::CubicMetre, 20, 0}, 1, 2, 9, 0, 0},
        ComponentCase{"PeriodZeroWithoutLife", {300, {}, MaterialUnit::CubicMetre, 0, 0}, 1, 2, 9, 0, 600},
        ComponentCase{"StoresCarbon", {-700, {}, MaterialUnit::CubicMetre, 0, 0}, 1, 0.5, 1, 50, -350}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Provisions, RoundUpAtTheEdges) {
    EXPECT_EQ(lca::CountProvisions(50, 50), 1);
    EXPECT_EQ(lca::CountProvisions(51, 50), 2);
    EXPECT_EQ(lca::CountProvisions(50, 1), 50);
    EXPECT_EQ(lca::CountProvisions(4294967295U, 1), 4294967295LL);
    EXPECT_EQ(lca::CountProvisions(0, 7), 0);
}

TEST(Unit, AnythingElseIsMass) {
    EXPECT_EQ(lca::ReadMaterialUnit(""), MaterialUnit::CubicMetre);
    EXPECT_EQ(lca::ReadMaterialUnit("m3"), MaterialUnit::CubicMetre);
    EXPECT_EQ(lca::ReadMaterialUnit("m2"), MaterialUnit::SquareMetre);
    EXPECT_EQ(lca::ReadMaterialUnit("kg"), MaterialUnit::Kilogram);
    EXPECT_EQ(lca::ReadMaterialUnit("M2"), MaterialUnit::Kilogram);
}

TEST(MaterialSums, KeepTheOrderOfFirstMeeting) {
    lca::MaterialSumTable table;
    table.Add({7}, {3}, 10);
    table.Add({2}, {3}, 1);
    table.Add({7}, {1}, 5);
    table.Add({7}, {3}, 2.5);
    table.Add({2}, {9}, 0);
    ASSERT_EQ(table.GetLayers().size(), 2U);
    const lca::LayerSums& first = table.GetLayers()[0];
    EXPECT_EQ(first.layer.value, 7);
    ASSERT_EQ(first.materials.size(), 2U);
    EXPECT_EQ(first.materials[0].buildingMaterial.value, 3);
    EXPECT_EQ(first.materials[0].gwp, 12.5);
    EXPECT_EQ(first.materials[1].gwp, 5);
    EXPECT_EQ(table.GetLayers()[1].materials.size(), 2U);
    table.Clear();
    EXPECT_TRUE(table.GetLayers().empty());
    table.Add({7}, {3}, 1);
    EXPECT_EQ(table.GetLayers()[0].materials[0].gwp, 1);
}

} // namespace
