// Small pictures of coloured fields in four file formats, made on the spot.
#pragma once

#include <string>

namespace gallery {

/// Each 32 x 24 pixels: four by three fields of 8 x 8. Bytes of a whole file.
[[nodiscard]] std::string PngPicture();
[[nodiscard]] std::string GifPicture();
[[nodiscard]] std::string JpegPicture();
[[nodiscard]] std::string TiffPicture();

} // namespace gallery
