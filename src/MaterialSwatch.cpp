#include "src/MaterialSwatch.h"

namespace {

constexpr host::Colour Black{0, 0, 0};
constexpr host::Colour Transparent{0, 0, 0, 0};
constexpr int ImageExtent = 25; ///< pixels, at screen resolution
constexpr double ScreenDpi = 72.0;
constexpr int FirstX = 1, LastX = 20;
constexpr int FirstY = 2, LastY = 17;

std::uint8_t ToByte(double component) {
    return static_cast<std::uint8_t>(component * 255.0);
}

host::Colour ToColour(const host::Shade& shade) {
    return {ToByte(shade.red), ToByte(shade.green), ToByte(shade.blue)};
}

/// Transparent for no pen, and for one that the model does not have.
host::Colour ReadPen(host::Host& host, std::int16_t pen) {
    host::Shade shade;
    if (pen == host::NoPen || host.GetAttributes().ReadPenColour(pen, shade) != host::NoError) return Transparent;
    return ToColour(shade);
}

host::NativeImage PaintPattern(const host::FillPattern& pattern, const host::Colour& foreground,
                               const host::Colour& background) {
    host::NativeImage image(ImageExtent, ImageExtent, ScreenDpi);
    for (int y = FirstY; y <= LastY; ++y)
        for (int x = FirstX; x <= LastX; ++x) {
            const bool isSet = (pattern[static_cast<std::size_t>(y % 8)] & (0x80U >> (x % 8))) != 0;
            image.SetPixel(x, y, isSet ? foreground : background);
        }
    return image;
}

} // namespace

void DrawMaterialSwatch(host::Host& host, const host::BuildingMaterial& material, const host::DialogMessageData& cell) {
    if (cell.context == nullptr) return;
    host::NativeContext& context = *cell.context;
    const int left = cell.area.left;
    const int top = cell.area.top;
    context.FillRectangle(left, top, left + cell.area.width, top + cell.area.height, cell.background);
    host::Attributes& attributes = host.GetAttributes();
    host::Shade surface;
    if (attributes.ReadSurfaceColour(material.cutSurface, surface) == host::NoError)
        context.FillRectangle(left + 24, top + 2, left + 45, top + 18, ToColour(surface));
    host::FillPattern pattern{};
    const bool hasPattern = attributes.ReadFillPattern(material.cutFill, pattern) == host::NoError;
    context.FrameRectangle(left, top + 1, left + 22, top + 19, Black);
    context.FrameRectangle(left + 23, top + 1, left + 45, top + 19, Black);
    if (hasPattern)
        context.DrawImage(
            PaintPattern(pattern, ReadPen(host, material.cutFillPen), ReadPen(host, material.cutFillBackgroundPen)),
            left + 1, top + 1);
}
