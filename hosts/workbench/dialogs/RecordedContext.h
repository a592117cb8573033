// Drawing as data: the calls in their order, for tests to read and for painters to replay.
#pragma once

#include "host/Drawing.h"

#include <optional>
#include <vector>

namespace workbench {

struct DrawingCall {
    enum class Kind { FillRectangle, FrameRectangle, Image, Sector, Text, SlantedText };

    Kind kind = Kind::FillRectangle;
    double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0; ///< pixels; of a sector the square around its circle
    host::Colour colour;
    std::optional<host::NativeImage> image; ///< whose top-left pixel lies at left and top
    double startAngle = 0.0, sweep = 0.0;   ///< of a sector, radians
    std::string text;                       ///< of a text; the box of a boxed one stands in left to bottom
    std::optional<host::SlantedText> slanted;
};

class RecordedContext : public host::NativeContext {
public:
    void FillRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override {
        AddBox(DrawingCall::Kind::FillRectangle, left, top, right, bottom, colour);
    }
    void FrameRectangle(double left, double top, double right, double bottom, const host::Colour& colour) override {
        AddBox(DrawingCall::Kind::FrameRectangle, left, top, right, bottom, colour);
    }
    void DrawImage(const host::NativeImage& image, double left, double top) override {
        AddBox(DrawingCall::Kind::Image, left, top, left + image.GetWidth(), top + image.GetHeight(), {}).image = image;
    }
    void FillSector(double centreX, double centreY, double radius, double startAngle, double sweep,
                    const host::Colour& colour) override {
        DrawingCall& call = AddBox(DrawingCall::Kind::Sector, centreX - radius, centreY - radius, centreX + radius,
                                   centreY + radius, colour);
        call.startAngle = startAngle;
        call.sweep = sweep;
    }
    void DrawBoxedText(const host::BoxedText& text, const host::Colour& colour) override {
        AddBox(DrawingCall::Kind::Text, text.left, text.top, text.right, text.bottom, colour).text = text.text;
    }
    void DrawSlantedText(const host::SlantedText& text, const host::Colour& colour) override {
        DrawingCall& call = AddBox(DrawingCall::Kind::SlantedText, text.x, text.y, text.x, text.y, colour);
        call.text = text.text;
        call.slanted = text;
    }

    std::vector<DrawingCall> calls;

private:
    DrawingCall& AddBox(DrawingCall::Kind kind, double left, double top, double right, double bottom,
                        const host::Colour& colour) {
        DrawingCall call;
        call.kind = kind;
        call.left = left;
        call.top = top;
        call.right = right;
        call.bottom = bottom;
        call.colour = colour;
        calls.push_back(std::move(call));
        return calls.back();
    }
};

} // namespace workbench
