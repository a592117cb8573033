// Corners of the syntax, from RoundTrip.grc through the compiler's C++ source into the look-ups.
#include "resources/ResourceData.h"

#include <gtest/gtest.h>

namespace {

using namespace Resources;

TEST(RoundTrip, Strings) {
    ASSERT_NE(FindStringList(1), nullptr);
    EXPECT_TRUE(FindStringList(1)->entries.empty());
    const std::string_view expected[] = {"\xE2\x82\x82"
                                         "3",
                                         "\t7",
                                         "\?\?=\?\?/",
                                         "a\\nb",
                                         "\"quoted\"",
                                         ""};
    ASSERT_EQ(FindStringList(2)->entries.size(), std::size(expected));
    for (int entry = 1; entry <= static_cast<int>(std::size(expected)); ++entry)
        EXPECT_EQ(String(2, entry), expected[entry - 1]) << entry;
    EXPECT_EQ(OwnModuleId().developerId, 0xFFFFFFFFu);
    EXPECT_EQ(OwnModuleId().localId, 10u);
}

TEST(RoundTrip, WhatIsAbsentIsEmpty) {
    EXPECT_EQ(FindStringList(3), nullptr);
    EXPECT_EQ(FindDialog(1), nullptr);
    EXPECT_EQ(FindIcon(8), nullptr);
    for (const auto& [list, entry] : {std::pair{1, 1}, {2, 0}, {2, -1}, {2, 7}, {3, 1}})
        EXPECT_EQ(String(list, entry), "") << list << " " << entry;
    EXPECT_EQ(String(2, 5), "\"quoted\"");
}

TEST(RoundTrip, Image) {
    const Icon* icon = FindIcon(7);
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->fileBase, "7");
    EXPECT_EQ(icon->width, 5);
    EXPECT_EQ(icon->height, 9);
    EXPECT_EQ(icon->svg, "<svg>\n\"\\n\" \?\?= \xE2\x82\x82\n</svg>\n");
}

TEST(RoundTrip, DialogHeads) {
    const DialogLayout* modeless = FindDialog(10);
    ASSERT_NE(modeless, nullptr);
    EXPECT_EQ(modeless->kind, DialogKind::Modeless);
    EXPECT_FALSE(modeless->growsHorizontally);
    EXPECT_TRUE(modeless->growsVertically);
    EXPECT_EQ(modeless->rectangle.left, -5);
    EXPECT_EQ(modeless->rectangle.top, -6);
    EXPECT_EQ(modeless->rectangle.width, 70);
    EXPECT_EQ(modeless->rectangle.height, 80);
    const DialogLayout* palette = FindDialog(11);
    ASSERT_NE(palette, nullptr);
    EXPECT_EQ(palette->kind, DialogKind::Palette);
    EXPECT_TRUE(palette->growsHorizontally);
    EXPECT_FALSE(palette->growsVertically);
    EXPECT_EQ(palette->title, "No items");
    EXPECT_TRUE(palette->items.empty());
}

TEST(RoundTrip, Items) {
    ASSERT_EQ(FindDialog(10)->items.size(), 9u);
    const auto item = [](std::size_t number) -> const DialogItem& { return FindDialog(10)->items[number - 1]; };
    EXPECT_EQ(item(1).kind, ItemKind::Button);
    EXPECT_EQ(item(1).rectangle.top, -2);
    EXPECT_EQ(item(1).font, "ExtraSmall");
    EXPECT_EQ(item(1).toolTip, "first");
    EXPECT_EQ(item(2).kind, ItemKind::CenterText);
    EXPECT_EQ(item(2).text, "centre");
    EXPECT_EQ(item(3).kind, ItemKind::RightText);
    EXPECT_EQ(item(4).kind, ItemKind::PosIntEdit);
    EXPECT_EQ(item(4).minimum, "1");
    EXPECT_EQ(item(4).maximum, "100");
    EXPECT_EQ(item(5).rowHeight, 18);
    EXPECT_EQ(item(5).headerHeight, std::nullopt);
    EXPECT_TRUE(item(5).scrollsHorizontally && item(5).scrollsVertically && !item(5).framed);
    EXPECT_EQ(item(6).headerHeight, 22);
    EXPECT_TRUE(item(6).scrollsHorizontally && !item(6).scrollsVertically);
    EXPECT_EQ(item(7).kind, ItemKind::UserItem);
    ASSERT_EQ(item(8).entries.size(), 2u);
    EXPECT_EQ(item(8).entries[0].iconId, 7);
    EXPECT_EQ(item(8).entries[1].iconId, std::nullopt);
    EXPECT_EQ(item(8).entries[1].text, "without");
    EXPECT_EQ(item(9).iconId, 7);
    EXPECT_EQ(item(9).toolTip, "last");
}

} // namespace
