// Which records count as equal. What is written of them stands in the gallery.
#include "xlsx/StyleRegistry.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace Xlsx;

/// A custom number format with one member changed.
template <class Value>
std::function<void(Style&)> Custom(Value NumberFormat::*member, Value value) {
    return [=](Style& style) {
        style.numberFormat.id = FirstCustomFormat;
        style.numberFormat.*member = value;
    };
}

TEST(StylesTest, TellsRecordsApartByEachField) {
    const std::function<void(Style&)> changes[] = {
        [](Style& style) { style.font.name = "Arial"; },
        [](Style& style) { style.font.sizePoints = 12; },
        [](Style& style) { style.font.colourSource = FontColour::Given; },
        [](Style& style) { style.font.colour = "FF000000"; },
        [](Style& style) { style.font.attributes = Extend; },
        [](Style& style) { style.fill.pattern = FillPattern::Solid; },
        [](Style& style) { style.fill.foreground = "FF000000"; },
        [](Style& style) { style.fill.background = "FF000000"; },
        [](Style& style) { style.border.left.line = BorderLine::Thin; },
        [](Style& style) { style.border.right.colour = "FF000000"; },
        [](Style& style) { style.border.top.line = BorderLine::Hair; },
        [](Style& style) { style.border.bottom.line = BorderLine::Thick; },
        [](Style& style) { style.border.diagonal.line = BorderLine::Thin; },
        [](Style& style) { style.border.hasDiagonalUp = true; },
        [](Style& style) { style.border.hasDiagonalDown = true; },
        [](Style& style) { style.numberFormat.id = 14; },
        Custom(&NumberFormat::kind, NumberKind::Plain),
        Custom(&NumberFormat::kind, NumberKind::Percent),
        Custom(&NumberFormat::decimals, 1U),
        Custom(&NumberFormat::hasThousandsSeparator, true),
        Custom(&NumberFormat::negativeSign, NegativeSign::None),
        Custom(&NumberFormat::negativeColour, NegativeColour::Red),
        Custom(&NumberFormat::suffix, std::string("m")),
        [](Style& style) { style.alignment.horizontal = HorizontalAlignment::Right; },
        [](Style& style) { style.alignment.vertical = VerticalAlignment::Top; },
        [](Style& style) { style.alignment.wrapsText = true; },
        [](Style& style) { style.alignment.rotationDegrees = 1; },
    };
    CStyleRegistry styles;
    for (int round = 0; round < 2; ++round) { // the second one adds nothing
        for (unsigned i = 0; i < std::size(changes); ++i) {
            Style style;
            changes[i](style);
            EXPECT_EQ(styles.AddStyle(style), i + 2);
        }
    }
    EXPECT_EQ(styles.GetFonts().size(), 1U + 5U);
    EXPECT_EQ(styles.GetFills().size(), 2U + 3U);
    EXPECT_EQ(styles.GetBorders().size(), 1U + 7U);
    EXPECT_EQ(styles.GetNumberFormats().size(), 7U);
    EXPECT_EQ(styles.AddStyle({}), 0U);
    Style gray;
    gray.fill.pattern = FillPattern::Gray125;
    gray.numberFormat.id = 1;
    EXPECT_EQ(styles.AddStyle(gray), 1U);
    Style percent; // any id from 164 on only says "custom"; the one given is that of the format before
    percent.numberFormat.kind = NumberKind::Percent;
    percent.numberFormat.id = 200;
    EXPECT_EQ(styles.GetCellFormats()[styles.AddStyle(percent)].numberFormat, 165U);
}

} // namespace
