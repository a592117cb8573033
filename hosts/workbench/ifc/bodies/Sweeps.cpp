#include "workbench/ifc/bodies/Sweeps.h"

#include "workbench/ifc/bodies/Curves.h"
#include "workbench/ifc/bodies/Placements.h"
#include "workbench/ifc/bodies/Profiles.h"
#include "workbench/ifc/geometry/Extrusion.h"
#include "workbench/ifc/geometry/Primitives.h"
#include "workbench/ifc/geometry/Sweep.h"

namespace workbench::bodies {
namespace {

using entities::Entity;
using geometry::Body;
using geometry::Curve;
using geometry::Profile;
using geometry::Vector3;

double LengthOf(const Context& context, const Entity& item, const char* name) {
    return item.GetReal(name).value_or(0.0) * context.units.lengthM;
}

/// What MAKE makes of each of the profiles, side by side.
template <class MakeBody>
Body OfEach(const std::vector<Profile>& profiles, const MakeBody& make) {
    Body whole;
    for (const Profile& profile : profiles)
        whole = Together(std::move(whole), make(profile));
    return whole;
}

Body ReadExtrusion(const Context& context, const Entity& item) {
    const Vector3 direction = ReadDirection(item.GetEntity("ExtrudedDirection"));
    const double depth = LengthOf(context, item, "Depth");
    const std::vector<Profile> starts = ReadProfiles(context, item.GetEntity("SweptArea"));
    if (!item.IsA("IfcExtrudedAreaSolidTapered"))
        return OfEach(starts, [&](const Profile& profile) { return Extrude(profile, direction, depth); });
    const std::vector<Profile> ends = ReadProfiles(context, item.GetEntity("EndSweptArea"));
    Body whole;
    for (std::size_t i = 0; i < starts.size() && starts.size() == ends.size(); ++i)
        whole = Together(std::move(whole), ExtrudeTapered(starts[i], ends[i], direction, depth));
    if (whole.solids.empty()) RemarkNotComputed(context, item);
    return whole;
}

Body ReadRevolution(const Context& context, const Entity& item) {
    const Entity axis = item.GetEntity("Axis");
    const Vector3 direction = ReadPlacement(context, axis).z;
    const geometry::Axis about{Flat(ReadPoint(context, axis.GetEntity("Location"))), Flat(direction)};
    const double angle = context.units.ToRadians(item.GetReal("Angle").value_or(0.0));
    return OfEach(ReadProfiles(context, item.GetEntity("SweptArea")),
                  [&](const Profile& profile) { return Revolve(profile, about, angle); });
}

/// The part between the parameters that the sweep states, which only a polyline has in points.
Curve ReadDirectrix(const Context& context, const Entity& item) {
    const Entity entity = item.GetEntity("Directrix");
    Curve whole = ReadCurve(context, entity);
    const auto from = item.GetReal("StartParam");
    const auto to = item.GetReal("EndParam");
    if (!from && !to) return whole;
    if (entity.IsA("IfcPolyline"))
        return geometry::TrimPolyline(whole.points, from.value_or(0.0),
                                      to.value_or(static_cast<double>(whole.points.size())));
    if (from.value_or(0.0) != 0.0)
        context.remarks.insert("The start of a sweep along an " + std::string(entity.GetTypeName()) +
                               " is taken as the curve's.");
    return whole;
}

Body ReadDisk(const Context& context, const Entity& item) {
    return geometry::SweepDisk(ReadDirectrix(context, item), LengthOf(context, item, "Radius"),
                               LengthOf(context, item, "InnerRadius"));
}

/// The direction of the profile's x axis along the way; zero where it changes.
Vector3 ReadReference(const Context& context, const Entity& item) {
    if (item.IsA("IfcFixedReferenceSweptAreaSolid")) return ReadDirection(item.GetEntity("FixedReference"));
    const Entity surface = item.GetEntity("ReferenceSurface");
    return surface.IsA("IfcPlane") ? ReadPlacement(context, surface.GetEntity("Position")).z : Vector3{};
}

Body ReadCurveSweep(const Context& context, const Entity& item) {
    const Vector3 reference = ReadReference(context, item);
    if (reference == Vector3{}) {
        RemarkNotComputed(context, item);
        return {};
    }
    const Curve way = ReadDirectrix(context, item);
    return OfEach(ReadProfiles(context, item.GetEntity("SweptArea")),
                  [&](const Profile& profile) { return SweepAlong(profile, way, reference); });
}

Body ReadPrimitive(const Context& context, const Entity& item) {
    const auto length = [&](const char* name) { return LengthOf(context, item, name); };
    if (item.IsA("IfcBlock")) return geometry::Block(length("XLength"), length("YLength"), length("ZLength"));
    if (item.IsA("IfcRectangularPyramid"))
        return geometry::Pyramid(length("XLength"), length("YLength"), length("Height"));
    if (item.IsA("IfcRightCircularCone")) return geometry::Cone(length("BottomRadius"), length("Height"));
    if (item.IsA("IfcRightCircularCylinder")) return geometry::Cylinder(length("Radius"), length("Height"));
    return geometry::Sphere(length("Radius"));
}

struct Kind {
    std::string_view type;
    Body (*read)(const Context&, const Entity&);
};

constexpr Kind Kinds[] = {{"IfcExtrudedAreaSolid", ReadExtrusion},
                          {"IfcRevolvedAreaSolidTapered", nullptr},
                          {"IfcRevolvedAreaSolid", ReadRevolution},
                          {"IfcSweptDiskSolid", ReadDisk},
                          {"IfcFixedReferenceSweptAreaSolid", ReadCurveSweep},
                          {"IfcSurfaceCurveSweptAreaSolid", ReadCurveSweep},
                          {"IfcCsgPrimitive3D", ReadPrimitive}};

} // namespace

std::optional<Body> ReadSweep(const Context& context, const Entity& item) {
    for (const Kind& kind : Kinds) {
        if (!item.IsA(kind.type)) continue;
        if (kind.read == nullptr) return std::nullopt;
        return Transformed(kind.read(context, item), ReadPlacement(context, item.GetEntity("Position")));
    }
    return std::nullopt;
}

} // namespace workbench::bodies
