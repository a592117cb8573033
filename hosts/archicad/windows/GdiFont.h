// The dialogs' small font: the system's own for messages, 11 pixels high.
#pragma once

#include "host/Drawing.h"

#include <memory>

namespace archicad {

class GdiFont : public host::TextMeasuring {
public:
    GdiFont();
    ~GdiFont() override;
    GdiFont(const GdiFont&) = delete;
    GdiFont& operator=(const GdiFont&) = delete;

    /// Of the font with which lengths are measured, so that whole pixels tell fractions of one.
    static constexpr double MeasureScale = 16.0;

    double MeasureWidth(const std::string& text) override;
    double ReadCapitalHeight() override;

    /// A handle of the font for the caller to delete.
    /// scale  its height in units of the font's
    /// angle  radians by which the line is turned, from the x axis towards the y axis
    static void* CreateHandle(double scale, double angle);

private:
    struct Measure;
    std::unique_ptr<Measure> measure;
};

} // namespace archicad
