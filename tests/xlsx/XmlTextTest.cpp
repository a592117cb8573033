#include "xlsx/XmlText.h"
#include "xlsx/CellReference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>

namespace {

using namespace Xlsx;

std::string Escaped(std::string_view text, TextKind kind = TextKind::Prose, TextPlace place = TextPlace::Content) {
    std::string out;
    AppendXmlText(out, text, kind, place);
    return out;
}

TEST(XmlTextTest, EscapesWhatXmlCannotHold) {
    struct Case {
        const char* name;
        std::string text;
        std::string content;
        std::string attribute;
    };
    const std::string null(1, '\0');
    const Case cases[] = {
        {"empty", "", "", ""},
        {"markup", "<a b=\"c\">&'", "&lt;a b=\"c\"&gt;&amp;'", "&lt;a b=&quot;c&quot;&gt;&amp;'"},
        {"end of section", "]]>", "]]&gt;", "]]&gt;"},
        {"tab and line feed", "\ta\n", "\ta\n", "&#9;a&#10;"},
        {"return", "a\rb", "a_x000D_b", "a_x000D_b"},
        {"null", null, "_x0000_", "_x0000_"},
        {"unit separator", "\x1F", "_x001F_", "_x001F_"},
        {"not Unicode", "\xEF\xBF\xBE\xEF\xBF\xBF", "_xFFFE__xFFFF_", "_xFFFE__xFFFF_"},
        {"letters", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8F\xA0", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8F\xA0",
         "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8F\xA0"},
        {"no UTF-8", "a\xFF", "a\xEF\xBF\xBD", "a\xEF\xBF\xBD"},
        {"cut letter", "\xE2\x82", "\xEF\xBF\xBD\xEF\xBF\xBD", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"surrogate", "\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"lookalike", "_xAF41_", "_x005F_xAF41_", "_x005F_xAF41_"},
        {"lower case", "_xaf09_", "_x005F_xaf09_", "_x005F_xaf09_"},
        {"beyond the digits", "_x00g0__x00G0__x00:0__x00/0__x00@0__x00`0_",
         "_x00g0__x00G0__x00:0__x00/0__x00@0__x00`0_", "_x00g0__x00G0__x00:0__x00/0__x00@0__x00`0_"},
        {"chained", "_x0041_x0042_", "_x005F_x0041_x005F_x0042_", "_x005F_x0041_x005F_x0042_"},
        {"closed by an escape", "_x0041\x01", "_x005F_x0041_x0001_", "_x005F_x0041_x0001_"},
        {"too short", "_x041_", "_x041_", "_x041_"},
        {"capital x", "_X0041_", "_X0041_", "_X0041_"},
        {"not closed", "_x0041", "_x0041", "_x0041"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(Escaped(row.text), row.content) << row.name;
        EXPECT_EQ(Escaped(row.text, TextKind::Prose, TextPlace::Attribute), row.attribute) << row.name;
    }
    EXPECT_EQ(Escaped("_x0000_s1025", TextKind::Token), "_x0000_s1025");
}

// What a spreadsheet program does with "_xHHHH_", scanning from the left.
std::string Unescaped(const std::string& text) {
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        unsigned value = 0;
        char end = 0;
        const bool isEscape = text.size() - at >= 7 && text[at + 2] != ' ' &&
                              text.find_first_not_of("0123456789ABCDEFabcdef", at + 2) == at + 6 &&
                              std::sscanf(text.c_str() + at, "_x%4x%c", &value, &end) == 2 && end == '_';
        out += isEscape ? static_cast<char>(value) : text[at];
        if (isEscape) at += 6;
    }
    return out;
}

TEST(XmlTextTest, SurvivesEveryMixOfEscapesAndLookalikes) {
    std::mt19937 random(7);
    const std::string pieces[] = {"_", "x", "0041", "00", "5F", "\x01", "\r", "_x005F_", "_x", "g"};
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (unsigned length = random() % 9; length > 0; --length) {
            text += pieces[random() % std::size(pieces)];
        }
        ASSERT_EQ(Unescaped(Escaped(text)), text);
    }
}

// The C library's own "%g" is the measure.
TEST(XmlTextTest, PrintsNumbersWithSixSignificantDigits) {
    EXPECT_EQ(NumberText(0.25), "0.25");
    EXPECT_EQ(NumberText(1234567.89), "1.23457e+06");
    for (const double value : {HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(NumberText(value), "0");
    }
    std::mt19937_64 random(11);
    for (int round = 0; round < 50000; ++round) {
        const std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (round % 2 == 0) value = static_cast<double>(static_cast<std::int64_t>(bits) >> (bits & 63)) / 1000;
        if (!std::isfinite(value)) continue;
        char expected[32];
        std::snprintf(expected, sizeof expected, "%g", value);
        ASSERT_EQ(NumberText(value), expected);
    }
}

TEST(XmlTextTest, CountsLettersAsUtf16) {
    EXPECT_EQ(LetterCount(""), 0U);
    EXPECT_EQ(LetterCount("a\xC3\xA9\xE2\x82\xAC"), 3U);
    EXPECT_EQ(LetterCount("\xF0\x9F\x8F\xA0"), 2U);
}

TEST(XmlTextTest, FindsBlankEnds) {
    for (const char* text : {" a", "a ", "\ta", "a\n", " "}) {
        EXPECT_TRUE(HasBlankEnd(text)) << text;
    }
    for (const char* text : {"", "a b", "a"}) {
        EXPECT_FALSE(HasBlankEnd(text)) << text;
    }
}

TEST(CellReferenceTest, CountsLettersInBase26) {
    struct Case {
        CellPlace place;
        const char* reference;
    };
    const Case cases[] = {{{0, 0}, "A1"},   {{9, 25}, "Z10"},  {{9, 26}, "AA10"},  {{0, 51}, "AZ1"},
                          {{0, 52}, "BA1"}, {{0, 701}, "ZZ1"}, {{0, 702}, "AAA1"}, {{1048575, 16383}, "XFD1048576"}};
    for (const Case& row : cases) {
        EXPECT_EQ(CellReference(row.place), row.reference);
    }
    EXPECT_EQ(RangeReference({0, 0}, {1, 1}), "A1:B2");
}

} // namespace
