// Points, directions and coordinate systems of a file as plain values in metres.
#pragma once

#include <optional>
#include <vector>

#include "workbench/ifc/bodies/Context.h"
#include "workbench/ifc/geometry/Transform.h"

namespace workbench::bodies {

/// Of an IfcCartesianPoint, in metres; what is missing is 0.
[[nodiscard]] geometry::Vector3 ReadPoint(const Context& context, const entities::Entity& point);

/// Of a list of numbers, times FACTOR; what is missing is 0.
[[nodiscard]] geometry::Vector3 ReadCoordinates(const step::Value& list, double factor);

/// As it is written, of any length; zero for none.
[[nodiscard]] geometry::Vector3 ReadDirection(const entities::Entity& direction);

/// Any kind of IfcPlacement; the axes have length 1 and right angles. None is where nothing is moved.
[[nodiscard]] geometry::Transform ReadPlacement(const Context& context, const entities::Entity& placement);

/// An IfcCartesianTransformationOperator, which may scale and mirror.
[[nodiscard]] geometry::Transform ReadOperator(const Context& context, const entities::Entity& transformation);

/// Of an IfcProduct in the coordinates of the world, through all that its placement is relative to. A linear placement
/// counts as none, with a remark.
[[nodiscard]] geometry::Transform ReadProductPlacement(const Context& context, const entities::Entity& product);

/// All points of an IfcCartesianPointList, in metres.
[[nodiscard]] std::vector<geometry::Vector3> ReadPointList(const Context& context, const entities::Entity& list);

} // namespace workbench::bodies
