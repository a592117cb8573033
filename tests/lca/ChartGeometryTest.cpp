// The charts in hand-computed angles and pixels.
#include "lca/ChartGeometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using lca::BarEntry;

constexpr double Pi = 3.14159265358979323846;
constexpr double Degrees = 180.0 / Pi;
constexpr double Overlap = 1.8; ///< degrees
constexpr double Near = 1e-9;

/// Every letter is 5 pixels wide, capitals are 8 high.
const lca::ChartFont Font{[](const std::string& text) { return 5.0 * static_cast<double>(text.size()); }, 8.0};

std::string Format(double value) {
    return std::to_string(static_cast<int>(value));
}

TEST(PieChart, SlicesFollowFromTwelveOClock) {
    const lca::PieChart pie = lca::LayOutPieChart({50, 30, 20, 0, 0, 0, 0}, {10, 20, 300, 200}, Font);
    EXPECT_EQ(pie.centreX, 160);
    EXPECT_EQ(pie.centreY, 120);
    EXPECT_EQ(pie.radius, 80);
    ASSERT_EQ(pie.slices.size(), 7U);
    const struct {
        double start, sweep; ///< degrees, without the overlap
        const char* label;
    } expected[] = {{-90, 180, "50%"}, {90, 108, "30%"}, {198, 72, "20%"}, {270, 0, "0%"},
                    {270, 0, "0%"},    {270, 0, "0%"},   {270, 0, "0%"}};
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_NEAR(pie.slices[i].startAngle * Degrees, expected[i].start - Overlap, Near) << i;
        EXPECT_NEAR(pie.slices[i].sweep * Degrees, expected[i].sweep + Overlap, Near) << i;
        EXPECT_EQ(pie.slices[i].label.text, expected[i].label) << i;
    }
    EXPECT_EQ(lca::ComputePieShares({50, 30, 20, 0, 0, 0, 0}), (std::vector<double>{50, 30, 20, 0, 0, 0, 0}));
    // The first label lies at three o'clock, 14 pixels outside; "50%" is 15 wide, 8 high, 1 more on each side.
    const lca::ChartBox& box = pie.slices[0].label.box;
    EXPECT_NEAR(box.left, 160 + 94 - 8.5, Near);
    EXPECT_NEAR(box.right, 160 + 94 + 8.5, Near);
    EXPECT_NEAR(box.top, 120 - 5, Near);
    EXPECT_NEAR(box.bottom, 120 + 5, Near);
    const lca::ChartBox& last = pie.slices[6].label.box; // at the end of the last slice: twelve o'clock
    EXPECT_NEAR((last.left + last.right) / 2, 160, Near);
    EXPECT_NEAR((last.top + last.bottom) / 2, 120 - 94, Near);
}

TEST(PieChart, RadiusLabelsAndEmptyPies) {
    EXPECT_EQ(lca::LayOutPieChart({1, 0, 0, 0, 0, 0, 0}, {0, 0, 350, 231}, Font).radius, 92); // 0.8 x 115.5 = 92.4
    EXPECT_EQ(lca::LayOutPieChart({1, 0, 0, 0, 0, 0, 0}, {0, 0, 100, 900}, Font).radius, 40);
    EXPECT_EQ(lca::LayOutPieChart({33.6, 66.4, 0, 0, 0, 0, 0}, {0, 0, 10, 10}, Font).slices[0].label.text, "34%");
    const lca::PieChart negative = lca::LayOutPieChart({-50, 150, 0, 0, 0, 0, 0}, {0, 0, 100, 100}, Font);
    EXPECT_EQ(lca::ComputePieShares({-50, 150, 0, 0, 0, 0, 0})[0], -50);
    EXPECT_EQ(negative.slices[1].label.text, "150%");
    for (const std::array<double, 7>& none :
         {std::array<double, 7>{}, std::array<double, 7>{5, -5, 0, 0, 0, 0, 0},
          std::array<double, 7>{-1, 0, 0, 0, 0, 0, 0}, std::array<double, 7>{1e308, 1e308, 0, 0, 0, 0, 0}}) {
        EXPECT_TRUE(lca::LayOutPieChart(none, {0, 0, 100, 100}, Font).slices.empty());
        EXPECT_TRUE(lca::ComputePieShares(none).empty());
    }
}

