// Pictures as JPEG files.
#pragma once

#include "host/Drawing.h"

#include <functional>
#include <string>

namespace archicad {

/// Does what host::Pictures::WriteJpeg says. path is UTF-8. General where the file cannot be written, which then is not
/// there.
host::ErrorCode WriteJpeg(const std::string& path, int width, int height, double scale,
                          const std::function<void(host::NativeContext&)>& draw);

} // namespace archicad
