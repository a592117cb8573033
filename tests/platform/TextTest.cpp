#include "platform/Text.h"

#include <gtest/gtest.h>

namespace {

// Encodings by hand from the definition of UTF-8; \u and \U make the wide text.
TEST(TextTest, ConvertsBetweenWideAndUtf8AndReplacesWhatIsNoText) {
    const struct {
        const char* name;
        std::string utf8;
        std::wstring wide;
        bool isText = true;
    } cases[] = {{"empty", "", L""},
                 {"ASCII", "a/B\x7F", L"a/B\u007F"},
                 {"first of two bytes", "\xC2\x80", L"\u0080"},
                 {"last of two bytes", "\xDF\xBF", L"\u07FF"},
                 {"first of three bytes", "\xE0\xA0\x80", L"\u0800"},
                 {"last of three bytes", "\xEF\xBF\xBF", L"\uFFFF"},
                 {"first of four bytes", "\xF0\x90\x80\x80", L"\U00010000"},
                 {"last character", "\xF4\x8F\xBF\xBF", L"\U0010FFFF"},
                 {"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", L"\uD7FF\uE000"},
                 {"mixed", "gr\xC3\xBCn \xE2\x82\xAC \xF0\x9F\x8F\xA0.", L"gr\u00FCn \u20AC \U0001F3E0."},
                 {"zero inside", std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
                 {"continuation alone", "a\x80z", L"a\uFFFDz", false},
                 {"overlong slash", "\xC0\xAF", L"\uFFFD\uFFFD", false},
                 {"overlong in three", "\xE0\x9F\xBF", L"\uFFFD\uFFFD\uFFFD", false},
                 {"overlong in four", "\xF0\x8F\xBF\xBF", L"\uFFFD\uFFFD\uFFFD\uFFFD", false},
                 {"surrogate", "\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD", false},
                 {"last surrogate", "\xED\xBF\xBF", L"\uFFFD\uFFFD\uFFFD", false},
                 {"beyond the last", "\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD", false},
                 {"cut off", "ab\xE2\x82", L"ab\uFFFD\uFFFD", false},
                 {"broken by a letter", "\xE2\x82z", L"\uFFFD\uFFFDz", false},
                 {"no such byte", "\xFF", L"\uFFFD", false}};
    for (const auto& row : cases) {
        EXPECT_EQ(platform::WideFromUtf8(row.utf8), row.wide) << row.name;
        EXPECT_EQ(platform::Utf8FromWide(row.wide) == row.utf8, row.isText) << row.name;
    }
    const wchar_t high = static_cast<wchar_t>(0xD800), low = static_cast<wchar_t>(0xDFFF);
    EXPECT_EQ(platform::Utf8FromWide({high, L'a', low, high}), "\xEF\xBF\xBD\x61\xEF\xBF\xBD\xEF\xBF\xBD");
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
