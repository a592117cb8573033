#include "archicad/windows/GdiFont.h"

#include "archicad/windows/WideText.h"

#include <cmath>

namespace archicad {

namespace {

constexpr double FontPixels = 11.0;
constexpr double TenthsPerRadian = 1800.0 / 3.14159265358979323846;

} // namespace

struct GdiFont::Measure {
    Measure() = default;
    ~Measure() {
        SelectObject(context, former);
        DeleteObject(font);
        DeleteDC(context);
    }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;

    HDC context = CreateCompatibleDC(nullptr);
    HFONT font = static_cast<HFONT>(CreateHandle(MeasureScale, 0.0));
    HGDIOBJ former = SelectObject(context, font);
};

GdiFont::GdiFont() : measure(std::make_unique<Measure>()) {}

GdiFont::~GdiFont() = default;

void* GdiFont::CreateHandle(double scale, double angle) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    LOGFONTW font{};
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0) != 0) font = metrics.lfMessageFont;
    font.lfHeight = -static_cast<LONG>(std::lround(FontPixels * scale));
    font.lfWidth = 0;
    font.lfEscapement = font.lfOrientation = static_cast<LONG>(std::lround(-angle * TenthsPerRadian));
    font.lfOutPrecision = OUT_TT_PRECIS; // others cannot be turned
    font.lfQuality = ANTIALIASED_QUALITY;
    return CreateFontIndirectW(&font);
}

double GdiFont::MeasureWidth(const std::string& text) {
    const std::wstring wide = WideFromUtf8(text);
    SIZE size{};
    GetTextExtentPoint32W(measure->context, wide.data(), static_cast<int>(wide.size()), &size);
    return static_cast<double>(size.cx) / MeasureScale;
}

double GdiFont::ReadCapitalHeight() {
    constexpr FIXED One{0, 1}, Zero{0, 0};
    const MAT2 identity{One, Zero, Zero, One};
    GLYPHMETRICS metrics{};
    const DWORD found = GetGlyphOutlineW(measure->context, L'H', GGO_METRICS, &metrics, 0, nullptr, &identity);
    return found == GDI_ERROR ? 0.0 : static_cast<double>(metrics.gmBlackBoxY) / MeasureScale;
}

} // namespace archicad
