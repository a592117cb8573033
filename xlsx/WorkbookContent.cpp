#include "xlsx/WorkbookContent.h"

#include <algorithm>

namespace Xlsx {

bool WorkbookContent::HasFormulas() const {
    return std::any_of(worksheets.begin(), worksheets.end(),
                       [](const auto& sheet) { return !sheet->GetFormulaCells().empty(); });
}

std::vector<const CSheet*> WorkbookContent::GetSheets() const {
    std::vector<const CSheet*> sheets(worksheets.size() + chartsheets.size());
    for (const auto& sheet : worksheets) {
        sheets[sheet->GetId() - 1] = sheet.get();
    }
    for (const auto& sheet : chartsheets) {
        sheets[sheet->GetId() - 1] = sheet.get();
    }
    return sheets;
}

} // namespace Xlsx
