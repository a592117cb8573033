// Roles: drawing into a cell or user item of a dialog, and measuring what is drawn. Coordinates are pixels from the
// area's top-left corner, angles radians from the positive x axis towards the positive y axis.
#pragma once

#include "host/Values.h"

#include <functional>
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

/// A text in the dialogs' small font.
struct BoxedText {
    std::string text;
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

struct SlantedText {
    std::string text;
    double x = 0.0; ///< where the text begins
    double y = 0.0;
    double angle = 0.0;
    double maximumWidth = 0.0; ///< what is longer goes on in a further line
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
    /// The area between two radii and their arc.
    virtual void FillSector(double centreX, double centreY, double radius, double startAngle, double sweep,
                            const Colour& colour) = 0;
    // ArchiCAD is not known to place or turn texts by a documented function: its adapter brings these two along.

    /// Centred in the box both ways, also where it is larger than the box.
    virtual void DrawBoxedText(const BoxedText& text, const Colour& colour) = 0;
    virtual void DrawSlantedText(const SlantedText& text, const Colour& colour) = 0;
};

/// Pictures that are drawn without a window, and where they are kept.
class Pictures {
public:
    virtual ~Pictures() = default;

    /// Path of one of the host's special folders by its number, UTF-8.
    virtual ErrorCode ReadSpecialFolder(std::int16_t number, std::string& path) = 0;
    /// ArchiCAD is not known to draw without a window: its adapter brings this along.
    /// Draws width x height pixels, `scale` times as large in the picture, and writes them as a JPEG file; one of that
    /// name is replaced.
    virtual ErrorCode WriteJpeg(const std::string& path, int width, int height, double scale,
                                const std::function<void(NativeContext&)>& draw) = 0;
};

/// Of the host's folder for temporary files.
inline constexpr std::int16_t TemporaryFolder = 7;

/// Of the dialogs' small font, in pixels. ArchiCAD is not known to have functions for this: its adapter brings them
/// along.
class TextMeasuring {
public:
    virtual ~TextMeasuring() = default;

    virtual double MeasureWidth(const std::string& text) = 0;
    virtual double ReadCapitalHeight() = 0;
};

} // namespace host
