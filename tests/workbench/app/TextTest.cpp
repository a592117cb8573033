// Texts as people write them, GlobalIds, and the argument that sets an element's value.
#include "workbench/app/Text.h"
#include "support/TextCases.h"
#include "workbench/app/ElementSettings.h"
#include "workbench/app/GlobalId.h"

#include <gtest/gtest.h>

namespace {

using namespace workbench;

TEST(Text, TellsUtf8) {
    const struct {
        const char* what;
        std::string text;
        bool isUtf8;
    } cases[] = {{"empty", "", true},
                 {"ASCII", "abc", true},
                 {"two bytes", "ä", true},
                 {"three bytes", "€", true},
                 {"four bytes", "\xF0\x9F\x8F\xA0", true},
                 {"largest", "\xF4\x8F\xBF\xBF", true},
                 {"past the largest", "\xF4\x90\x80\x80", false},
                 {"Latin-1", "\xE4", false},
                 {"cut off", "abc\xE2\x82", false},
                 {"lone continuation", "\x80", false},
                 {"continuation missing",
                  "\xC3"
                  "a",
                  false},
                 {"overlong two", "\xC0\xAF", false},
                 {"overlong three", "\xE0\x80\xAF", false},
                 {"overlong four", "\xF0\x80\x80\xAF", false},
                 {"surrogate", "\xED\xA0\x80", false},
                 {"FF", "\xFF", false}};
    for (const auto& row : cases)
        EXPECT_EQ(IsUtf8(row.text), row.isUtf8) << row.what;
}

TEST(Text, MatchesPatterns) {
    const struct {
        const char* text;
        const char* pattern;
        bool isMatch;
    } cases[] = {{"", "", true},
                 {"", "*", true},
                 {"a", "", false},
                 {"abc", "abc", true},
                 {"abc", "ab", false},
                 {"abc", "a*", true},
                 {"abc", "*c", true},
                 {"abc", "*b*", true},
                 {"abc", "a*b", false},
                 {"aab", "*ab", true},
                 {"abab", "a*ab", true},
                 {"abc", "**", true},
                 {"abc", "*abc*", true},
                 {"abc", "*abcd", false},
                 {"a*c", "a*c", true},
                 {"mississippi", "m*iss*p*i", true},
                 {"mississippi", "m*iss*ss*iss*", false}};
    for (const auto& row : cases)
        EXPECT_EQ(MatchesPattern(row.text, row.pattern), row.isMatch) << row.text << " " << row.pattern;
    // Many stars on a long text end at once.
    EXPECT_FALSE(MatchesPattern(std::string(20000, 'a'), "*a*a*a*a*a*a*a*a*a*a*b"));
}

/// Beside what is lower case anywhere, letters that have several forms become one.
TEST(Text, FoldsCase) {
    support::ExpectLowerCase(FoldCase);
    const std::pair<const char*, const char*> cases[] = {{"ẞ", "ß"}, {"ξύλος", "ξύλοσ"}, {"İ", "İ"}, {"ӀӘ", "ӏә"}};
    for (const auto& [text, folded] : cases)
        EXPECT_EQ(FoldCase(text), folded);
}

TEST(Text, FormatsShortNumbers) {
    const struct {
        double value;
        int decimals;
        const char* text;
    } cases[] = {{0, 2, "0"},         {-0.0001, 2, "0"},   {1.5, 3, "1.5"},
                 {100, 0, "100"},     {100, 2, "100"},     {1234567.25, 1, "1234567.2"},
                 {-2.75, 2, "-2.75"}, {0.0005, 3, "0.001"}};
    for (const auto& row : cases)
        EXPECT_EQ(FormatShort(row.value, row.decimals), row.text) << row.value;
}

// Base-64 digits of the 128-bit number, computed with Python's integers.
const std::pair<const char*, const char*> GlobalIds[] = {
    {"00000000-0000-0000-0000-000000000001", "0000000000000000000001"},
    {"FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF", "3$$$$$$$$$$$$$$$$$$$$$"},
    {"80000000-0000-0000-0000-000000000000", "2000000000000000000000"},
    {"6BA7B810-9DAD-11D1-80B4-00C04FD430C8", "1hfxWGdQqHqO2q0C1Fr338"},
    {"01234567-89AB-CDEF-FEDC-BA9876543210", "018qLdYQlDx$xSkfXsL38G"}};

TEST(GlobalId, BothWays) {
    for (const auto& [guid, text] : GlobalIds) {
        const std::optional<host::Guid> read = ReadGlobalId(text);
        ASSERT_TRUE(read) << text;
        EXPECT_EQ(*read, host::ParseGuid(guid));
        EXPECT_EQ(WriteGlobalId(host::ParseGuid(guid)), text);
    }
    for (const char* bad : {"", "000000000000000000000", "00000000000000000000000", "4000000000000000000000",
                            "000000000000000000000-", "00000000000000000000\xC3\xA4"})
        EXPECT_FALSE(ReadGlobalId(bad)) << bad;
}

TEST(ElementSetting, GoodAndBad) {
    const std::string id = "1hfxWGdQqHqO2q0C1Fr338:";
    const struct {
        std::string argument;
        host::Variant value; ///< without type: refused
        const char* reason = "";
    } cases[] = {{id + "INCLUDE=1", host::Variant::OfBoolean(true)},
                 {id + "INCLUDE=False", host::Variant::OfBoolean(false)},
                 {id + "GWPPERCENTAGE=12,5", host::Variant::OfReal(12.5)},
                 {id + "GWP=-300", host::Variant::OfReal(-300)},
                 {id + "INCLUDE=2", {}, "the value is 1 or 0"},
                 {id + "INCLUDE=", {}, "the value is 1 or 0"},
                 {id + "GWP=much", {}, "the value is a number"},
                 {id + "GWP=", {}, "the value is a number"},
                 {id + "GWP", {}, "write GUID:KEY=VALUE"},
                 {"GWP=1", {}, "write GUID:KEY=VALUE"},
                 {"", {}, "write GUID:KEY=VALUE"},
                 {"wall:GWP=1", {}, "GUID is the element's GlobalId of 22 letters"},
                 {id + "SERVICELIFE=1", {}, "KEY is INCLUDE, GWPPERCENTAGE or GWP"},
                 {id + "GWP/UNIT=1", {}, "KEY is INCLUDE, GWPPERCENTAGE or GWP"},
                 {id + "gwp=1", {}, "KEY is INCLUDE, GWPPERCENTAGE or GWP"}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.argument);
        ElementSetting setting;
        const Outcome failure = ParseElementSetting(row.argument, setting);
        if (row.value.type == host::ValueType::None) {
            ASSERT_TRUE(failure);
            EXPECT_EQ(failure->code, UsageError);
            EXPECT_EQ(failure->sentence, "--element " + row.argument + ": " + row.reason);
        } else {
            ASSERT_FALSE(failure) << failure->sentence;
            EXPECT_EQ(setting.element, host::ParseGuid(GlobalIds[3].first));
            EXPECT_EQ(setting.value, row.value);
        }
    }
}

} // namespace
