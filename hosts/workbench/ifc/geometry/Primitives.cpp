#include "workbench/ifc/geometry/Primitives.h"

#include <numbers>

#include "workbench/ifc/geometry/Extrusion.h"
#include "workbench/ifc/geometry/Loft.h"
#include "workbench/ifc/geometry/ParametricProfile.h"

namespace workbench::geometry {
namespace {

constexpr double Pi = std::numbers::pi;
constexpr Vector3 Up{0.0, 0.0, 1.0};

Profile CornerRectangle(double x, double y) {
    const Transform move = MoveBy({x / 2.0, y / 2.0, 0.0});
    return Transformed(Rectangle(x, y), move);
}

/// From BASE to a point at height, straight above CENTRE.
Body Pointed(const Profile& base, const Vector2& centre, double height) {
    if (!(height > 0.0) || base.outer.points.empty()) return {};
    const Section tip{std::vector<Vector3>(base.outer.points.size(), Raised(centre, height))};
    Body body = Loft({PlaceSection(base, {}), tip}, Ends::Capped);
    SetTrueVolume(body, GetAreaM2(base) * height / 3.0);
    return body;
}

} // namespace

Body Block(double x, double y, double z) {
    return z > 0.0 ? Extrude(CornerRectangle(x, y), Up, z) : Body{};
}

Body Pyramid(double x, double y, double height) {
    return Pointed(CornerRectangle(x, y), {x / 2.0, y / 2.0}, height);
}

Body Cylinder(double radius, double height) {
    return height > 0.0 ? Extrude(Circle(radius), Up, height) : Body{};
}

Body Cone(double radius, double height) {
    return Pointed(Circle(radius), {}, height);
}

Body Sphere(double radius) {
    if (!(radius > 0.0)) return {};
    const Curve half = ConicArc({}, {0.0, -radius, 0.0}, {radius, 0.0, 0.0}, 0.0, Pi);
    Body body = Revolve({ToLoop(half), {}}, {{}, {0.0, 1.0}}, 2.0 * Pi);
    SetTrueVolume(body, 4.0 / 3.0 * Pi * radius * radius * radius);
    return body;
}

} // namespace workbench::geometry
