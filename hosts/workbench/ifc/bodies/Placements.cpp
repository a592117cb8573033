#include "workbench/ifc/bodies/Placements.h"

namespace workbench::bodies {
namespace {

using entities::Entity;
using geometry::Transform;
using geometry::Vector3;

constexpr std::size_t LongestChain = 256;
constexpr Vector3 XAxis{1.0, 0.0, 0.0};
constexpr Vector3 ZAxis{0.0, 0.0, 1.0};

Vector3 DirectionOr(const Entity& direction, const Vector3& usual) {
    const Vector3 read = ReadDirection(direction);
    return read == Vector3{} ? usual : read;
}

bool IsFlat(const Entity& transformation) {
    return transformation.IsA("IfcCartesianTransformationOperator2D");
}

/// The second and third scale are the first where they are not given.
Vector3 ScalesOf(const Entity& transformation) {
    const double first = transformation.GetReal("Scale").value_or(1.0);
    return {first, transformation.GetReal("Scale2").value_or(first), transformation.GetReal("Scale3").value_or(first)};
}

/// Axis 2 may point to either side, so that the operator mirrors.
Transform AxesOf(const Entity& transformation) {
    const Vector3 third = IsFlat(transformation) ? ZAxis : DirectionOr(transformation.GetEntity("Axis3"), ZAxis);
    Transform axes = geometry::Frame({}, third, DirectionOr(transformation.GetEntity("Axis1"), XAxis));
    const Vector3 second = ReadDirection(transformation.GetEntity("Axis2"));
    if (geometry::Dot(second, axes.y) < 0.0) axes.y = -axes.y;
    return axes;
}

} // namespace

Vector3 ReadCoordinates(const step::Value& list, double factor) {
    double numbers[3] = {};
    std::size_t count = 0;
    for (const step::Value& number : list) {
        if (count == 3) break;
        numbers[count++] = number.GetNumber().value_or(0.0) * factor;
    }
    return {numbers[0], numbers[1], numbers[2]};
}

Vector3 ReadPoint(const Context& context, const Entity& point) {
    return ReadCoordinates(point.Get("Coordinates"), context.units.lengthM);
}

Vector3 ReadDirection(const Entity& direction) {
    return ReadCoordinates(direction.Get("DirectionRatios"), 1.0);
}

Transform ReadPlacement(const Context& context, const Entity& placement) {
    const Vector3 origin = ReadPoint(context, placement.GetEntity("Location"));
    const bool hasAxis = placement.IsA("IfcAxis2Placement3D") || placement.IsA("IfcAxis1Placement");
    return geometry::Frame(origin, hasAxis ? DirectionOr(placement.GetEntity("Axis"), ZAxis) : ZAxis,
                           DirectionOr(placement.GetEntity("RefDirection"), XAxis));
}

Transform ReadOperator(const Context& context, const Entity& transformation) {
    const Transform axes = AxesOf(transformation);
    const Vector3 scales = ScalesOf(transformation);
    return {axes.x * scales.x, axes.y * scales.y, axes.z * scales.z,
            ReadPoint(context, transformation.GetEntity("LocalOrigin"))};
}

Transform ReadProductPlacement(const Context& context, const Entity& product) {
    const Entity own = product.GetEntity("ObjectPlacement");
    std::vector<Entity> chain{own};
    for (const Entity& outer : own.GetChain("PlacementRelTo", LongestChain))
        chain.push_back(outer);
    Transform whole;
    for (const Entity& placement : chain) {
        if (placement.IsA("IfcLocalPlacement")) {
            whole = Combine(ReadPlacement(context, placement.GetEntity("RelativePlacement")), whole);
        } else {
            RemarkNotComputed(context, placement);
        }
    }
    return whole;
}

std::vector<Vector3> ReadPointList(const Context& context, const Entity& list) {
    std::vector<Vector3> points;
    for (const step::Value& point : list.Get("CoordList"))
        points.push_back(ReadCoordinates(point, context.units.lengthM));
    return points;
}

} // namespace workbench::bodies
