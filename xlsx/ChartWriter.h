// "/xl/charts/chart" + number + ".xml".
#pragma once

#include "xlsx/Chart.h"
#include "xlsx/Package.h"

#include <string>

namespace Xlsx {

[[nodiscard]] std::string ChartPath(const CChart& chart);

[[nodiscard]] bool WriteChart(Package& package, const CChart& chart);

} // namespace Xlsx
