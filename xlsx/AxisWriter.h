// The axes of a chart.
#pragma once

#include "xlsx/Chart.h"

namespace Xlsx {

/// The ids by which diagrams and axes refer to each other.
struct AxisPair {
    unsigned x;
    unsigned y;
};
constexpr AxisPair MainAxes = {50010001, 50010002};
constexpr AxisPair AdditionalAxes = {50010003, 50010004};

[[nodiscard]] bool HasAxes(DiagramKind kind);

/// The main pair and, with an additional diagram, the second one; none where the main diagram is round.
void WriteAxes(XmlWriter& xml, const CChart& chart);

} // namespace Xlsx
