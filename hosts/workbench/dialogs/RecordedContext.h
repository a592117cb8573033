// Drawing as data: the calls in their order, for tests to read and for painters to replay.
#pragma once

#include "host/Drawing.h"

#include <optional>
#include <vector>

namespace workbench {

struct DrawingCall {
    enum class Kind { FillRectangle, FrameRectangle, Image };

    Kind kind = Kind::FillRectangle;
    double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0; ///< pixels
    host::Colour colour;
    std::optional<host::NativeImage> image; ///< whose top-left pixel lies at left and top
};

class RecordedContext : public host::NativeContext {
public:
    void FillRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override {
        calls.push_back({DrawingCall::Kind::FillRectangle, left, top, right, bottom, colour, {}});
    }
    void FrameRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override {
        calls.push_back({DrawingCall::Kind::FrameRectangle, left, top, right, bottom, colour, {}});
    }

    void DrawImage(const host::NativeImage& image, double left, double top) override {
        calls.push_back(
            {DrawingCall::Kind::Image, left, top, left + image.GetWidth(), top + image.GetHeight(), {}, image});
    }

    std::vector<DrawingCall> calls;
};

} // namespace workbench
