// Bars of the material report in a cell of 110 pixels: 100 pixels for the range.
#include "lca/ReportBar.h"

#include <gtest/gtest.h>

namespace {

struct BarCase {
    const char* name;
    std::vector<double> values;
    double value;
    double zero, left, right; ///< pixels
};

class ReportBarTest : public testing::TestWithParam<BarCase> {};

TEST_P(ReportBarTest, LiesOnTheCommonScale) {
    const lca::ReportBar bar = lca::ComputeReportBar(GetParam().value, lca::FindBarScale(GetParam().values), 110);
    EXPECT_NEAR(bar.zeroLine, GetParam().zero, 1e-9);
    EXPECT_NEAR(bar.left, GetParam().left, 1e-9);
    EXPECT_NEAR(bar.right, GetParam().right, 1e-9);
    EXPECT_GE(bar.left, 0);
    EXPECT_LE(bar.right, 110);
    EXPECT_LE(bar.zeroLine + 1, 110); // it is a pixel wide
}

// The zero line moves over 106 pixels from pixel 6 on, to pixel 109 at most.
INSTANTIATE_TEST_SUITE_P(Cells, ReportBarTest,
                         testing::Values(BarCase{"Half", {50, 100, 25}, 50, 6, 6, 56},
                                         BarCase{"LongestIsCut", {50, 100, 25}, 100, 6, 6, 101},
                                         BarCase{"Zero", {50, 100}, 0, 6, 6, 6},
                                         BarCase{"MixedPositive", {-20, 60, 80}, 60, 27.2, 27.2, 87.2},
                                         BarCase{"MixedNegative", {-20, 60, 80}, -20, 27.2, 7.2, 27.2},
                                         BarCase{"MixedLongestIsCut", {-20, 60, 80}, 80, 27.2, 27.2, 97.2},
                                         BarCase{"EqualLengths", {-50, 50}, -50, 59, 19, 59},
                                         BarCase{"AllNegative", {-10, -40}, -40, 109, 9, 109},
                                         BarCase{"AllNegativeSmaller", {-10, -40}, -10, 109, 84, 109},
                                         BarCase{"AlmostAllNegative", {-97, 3}, 2.9, 108.82, 108.82, 109},
                                         BarCase{"TooShortToCut", {-96, 4}, 4, 107.76, 107.76, 107.76},
                                         BarCase{"NothingButZero", {0, 0}, 0, 6, 6, 6},
                                         BarCase{"NoRows", {}, 0, 6, 6, 6}),
                         [](const auto& info) { return info.param.name; });

} // namespace
