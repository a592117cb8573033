#include "platform/Text.h"

#include <gtest/gtest.h>

namespace {

// Encodings by hand from the definition of UTF-8; \u and \U make the wide text.
TEST(TextTest, ConvertsBetweenWideAndUtf8) {
    struct Case {
        const char* name;
        std::wstring wide;
        std::string utf8;
    };
    const Case cases[] = {{"empty", L"", ""},
                          {"ASCII", L"a/B\u007F", "a/B\x7F"},
                          {"first of two bytes", L"\u0080", "\xC2\x80"},
                          {"last of two bytes", L"\u07FF", "\xDF\xBF"},
                          {"first of three bytes", L"\u0800", "\xE0\xA0\x80"},
                          {"last of three bytes", L"\uFFFF", "\xEF\xBF\xBF"},
                          {"first of four bytes", L"\U00010000", "\xF0\x90\x80\x80"},
                          {"last character", L"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
                          {"mixed", L"gr\u00FCn \u20AC \U0001F3E0.", "gr\xC3\xBCn \xE2\x82\xAC \xF0\x9F\x8F\xA0."},
                          {"zero inside", std::wstring(L"a\0b", 3), std::string("a\0b", 3)}};
    for (const Case& row : cases) {
        EXPECT_EQ(platform::Utf8FromWide(row.wide), row.utf8) << row.name;
        EXPECT_EQ(platform::WideFromUtf8(row.utf8), row.wide) << row.name;
    }
}

TEST(TextTest, ReplacesWhatIsNoText) {
    struct Case {
        const char* name;
        std::string utf8;
        std::wstring wide;
    };
    const Case cases[] = {{"continuation alone", "a\x80z", L"a\uFFFDz"},
                          {"overlong slash", "\xC0\xAF", L"\uFFFD\uFFFD"},
                          {"overlong in three", "\xE0\x80\xAF", L"\uFFFD\uFFFD\uFFFD"},
                          {"surrogate", "\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
                          {"beyond the last", "\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
                          {"cut off", "ab\xE2\x82", L"ab\uFFFD\uFFFD"},
                          {"broken by a letter", "\xE2\x82z", L"\uFFFD\uFFFDz"},
                          {"no such byte", "\xFF", L"\uFFFD"}};
    for (const Case& row : cases) {
        EXPECT_EQ(platform::WideFromUtf8(row.utf8), row.wide) << row.name;
    }
    const wchar_t high = static_cast<wchar_t>(0xD800);
    const wchar_t low = static_cast<wchar_t>(0xDC00);
    EXPECT_EQ(platform::Utf8FromWide({high, L'a'}), "\xEF\xBF\xBD\x61");
    EXPECT_EQ(platform::Utf8FromWide({low, high}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(TextTest, RefusesPathsThatTheSystemCannotName) {
    for (const std::wstring& path : {std::wstring(L"C:/plain path.xlsx"), std::wstring(L"gr\u00FCn.xlsx")}) {
        const std::optional<std::string> narrow = platform::NarrowFromWide(path);
        ASSERT_TRUE(narrow.has_value());
        EXPECT_EQ(platform::WideFromNarrow(*narrow), path);
    }
    EXPECT_EQ(platform::NarrowFromWide(L""), std::string());
    EXPECT_EQ(platform::WideFromNarrow(""), std::wstring());
#ifndef _WIN32
    EXPECT_EQ(platform::NarrowFromWide(L"\u4E2D"), std::string("\xE4\xB8\xAD"));
    EXPECT_FALSE(platform::NarrowFromWide({L'a', static_cast<wchar_t>(0xD800)}).has_value());
    EXPECT_FALSE(platform::WideFromNarrow("\xFF").has_value());
#else
    // Either the code page has the letter, or there is no name; never another letter in its place.
    const std::optional<std::string> narrow = platform::NarrowFromWide(L"\u4E2D");
    if (narrow) {
        EXPECT_EQ(platform::WideFromNarrow(*narrow), std::wstring(L"\u4E2D"));
    }
#endif
}

} // namespace
