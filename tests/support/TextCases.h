// What every host's writing of numbers, times and letters has to answer, whatever system it is built on.
#pragma once

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <limits>
#include <string>

namespace support {

/// Two decimals, a point, no grouping, no sign on a zero. Ties are those of the binary number, and go to the even
/// digit.
inline void ExpectTwoDecimals(const std::function<std::string(double)>& write) {
    const struct {
        double value;
        std::string text;
    } cases[] = {{0, "0.00"},
                 {-0.0, "0.00"},
                 {-0.004, "0.00"},
                 {-0.006, "-0.01"},
                 {12.345, "12.35"}, // 12.3450000000000006
                 {2.675, "2.67"},   // 2.67499999999999982
                 {0.125, "0.12"},
                 {0.375, "0.38"},
                 {999999.999, "1000000.00"},
                 {-1234567.891, "-1234567.89"},
                 {1e21, "1000000000000000000000.00"},
                 {std::numeric_limits<double>::infinity(), "inf"}};
    for (const auto& one : cases)
        EXPECT_EQ(write(one.value), one.text) << one.value;
    EXPECT_EQ(write(std::numeric_limits<double>::max()).size(), 309U + 3U);
}

/// Date and time of here and now, "2026-07-15 09:05:00".
inline void ExpectLocalTime(const std::function<std::string()>& write) {
    const auto expected = [] {
        const std::time_t now = std::time(nullptr);
        const std::tm local = *std::localtime(&now);
        char text[32];
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
        return std::string(text);
    };
    const std::string before = expected(), found = write(), after = expected();
    EXPECT_EQ(found.size(), before.size()) << found;
    EXPECT_LE(before, found);
    EXPECT_LE(found, after);
}

/// Letters of the scripts in which building materials are named.
inline void ExpectLowerCase(const std::function<std::string(const std::string&)>& lower) {
    const std::pair<const char*, const char*> cases[] = {{"", ""},
                                                         {"AZaz@[09", "azaz@[09"},
                                                         {"ÀÖØÞ×÷ß", "àöøþ×÷ß"},
                                                         {"ĀĞĶĹŇŊŶŸŹŽȘȚẠỸ", "āğķĺňŋŷÿźžșțạỹ"},
                                                         {"ΑΩΆΈΉΊΌΎΏΪΫ ξύλο", "αωάέήίόύώϊϋ ξύλο"},
                                                         {"АЯЁЏҐӘ", "аяёџґә"},
                                                         {"日本 \xF0\x9F\x8F\xA0", "日本 \xF0\x9F\x8F\xA0"},
                                                         {"A\xE4Z", "a\xE4z"}}; // no UTF-8: the byte stays
    for (const auto& [text, lowered] : cases)
        EXPECT_EQ(lower(text), lowered);
    const std::string longText(100'000, 'X');
    EXPECT_EQ(lower(longText), std::string(longText.size(), 'x'));
}

} // namespace support
