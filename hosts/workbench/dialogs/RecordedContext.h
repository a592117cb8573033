// Drawing as data: the calls in their order, for tests to read and for painters to replay.
#pragma once

#include "host/Drawing.h"

#include <vector>

namespace workbench {

struct DrawingCall {
    enum class Kind { FillRectangle, FrameRectangle };

    Kind kind = Kind::FillRectangle;
    double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0; ///< pixels
    host::Colour colour;
};

class RecordedContext : public host::NativeContext {
public:
    void FillRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override {
        calls.push_back({DrawingCall::Kind::FillRectangle, left, top, right, bottom, colour});
    }
    void FrameRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override {
        calls.push_back({DrawingCall::Kind::FrameRectangle, left, top, right, bottom, colour});
    }

    std::vector<DrawingCall> calls;
};

} // namespace workbench
