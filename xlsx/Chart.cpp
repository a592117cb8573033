#include "xlsx/Chart.h"

namespace Xlsx {

CChart::CChart(unsigned number) : number(number) {
    yAxis.position = AxisPosition::Left;
    yAxis.hasMajorGridlines = true;
    x2Axis.isDeleted = true;
    y2Axis.position = AxisPosition::Right;
    y2Axis.crossing = AxisCrossing::Maximum;
}

} // namespace Xlsx
