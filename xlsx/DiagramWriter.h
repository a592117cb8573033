// The chart-kind element of one diagram with its series.
#pragma once

#include "xlsx/AxisWriter.h"
#include "xlsx/Chart.h"

#include <cstddef>

namespace Xlsx {

/// axes         what a diagram with axes refers to
/// firstSeries  position of the diagram's first series among all of the chart
void WriteDiagram(XmlWriter& xml, const Diagram& diagram, const AxisPair& axes, std::size_t firstSeries);

} // namespace Xlsx
