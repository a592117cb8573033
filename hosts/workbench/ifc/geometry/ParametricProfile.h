// The profiles that are given by measures: rectangles, circles and rolled steel, all with fillets. Lengths in metres.
// The middle of the bounding box is the origin, y points up; slopes are angles in radians. A profile whose measures do
// not fit together (a wall thicker than the whole) has no points.
#pragma once

#include "workbench/ifc/geometry/Profile.h"

namespace workbench::geometry {

/// A point of an outline, where RADIUS is above 0 rounded by a tangent arc as far as the neighbouring edges allow.
struct Corner {
    double x = 0.0, y = 0.0;
    double radius = 0.0;
};

[[nodiscard]] Loop RoundedOutline(const std::vector<Corner>& corners);

[[nodiscard]] Profile Rectangle(double width, double height, double radius = 0.0);
[[nodiscard]] Profile HollowRectangle(double width, double height, double wall, double outerRadius, double innerRadius);
[[nodiscard]] Profile Circle(double radius);
[[nodiscard]] Profile HollowCircle(double radius, double wall);
[[nodiscard]] Profile Ellipse(double semiAxisX, double semiAxisY);
/// OFFSET: from the left end of the bottom to that of the top.
[[nodiscard]] Profile Trapezium(double bottom, double top, double height, double offset);

/// A flange, or the leg that an angle has across.
struct Flange {
    double width = 0.0;
    double thickness = 0.0;    ///< in the middle of what stands out
    double filletRadius = 0.0; ///< between it and the web
    double edgeRadius = 0.0;   ///< at its end, on the side of the web
    double slope = 0.0;        ///< of that side, thinner towards the end
};

[[nodiscard]] Profile IShape(double depth, double web, const Flange& bottom, const Flange& top);
/// Webs stand up; WEBEDGERADIUS and WEBSLOPE are those of its lower end and of both its sides.
[[nodiscard]] Profile TShape(double depth, double web, const Flange& flange, double webEdgeRadius, double webSlope);
/// The web on the left, two equal flanges to the right.
[[nodiscard]] Profile UShape(double depth, double web, const Flange& flange);
/// One leg up on the left, one along the bottom, of the same thickness, edge radius and slope.
[[nodiscard]] Profile LShape(double depth, const Flange& leg);
/// The upper flange to the left of the web, the lower to the right.
[[nodiscard]] Profile ZShape(double depth, double web, const Flange& flange);
/// Open to the right, of one wall thickness; GIRTH is the length of the lips.
[[nodiscard]] Profile CShape(double depth, double width, double wall, double girth, double innerRadius);

} // namespace workbench::geometry
