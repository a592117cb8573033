// Drawing as pixels: the host's drawing calls painted into an image that can be written as a file.
#pragma once

#include "host/Drawing.h"
#include "workbench/result/Result.h"

#include <memory>
#include <string>

class QImage;
class QPainter;

namespace workbench {

class PaintedContext : public host::NativeContext {
public:
    /// A white image of so many drawing pixels, each `scale` image pixels wide and high.
    PaintedContext(int width, int height, double scale);
    ~PaintedContext() override;
    PaintedContext(const PaintedContext&) = delete;
    PaintedContext& operator=(const PaintedContext&) = delete;

    void FillRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override;
    void FrameRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override;
    void DrawImage(const host::NativeImage& image, double left, double top) override;
    void FillSector(double centreX, double centreY, double radius, double startAngle, double sweep,
                    const host::Colour& colour) override;
    void DrawBoxedText(const host::BoxedText& text, const host::Colour& colour) override;
    void DrawSlantedText(const host::SlantedText& text, const host::Colour& colour) override;

    /// What is drawn from now on lies so many pixels further right and down, as a cell lies in its list.
    void SetOrigin(double left, double top);
    /// The same turned by an angle, counter-clockwise as on a plan, and stretched.
    void SetPlacement(double left, double top, double angle, double xRatio, double yRatio);
    host::Colour GetPixel(int x, int y) const;
    /// The file name's extension tells the format (.png, .jpg).
    Outcome WritePicture(const std::string& path) const;

private:
    std::unique_ptr<QImage> image;
    std::unique_ptr<QPainter> painter;
    double scale;
};

/// Measures in the font in which PaintedContext writes. Texts need a program-wide set-up, which the first of these
/// makes and keeps; the machine's own fonts are used.
class PaintedFont : public host::TextMeasuring {
public:
    PaintedFont();

    double MeasureWidth(const std::string& text) override;
    double ReadCapitalHeight() override;
};

} // namespace workbench
