// What the drawing calls leave in the picture.
#include "workbench/images/PaintedContext.h"
#include "support/DrawingCases.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QString>

namespace {

TEST(PaintedContext, DrawsAsEveryHost) {
    workbench::PaintedFont font;
    support::ExpectDrawing<workbench::PaintedContext>(font);
}

TEST(PaintedContext, BeginsAtItsOrigin) {
    workbench::PaintedContext context(10, 10, 2);
    context.SetOrigin(1, 0);
    context.FillRectangle(1, 1, 3, 2, support::Red);
    EXPECT_EQ(context.GetPixel(3, 2), support::White);
    EXPECT_EQ(context.GetPixel(4, 2), support::Red);
}

TEST(PaintedContext, JpegFiles) {
    support::ExpectJpegFiles(
        [](const std::string& path, int width, int height, double scale, const auto& draw) {
            workbench::PaintedContext context(width, height, scale);
            draw(context);
            return !context.WritePicture(path).HasFailed();
        },
        [](const std::string& path, int x, int y) {
            const QColor colour = QImage(QString::fromStdString(path)).pixelColor(x, y);
            return host::Colour{static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
                                static_cast<std::uint8_t>(colour.blue())};
        });
}

TEST(PaintedContext, WritesOtherPictures) {
    const support::TestFolder folder;
    const workbench::PaintedContext context(4, 4, 1);
    EXPECT_FALSE(context.WritePicture(folder / "a.png").HasFailed());
    EXPECT_EQ(support::ContentOf(folder / "a.png").substr(1, 3), "PNG");
    EXPECT_TRUE(context.WritePicture(folder / "none/a.png").HasFailed());
}

} // namespace
