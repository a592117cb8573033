// The parts that tell what a package is and what is in it. Each answers false when not all of it could be written.
#pragma once

#include "xlsx/WorkbookContent.h"

#include <ctime>

namespace Xlsx {

/// "/docProps/core.xml" and "/_rels/.rels".
/// time  of saving, local
[[nodiscard]] bool WriteCoreProperties(WorkbookContent& content, const std::tm& time);
/// "/docProps/app.xml".
[[nodiscard]] bool WriteApplicationProperties(WorkbookContent& content);
/// "/[Content_Types].xml" and, where there are formulas, "/xl/calcChain.xml".
[[nodiscard]] bool WriteContentTypes(WorkbookContent& content);
/// "/xl/sharedStrings.xml"; nothing when there are no texts.
[[nodiscard]] bool WriteSharedStrings(WorkbookContent& content);
/// "/xl/workbook.xml" and its relationships.
[[nodiscard]] bool WriteWorkbook(WorkbookContent& content);

} // namespace Xlsx
