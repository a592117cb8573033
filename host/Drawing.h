// Roles: drawing into a cell or user item of a dialog, and measuring text. Coordinates are pixels from the area's
// top-left corner; angles are radians from the positive x axis towards the positive y axis.
#pragma once

#include "host/Values.h"

#include <functional>
#include <vector>

namespace host {

/// A small picture that is set pixel by pixel; initially transparent.
class NativeImage {
public:
    NativeImage(int width, int height, double resolutionDpi)
        : width(width), height(height), resolutionDpi(resolutionDpi),
          pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), Colour{0, 0, 0, 0}) {}

    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    double GetResolutionDpi() const { return resolutionDpi; }
    /// x and y count from 0 and must lie inside the image.
    const Colour& GetPixel(int x, int y) const { return pixels[PositionOf(x, y)]; }
    void SetPixel(int x, int y, const Colour& colour) { pixels[PositionOf(x, y)] = colour; }

private:
    std::size_t PositionOf(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }

    int width;
    int height;
    double resolutionDpi;
    std::vector<Colour> pixels; ///< row by row, from the top
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
    double maximumWidth = 0.0; ///< longer text continues on the next line
};

class NativeContext {
public:
    virtual ~NativeContext() = default;

    virtual void FillRectangle(double left, double top, double right, double bottom, const Colour& colour) = 0;
    /// Lines one pixel wide. The right and bottom lines begin at these coordinates, so that the frame surrounds an area
    /// that is filled up to them.
    virtual void FrameRectangle(double left, double top, double right, double bottom, const Colour& colour) = 0;
    /// Draws the image unscaled with its top-left pixel at this place.
    virtual void DrawImage(const NativeImage& image, double left, double top) = 0;
    /// The area between two radii and the arc between them.
    virtual void FillSector(double centreX, double centreY, double radius, double startAngle, double sweep,
                            const Colour& colour) = 0;
    // ArchiCAD is not known to have documented functions that place or rotate text; its adapter brings these two along.

    /// Centred in the box in both directions, even if it is larger than the box.
    virtual void DrawBoxedText(const BoxedText& text, const Colour& colour) = 0;
    virtual void DrawSlantedText(const SlantedText& text, const Colour& colour) = 0;
};

/// Drawing pictures without a window, and the folder in which to keep them.
class Pictures {
public:
    virtual ~Pictures() = default;

    /// Path (UTF-8) of one of the host's special folders, by its number.
    virtual ErrorCode ReadSpecialFolder(std::int16_t number, std::string& path) = 0;
    /// Draws an area of width x height pixels, enlarged by `scale`, and writes it as a JPEG file, replacing a file of
    /// that name. ArchiCAD is not known to have a function for drawing without a window; its adapter brings this
    /// along.
    virtual ErrorCode WriteJpeg(const std::string& path, int width, int height, double scale,
                                const std::function<void(NativeContext&)>& draw) = 0;
};

/// Number of the host's folder for temporary files.
inline constexpr std::int16_t TemporaryFolder = 7;

/// Measures the dialogs' small font, in pixels. ArchiCAD is not known to have functions for this; its adapter brings
/// them along.
class TextMeasuring {
public:
    virtual ~TextMeasuring() = default;

    virtual double MeasureWidth(const std::string& text) = 0;
    virtual double ReadCapitalHeight() = 0;
};

} // namespace host
