// Puts resources out as a C++17 source of constants, the definitions of `resources/ResourceTables.h`.
#pragma once

#include "Model.h"

#include <string>

namespace ResourceCompiler {

/// origin  name of the source for the comment at the top
[[nodiscard]] std::string WriteSource(const Resources& resources, const std::string& origin);

} // namespace ResourceCompiler
