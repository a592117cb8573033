// A sheet that shows nothing but one chart.
#pragma once

#include "xlsx/Chart.h"
#include "xlsx/Package.h"
#include "xlsx/Sheet.h"

#include <string>

namespace Xlsx {

class CChartsheet final : public CSheet {
public:
    /// Places the chart on the drawing; both outlive the sheet.
    CChartsheet(unsigned id, const std::string& title, CDrawing& drawing, CChart& chart);

    [[nodiscard]] CChart& GetChart() { return chart; }

    /// Called by the workbook: the part and its relationships.
    [[nodiscard]] bool Write(Package& package) const;

private:
    CChart& chart;
};

} // namespace Xlsx
