// Resize arithmetic. Expected rectangles and sizes are computed by hand.
#include "General/ResizeAnchoring.h"

#include <gtest/gtest.h>

#include "support/NullHost.h"

#include <map>

namespace {

using General::AnchorFactors;
using host::Rectangle;

// Of an item at 10, 20 of 100 x 40.
TEST(ResizeAnchoring, FollowsItsFactors) {
    const struct {
        const char* name;
        AnchorFactors factors;
        int widthChange, heightChange;
        Rectangle expected;
    } cases[] = {{"bottom right", {1, 1, 0, 0}, 50, -30, {60, -10, 100, 40}},
                 {"shrinks", {0, 0, 0.25, 1}, -50, -30, {10, 20, 87, 10}}};
    for (const auto& row : cases)
        EXPECT_TRUE(General::ComputeAnchored({10, 20, 100, 40}, row.factors, row.widthChange, row.heightChange) ==
                    row.expected)
            << row.name;
    EXPECT_EQ(General::ComputeMinimumExtent(550, 230, 1.0), 338);   // 550 - (230 - 18)
    EXPECT_EQ(General::ComputeMinimumExtent(900, 350, 0.25), -428); // 900 - 332 / 0.25
    EXPECT_EQ(General::ComputeMinimumExtent(900, 10, 1.0), 900);    // smaller than 18 already: cannot shrink
    EXPECT_EQ(General::ComputeMinimumExtent(900, 350, 0.0), 0);
}

/// Rectangles of items and the size of one dialog.
class DialogFake : public test::NullDialogs, public test::NullDialogItems {
public:
    host::Size ReadSize(host::DialogId) override { return size; }
    void SetMinimumSize(host::DialogId, host::Size least) override { minimum = least; }
    Rectangle ReadRectangle(host::DialogId, std::int16_t item) override { return items[item]; }
    void SetRectangle(host::DialogId, std::int16_t item, const Rectangle& rectangle) override {
        items[item] = rectangle;
    }

    host::Size size{900, 550};
    host::Size minimum;
    std::map<std::int16_t, Rectangle> items{{1, {10, 260, 350, 230}}, {2, {370, 260, 520, 230}}};
};

TEST(ResizeAnchoring, AtTheMinimumEveryGrowingItemKeepsEighteenPixels) {
    DialogFake fake;
    test::NullHost host;
    host.dialogs = &fake;
    host.dialogItems = &fake;
    General::ResizeAnchoring anchoring(host);
    const auto second = [&](host::Size size) {
        fake.size = size;
        anchoring.Apply({1});
        return fake.items[2];
    };
    anchoring.Register({1}, 1, {0, 0, 0.25, 1});
    anchoring.Register({1}, 2, {0.25, 0, 0.75, 1});
    EXPECT_EQ(fake.minimum.width, 231); // 900 - (520 - 18) / 0.75, rounded up
    EXPECT_EQ(fake.minimum.height, 338);
    EXPECT_TRUE(second(fake.minimum) == (Rectangle{202, 260, 18, 18})); // 370 - 669 / 4, 520 - 669 * 3 / 4
    EXPECT_TRUE(fake.items[1] == (Rectangle{10, 260, 182, 18}));        // 350 - 669 / 4
    // Back at the first size everything is where it was: nothing drifts.
    EXPECT_TRUE(second({900, 550}) == (Rectangle{370, 260, 520, 230}));
    // A larger minimum of the dialog's own holds.
    const General::ItemAnchor growing[] = {{1, {0, 0, 0.25, 1}}, {2, {0.25, 0, 0.75, 1}}};
    anchoring.RegisterAll({1}, growing, std::size(growing), {300, 200});
    EXPECT_EQ(fake.minimum.width, 300);
    EXPECT_EQ(fake.minimum.height, 338);
    anchoring.Reset();
    EXPECT_TRUE(second({1000, 600}) == (Rectangle{370, 260, 520, 230}));
}

} // namespace
