// Role: drawing into a cell or user item of a dialog. Coordinates are pixels from the area's top-left corner.
#pragma once

#include "host/Values.h"

namespace host {

class NativeContext {
public:
    virtual ~NativeContext() = default;

    virtual void FillRectangle(double left, double top, double right, double bottom, const Colour& colour) = 0;
    virtual void FrameRectangle(double left, double top, double right, double bottom, const Colour& colour) = 0;
};

} // namespace host
