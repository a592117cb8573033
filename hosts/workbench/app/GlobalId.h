// The 22-letter identifiers of IFC files and the 128 bits that they stand for.
#pragma once

#include "host/Values.h"

#include <optional>
#include <string>
#include <string_view>

namespace workbench {

/// None where the text is no proper GlobalId: 22 letters of 0-9, A-Z, a-z, "_" and "$", the first 0 to 3.
std::optional<host::Guid> ReadGlobalId(std::string_view text);
std::string WriteGlobalId(const host::Guid& guid);

} // namespace workbench
