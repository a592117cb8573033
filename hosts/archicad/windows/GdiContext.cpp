#include "archicad/windows/GdiContext.h"

#include "archicad/windows/GdiFont.h"
#include "archicad/windows/WideText.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

namespace archicad {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr int Samples = 4; ///< of a pixel across and down, where a shape's edge cuts it

/// A font of the context's scale while it draws one text.
class SelectedFont {
public:
    SelectedFont(HDC context, double scale, double angle, const host::Colour& colour)
        : context(context), font(static_cast<HFONT>(GdiFont::CreateHandle(scale, angle))),
          former(SelectObject(context, font)) {
        SetTextColor(context, RGB(colour.red, colour.green, colour.blue));
    }
    ~SelectedFont() {
        SelectObject(context, former);
        DeleteObject(font);
    }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

private:
    HDC context;
    HFONT font;
    HGDIOBJ former;
};

SIZE Measure(HDC context, const std::wstring& text) {
    SIZE size{};
    GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
    return size;
}

/// Letters of the text that fit, at least one.
std::size_t CountFitting(HDC context, const std::wstring& text, double width) {
    int fitting = 0;
    SIZE size{};
    GetTextExtentExPointW(context, text.data(), static_cast<int>(text.size()), static_cast<int>(std::ceil(width)),
                          &fitting, nullptr, &size);
    return static_cast<std::size_t>(std::max(fitting, 1));
}

/// Lines of at most that width, parted between words where that is possible.
std::vector<std::wstring> BreakLines(HDC context, std::wstring text, double width) {
    std::vector<std::wstring> lines;
    for (;;) {
        const std::size_t fitting = CountFitting(context, text, width);
        if (fitting >= text.size()) break;
        const std::size_t blank = text.rfind(L' ', fitting);
        const bool isBetweenWords = blank != std::wstring::npos && blank > 0;
        lines.push_back(text.substr(0, isBetweenWords ? blank : fitting));
        text.erase(0, isBetweenWords ? blank + 1 : fitting);
    }
    lines.push_back(std::move(text));
    return lines;
}

} // namespace

struct GdiContext::Surface {
    Surface(int width, int height) : context(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height; // rows from the top
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        bitmap = CreateDIBSection(context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (bitmap == nullptr) {
            DeleteDC(context);
            throw std::bad_alloc();
        }
        pixels = static_cast<RGBQUAD*>(bits);
        former = SelectObject(context, bitmap);
        SetBkMode(context, TRANSPARENT);
        SetTextAlign(context, TA_LEFT | TA_TOP);
    }
    ~Surface() {
        SelectObject(context, former);
        DeleteObject(bitmap);
        DeleteDC(context);
    }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    HDC context;
    HBITMAP bitmap = nullptr;
    HGDIOBJ former = nullptr;
    RGBQUAD* pixels = nullptr; ///< row by row from the top
};

GdiContext::GdiContext(int width, int height, double scale)
    : width(static_cast<int>(width * scale)), height(static_cast<int>(height * scale)), scale(scale),
      surface(std::make_unique<Surface>(this->width, this->height)) {
    FillRectangle(0, 0, width, height, {255, 255, 255});
}

GdiContext::~GdiContext() = default;

void GdiContext::FillRectangle(double left, double top, double right, double bottom, const host::Colour& colour) {
    const auto place = [&](double length, int limit) {
        return static_cast<int>(std::clamp(std::round(length * scale), 0.0, static_cast<double>(limit)));
    };
    for (int y = place(std::min(top, bottom), height); y < place(std::max(top, bottom), height); ++y)
        for (int x = place(std::min(left, right), width); x < place(std::max(left, right), width); ++x)
            Blend(x, y, colour);
}

void GdiContext::FrameRectangle(double left, double top, double right, double bottom, const host::Colour& colour) {
    FillRectangle(left, top, right + 1, top + 1, colour);
    FillRectangle(left, bottom, right + 1, bottom + 1, colour);
    FillRectangle(left, top, left + 1, bottom, colour);
    FillRectangle(right, top, right + 1, bottom, colour);
}

void GdiContext::DrawImage(const host::NativeImage& image, double left, double top) {
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x)
            FillRectangle(left + x, top + y, left + x + 1, top + y + 1, image.GetPixel(x, y));
}

