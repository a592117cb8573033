// What the drawing calls leave in the picture.
#include "workbench/images/PaintedContext.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace {

using host::Colour;

constexpr Colour White{255, 255, 255}, Red{255, 0, 0}, Blue{0, 0, 255};

TEST(PaintedContext, PaintsWholePixelsAtItsScale) {
    workbench::PaintedContext context(10, 10, 2);
    context.SetOrigin(1, 0);
    context.FillRectangle(1, 1, 3, 2, Red); // image pixels 4 to 7, 2 to 3
    context.FrameRectangle(4, 4, 8, 8, Blue);
    const struct {
        int x, y;
        Colour colour;
    } cases[] = {{4, 2, Red},   {7, 3, Red},    {3, 2, White},   {8, 2, White},  {4, 4, White},
                 {10, 8, Blue}, {19, 17, Blue}, {12, 10, White}, {17, 15, White}};
    for (const auto& one : cases)
        EXPECT_EQ(context.GetPixel(one.x, one.y), one.colour) << one.x << "," << one.y;
}

TEST(PaintedContext, TransparentPixelsLeaveWhatIsBelow) {
    workbench::PaintedContext context(4, 4, 1);
    context.FillRectangle(0, 0, 4, 4, Red);
    host::NativeImage image(2, 2, 72);
    image.SetPixel(1, 0, Blue);
    context.DrawImage(image, 1, 1);
    EXPECT_EQ(context.GetPixel(2, 1), Blue);
    EXPECT_EQ(context.GetPixel(1, 1), Red);
    EXPECT_EQ(context.GetPixel(2, 2), Red);
}

TEST(PaintedContext, WritesPicturesAndSaysWhenItCannot) {
    const support::TestFolder folder;
    const workbench::PaintedContext context(4, 4, 1);
    EXPECT_TRUE(context.WritePicture(folder / "a.png"));
    EXPECT_EQ(support::ContentOf(folder / "a.png").substr(1, 3), "PNG");
    EXPECT_TRUE(context.WritePicture(folder / "a.jpg"));
    EXPECT_EQ(support::ContentOf(folder / "a.jpg").substr(0, 3), "\xFF\xD8\xFF");
    EXPECT_FALSE(context.WritePicture(folder / "none/a.png"));
}

} // namespace
