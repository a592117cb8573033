// Drawing into a picture in memory: shapes are painted pixel by pixel, texts by the system.
#pragma once

#include "host/Drawing.h"

#include <cstdint>
#include <memory>

namespace archicad {

class GdiContext : public host::NativeContext {
public:
    /// A white picture of so many drawing pixels, each `scale` pixels of the picture wide and high. Where the system
    /// has no memory for it std::bad_alloc is thrown.
    GdiContext(int width, int height, double scale);
    ~GdiContext() override;
    GdiContext(const GdiContext&) = delete;
    GdiContext& operator=(const GdiContext&) = delete;

    void FillRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override;
    void FrameRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override;
    void DrawImage(const host::NativeImage& image, double left, double top) override;
    void FillSector(double centreX, double centreY, double radius, double startAngle, double sweep,
                    const host::Colour& colour) override;
    void DrawBoxedText(const host::BoxedText& text, const host::Colour& colour) override;
    void DrawSlantedText(const host::SlantedText& text, const host::Colour& colour) override;

    /// Pixels of the picture.
    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    /// x and y count from 0 and lie inside the picture.
    host::Colour GetPixel(int x, int y) const;

private:
    struct Surface;

    /// share  of the pixel that the colour covers, beside its own alpha
    void Blend(int x, int y, const host::Colour& colour, double share = 1.0);

    int width;
    int height;
    double scale;
    std::unique_ptr<Surface> surface;
};

} // namespace archicad
