// The model as a text that the geometry library takes: one statement a line, without comments and escapes, and without
// what the library does not know.
#pragma once

#include <string>

#include "workbench/ifc/entities/Model.h"

namespace workbench::ifc {

/// Texts with anything but letters, digits, blanks and "_$.,:+-" become empty: the library loses letters and takes some
/// for the text's end. Elements of the newest schema become proxies with the same number and shape; numbers that the
/// library cannot hold are left out.
[[nodiscard]] std::string WriteForLibrary(const entities::Model& model);

} // namespace workbench::ifc
