// Decimal texts both ways.
#include "lca/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct ParseCase {
    const char* name;
    std::string text;
    std::optional<double> value;
};

class ParseDecimalTest : public testing::TestWithParam<ParseCase> {};

TEST_P(ParseDecimalTest, ReadsWholeNumbersOnly) {
    EXPECT_EQ(lca::ParseDecimal(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ParseDecimalTest,
    testing::Values(ParseCase{"Empty", "", std::nullopt}, ParseCase{"Blank", "  ", std::nullopt},
                    ParseCase{"Point", "12.5", 12.5}, ParseCase{"Comma", "12,5", 12.5}, ParseCase{"Plus", "+3", 3.0},
                    ParseCase{"TwoSigns", "+-3", std::nullopt}, ParseCase{"Negative", " -0,25\r", -0.25},
                    ParseCase{"Exponent", "1e3", 1000.0}, ParseCase{"Grouped", "1.234,5", std::nullopt},
                    ParseCase{"Trailing", "5 kg", std::nullopt}, ParseCase{"Infinite", "inf", std::nullopt},
                    ParseCase{"NotANumber", "nan", std::nullopt}, ParseCase{"TooLarge", "1e999", std::nullopt},
                    ParseCase{"Hexadecimal", "0x10", std::nullopt}, ParseCase{"NonAscii", "\xD9\xA3", std::nullopt}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(ParseWholeNumber, CutsAndKeepsWithin32Bits) {
    EXPECT_EQ(lca::ParseWholeNumber("25,9"), 25);
    EXPECT_EQ(lca::ParseWholeNumber("2147483647"), 2147483647);
    EXPECT_EQ(lca::ParseWholeNumber("2147483648"), std::nullopt);
    EXPECT_EQ(lca::ParseWholeNumber("-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST(WriteDecimal, IsPlainAndReadsBack) {
    EXPECT_EQ(lca::WriteDecimal(0.053), "0.053");
    EXPECT_EQ(lca::WriteDecimal(-0.0), "0");
    EXPECT_EQ(lca::WriteDecimal(1e21), "1000000000000000000000");
    for (const double value : {1.0 / 3.0, 5e-324, 1.7976931348623157e308, -123456.789, 1e-7}) {
        const std::string text = lca::WriteDecimal(value);
        EXPECT_EQ(text.find('e'), std::string::npos) << text;
        EXPECT_EQ(lca::ParseDecimal(text), value) << text;
    }
}

TEST(WriteFixed, RoundsAndDropsTheSignOfZero) {
    const struct {
        double value;
        const char* text;
    } cases[] = {{0, "0.000"},
                 {-0.0, "0.000"},
                 {-0.0004, "0.000"},
                 {-0.0006, "-0.001"},
                 {1.0005, "1.000"},
                 {2.0625, "2.062"},
                 {99999.9996, "100000.000"},
                 {-12.5, "-12.500"},
                 {1e21, "1000000000000000000000.000"}};
    for (const auto& one : cases)
        EXPECT_EQ(lca::WriteFixed(one.value, 3), one.text);
}

} // namespace
