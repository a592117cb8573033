// Role: drawing into a cell or user item of a dialog. Coordinates are pixels from the area's top-left corner.
#pragma once

#include "host/Values.h"

#include <vector>

namespace host {

/// A small picture made pixel by pixel, transparent until painted.
class NativeImage {
public:
    NativeImage(int width, int height, double resolutionDpi)
        : width(width), height(height), resolutionDpi(resolutionDpi),
          pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), Colour{0, 0, 0, 0}) {}

    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    double GetResolutionDpi() const { return resolutionDpi; }
    /// x and y count from 0 and lie inside the image.
    const Colour& GetPixel(int x, int y) const { return pixels[PositionOf(x, y)]; }
    void SetPixel(int x, int y, const Colour& colour) { pixels[PositionOf(x, y)] = colour; }

private:
    std::size_t PositionOf(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }

    int width;
    int height;
    double resolutionDpi;
    std::vector<Colour> pixels; ///< row by row from the top
};

class NativeContext {
public:
    virtual ~NativeContext() = default;

    virtual void FillRectangle(double left, double top, double right, double bottom, const Colour& colour) = 0;
    /// Lines one pixel wide; those at right and bottom begin there, so that the frame surrounds what is filled up to
    /// them.
    virtual void FrameRectangle(double left, double top, double right, double bottom, const Colour& colour) = 0;
    /// Draws the image with its top-left pixel at the place, one image pixel a pixel.
    virtual void DrawImage(const NativeImage& image, double left, double top) = 0;
};

} // namespace host
