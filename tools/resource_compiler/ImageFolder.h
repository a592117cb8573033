// Finds and reads the images of 'GICN' resources: <fileBase>_<width>x<height>.svg in one folder.
#pragma once

#include "Model.h"

#include <filesystem>
#include <vector>

namespace ResourceCompiler {

/// Fills in size and text of every icon.
/// returns the image files that were read
/// errors  SourceError at the icon: no image, more than one, not readable, not UTF-8 or without an <svg element
[[nodiscard]] std::vector<std::filesystem::path> LoadImages(std::vector<Icon>& icons,
                                                            const std::filesystem::path& folder);

} // namespace ResourceCompiler