void GdiContext::FillSector(double centreX, double centreY, double radius, double startAngle, double sweep,
                            const host::Colour& colour) {
    const double first = sweep < 0.0 ? startAngle + sweep : startAngle, turn = std::fabs(sweep);
    const auto isInside = [&](double x, double y) {
        const double across = x / scale - centreX, down = y / scale - centreY;
        if (across * across + down * down > radius * radius) return false;
        const double angle = std::fmod(std::atan2(down, across) - first, 2 * Pi);
        return (angle < 0.0 ? angle + 2 * Pi : angle) < turn;
    };
    const auto bound = [&](double length, int limit) {
        return static_cast<int>(std::clamp(length * scale, 0.0, static_cast<double>(limit)));
    };
    for (int y = bound(centreY - radius, height); y < bound(centreY + radius + 1, height); ++y)
        for (int x = bound(centreX - radius, width); x < bound(centreX + radius + 1, width); ++x) {
            int inside = 0;
            for (int sample = 0; sample < Samples * Samples; ++sample) {
                const double sampleX = x + (sample % Samples + 0.5) / Samples;
                const double sampleY = y + (sample / Samples + 0.5) / Samples;
                inside += isInside(sampleX, sampleY) ? 1 : 0;
            }
            Blend(x, y, colour, static_cast<double>(inside) / (Samples * Samples));
        }
}

void GdiContext::DrawBoxedText(const host::BoxedText& text, const host::Colour& colour) {
    const SelectedFont font(surface->context, scale, 0.0, colour);
    const std::wstring wide = WideFromUtf8(text.text);
    const SIZE size = Measure(surface->context, wide);
    const double left = (text.left + text.right) / 2.0 * scale - size.cx / 2.0;
    const double top = (text.top + text.bottom) / 2.0 * scale - size.cy / 2.0;
    TextOutW(surface->context, static_cast<int>(std::lround(left)), static_cast<int>(std::lround(top)), wide.data(),
             static_cast<int>(wide.size()));
    GdiFlush();
}

void GdiContext::DrawSlantedText(const host::SlantedText& text, const host::Colour& colour) {
    std::vector<std::wstring> lines;
    double lineHeight = 0.0;
    {
        const SelectedFont measuring(surface->context, GdiFont::MeasureScale, 0.0, colour);
        lines = BreakLines(surface->context, WideFromUtf8(text.text), text.maximumWidth * GdiFont::MeasureScale);
        lineHeight = Measure(surface->context, L"H").cy * scale / GdiFont::MeasureScale;
    }
    const SelectedFont turned(surface->context, scale, text.angle, colour);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double below = lineHeight * static_cast<double>(i);
        const double x = text.x * scale - below * std::sin(text.angle);
        const double y = text.y * scale + below * std::cos(text.angle);
        TextOutW(surface->context, static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)), lines[i].data(),
                 static_cast<int>(lines[i].size()));
    }
    GdiFlush();
}

host::Colour GdiContext::GetPixel(int x, int y) const {
    const RGBQUAD& pixel = surface->pixels[y * width + x];
    return {pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue};
}

void GdiContext::Blend(int x, int y, const host::Colour& colour, double share) {
    const double cover = share * colour.alpha / 255.0;
    if (cover <= 0.0) return;
    RGBQUAD& pixel = surface->pixels[y * width + x];
    const auto mix = [&](BYTE& present, std::uint8_t added) {
        present = static_cast<BYTE>(std::lround(present + (added - present) * cover));
    };
    mix(pixel.rgbRed, colour.red);
    mix(pixel.rgbGreen, colour.green);
    mix(pixel.rgbBlue, colour.blue);
}

} // namespace archicad
