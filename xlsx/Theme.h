// "/xl/theme/theme1.xml": the same document in every workbook.
#pragma once

#include "xlsx/Package.h"

namespace Xlsx {

[[nodiscard]] bool WriteTheme(Package& package);

} // namespace Xlsx