TEST(BarEntries, SortLargestFirstAndLaterOfEqualsFirst) {
    const struct {
        std::vector<BarEntry> entries;
        std::string order;
    } cases[] = {{{}, ""},
                 {{{"a", 500}, {"b", 800}, {"x", 650}}, "bxa"},
                 {{{"a", 650}, {"x", 650}}, "xa"},
                 {{{"a", 1}, {"b", 2}, {"c", 1}, {"d", 2}, {"x", -1}}, "dbcax"},
                 {{{"a", 1}, {"x", std::nan("")}, {"b", 2}}, "bax"}};
    for (const auto& one : cases) {
        std::vector<BarEntry> entries = one.entries;
        lca::SortBarEntries(entries);
        std::string order;
        for (const BarEntry& entry : entries)
            order += entry.first;
        EXPECT_EQ(order, one.order);
    }
}

TEST(BarChart, BarsStandOnTheMiddleLine) {
    // W 309, H 233: m 20, w 269 / 3, B 77, base line 130 + 233 - 116; x0 = 154 - 134.5 + w / 4 + 5
    const std::vector<lca::ChartBar> bars =
        lca::LayOutBarChart({{"high", 800}, {"Actual impact", 650}, {"low", 500}}, {40, 130, 309, 233}, Font, Format);
    ASSERT_EQ(bars.size(), 3U);
    const double slot = 269.0 / 3, first = 40 + 154 - 134.5 + slot / 4 + 5;
    const double heights[] = {77, 0.8125 * 77, 0.625 * 77};
    for (std::size_t i = 0; i < 3; ++i) {
        const double left = first + static_cast<double>(i) * slot, top = 247 - heights[i];
        EXPECT_NEAR(bars[i].box.left, left, Near);
        EXPECT_NEAR(bars[i].box.right - bars[i].box.left, 269.0 / 6, Near);
        EXPECT_EQ(bars[i].box.bottom, 247);
        EXPECT_NEAR(bars[i].box.top, top, Near);
        EXPECT_NEAR(bars[i].value.box.top, top - 20, Near);
        EXPECT_NEAR(bars[i].value.box.bottom, top - 5, Near);
        EXPECT_NEAR(bars[i].name.x, left + slot / 4 - 12, Near); // 3 x 8 x cos 60
        EXPECT_EQ(bars[i].name.y, 252);
        EXPECT_NEAR(bars[i].name.angle * Degrees, 30, Near);
        EXPECT_EQ(bars[i].name.maximumWidth, 65); // "Actual impact"
    }
    EXPECT_EQ(bars[1].value.text, "650");
    EXPECT_EQ(bars[1].name.text, "Actual impact");
    const std::vector<lca::ChartBar> tall =
        lca::LayOutBarChart({{std::string(100, 'x'), 2}, {"b", 1}}, {0, 0, 300, 230}, Font, Format);
    EXPECT_NEAR(tall[0].name.maximumWidth, 105 / (std::sqrt(3.0) / 2), Near); // 115 - 10, less than 500
}

TEST(BarChart, OddValues) {
    EXPECT_TRUE(lca::LayOutBarChart({}, {0, 0, 100, 100}, Font, Format).empty());
    EXPECT_TRUE(lca::LayOutBarChart({{"a", 5}}, {0, 0, 100, 100}, Font, Format).empty());
    const std::vector<lca::ChartBar> below = lca::LayOutBarChart({{"a", 3}, {"b", -3}}, {0, 0, 90, 90}, Font, Format);
    EXPECT_EQ(below[1].box.top, 45 + 30); // hangs below the line
    EXPECT_TRUE(std::isnan(lca::LayOutBarChart({{"a", 0}, {"b", 0}}, {0, 0, 90, 90}, Font, Format)[0].box.top));
}

} // namespace
