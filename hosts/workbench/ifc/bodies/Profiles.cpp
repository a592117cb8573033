#include "workbench/ifc/bodies/Profiles.h"

#include "workbench/ifc/bodies/Curves.h"
#include "workbench/ifc/bodies/Placements.h"
#include "workbench/ifc/geometry/ParametricProfile.h"

namespace workbench::bodies {
namespace {

using entities::Entity;
using geometry::Flange;
using geometry::Profile;
using geometry::Transform;

/// The measures of one profile by name; what is missing is 0.
class Measures {
public:
    Measures(const Context& context, const Entity& profile) : context(context), profile(profile) {}

    [[nodiscard]] double Length(const char* name) const {
        return profile.GetReal(name).value_or(0.0) * context.units.lengthM;
    }
    /// The first of both that is given.
    [[nodiscard]] double Length(const char* name, const char* other) const {
        return profile.Get(name).IsMissing() ? Length(other) : Length(name);
    }
    [[nodiscard]] double Angle(const char* name) const {
        return context.units.ToRadians(profile.GetReal(name).value_or(0.0));
    }

private:
    const Context& context;
    const Entity& profile;
};

using Make = Profile (*)(const Measures&);

Profile MakeRectangle(const Measures& m) {
    return geometry::Rectangle(m.Length("XDim"), m.Length("YDim"));
}
Profile MakeRoundedRectangle(const Measures& m) {
    return geometry::Rectangle(m.Length("XDim"), m.Length("YDim"), m.Length("RoundingRadius"));
}
Profile MakeHollowRectangle(const Measures& m) {
    return geometry::HollowRectangle(m.Length("XDim"), m.Length("YDim"), m.Length("WallThickness"),
                                     m.Length("OuterFilletRadius"), m.Length("InnerFilletRadius"));
}
Profile MakeCircle(const Measures& m) {
    return geometry::Circle(m.Length("Radius"));
}
Profile MakeHollowCircle(const Measures& m) {
    return geometry::HollowCircle(m.Length("Radius"), m.Length("WallThickness"));
}
Profile MakeEllipse(const Measures& m) {
    return geometry::Ellipse(m.Length("SemiAxis1"), m.Length("SemiAxis2"));
}
Profile MakeTrapezium(const Measures& m) {
    return geometry::Trapezium(m.Length("BottomXDim"), m.Length("TopXDim"), m.Length("YDim"), m.Length("TopXOffset"));
}

Profile MakeIShape(const Measures& m) {
    const Flange flange{m.Length("OverallWidth"), m.Length("FlangeThickness"), m.Length("FilletRadius"),
                        m.Length("FlangeEdgeRadius"), m.Angle("FlangeSlope")};
    return geometry::IShape(m.Length("OverallDepth"), m.Length("WebThickness"), flange, flange);
}

/// The older schema names the bottom flange as an I-shape's and may leave out the upper one's thickness.
Profile MakeAsymmetricIShape(const Measures& m) {
    const Flange bottom{m.Length("BottomFlangeWidth", "OverallWidth"),
                        m.Length("BottomFlangeThickness", "FlangeThickness"),
                        m.Length("BottomFlangeFilletRadius", "FilletRadius"), m.Length("BottomFlangeEdgeRadius"),
                        m.Angle("BottomFlangeSlope")};
    Flange top{m.Length("TopFlangeWidth"), m.Length("TopFlangeThickness"), m.Length("TopFlangeFilletRadius"),
               m.Length("TopFlangeEdgeRadius"), m.Angle("TopFlangeSlope")};
    if (top.thickness == 0.0) top.thickness = bottom.thickness;
    return geometry::IShape(m.Length("OverallDepth"), m.Length("WebThickness"), bottom, top);
}

Profile MakeTShape(const Measures& m) {
    const Flange flange{m.Length("FlangeWidth"), m.Length("FlangeThickness"), m.Length("FilletRadius"),
                        m.Length("FlangeEdgeRadius"), m.Angle("FlangeSlope")};
    return geometry::TShape(m.Length("Depth"), m.Length("WebThickness"), flange, m.Length("WebEdgeRadius"),
                            m.Angle("WebSlope"));
}

Flange FlangeOf(const Measures& m) {
    return {m.Length("FlangeWidth"), m.Length("FlangeThickness"), m.Length("FilletRadius"), m.Length("EdgeRadius"),
            m.Angle("FlangeSlope")};
}
Profile MakeUShape(const Measures& m) {
    return geometry::UShape(m.Length("Depth"), m.Length("WebThickness"), FlangeOf(m));
}
Profile MakeZShape(const Measures& m) {
    return geometry::ZShape(m.Length("Depth"), m.Length("WebThickness"), FlangeOf(m));
}
Profile MakeLShape(const Measures& m) {
    const Flange leg{m.Length("Width", "Depth"), m.Length("Thickness"), m.Length("FilletRadius"),
                     m.Length("EdgeRadius"), m.Angle("LegSlope")};
    return geometry::LShape(m.Length("Depth"), leg);
}
Profile MakeCShape(const Measures& m) {
    return geometry::CShape(m.Length("Depth"), m.Length("Width"), m.Length("WallThickness"), m.Length("Girth"),
                            m.Length("InternalFilletRadius"));
}

struct Shape {
    std::string_view type;
    Make make;
};

/// Types that inherit from others come before them.
constexpr Shape Shapes[] = {{"IfcRoundedRectangleProfileDef", MakeRoundedRectangle},
                            {"IfcRectangleHollowProfileDef", MakeHollowRectangle},
                            {"IfcRectangleProfileDef", MakeRectangle},
                            {"IfcCircleHollowProfileDef", MakeHollowCircle},
                            {"IfcCircleProfileDef", MakeCircle},
                            {"IfcEllipseProfileDef", MakeEllipse},
                            {"IfcTrapeziumProfileDef", MakeTrapezium},
                            {"IfcAsymmetricIShapeProfileDef", MakeAsymmetricIShape},
                            {"IfcIShapeProfileDef", MakeIShape},
                            {"IfcTShapeProfileDef", MakeTShape},
                            {"IfcUShapeProfileDef", MakeUShape},
                            {"IfcZShapeProfileDef", MakeZShape},
                            {"IfcLShapeProfileDef", MakeLShape},
                            {"IfcCShapeProfileDef", MakeCShape}};

std::optional<Profile> ReadParametric(const Context& context, const Entity& profile) {
    for (const Shape& shape : Shapes) {
        if (!profile.IsA(shape.type)) continue;
        return Transformed(shape.make(Measures(context, profile)),
                           ReadPlacement(context, profile.GetEntity("Position")));
    }
    return std::nullopt;
}

std::optional<Profile> ReadArbitrary(const Context& context, const Entity& profile) {
    if (profile.IsA("IfcCenterLineProfileDef"))
        return geometry::ThickenedCurve(ReadCurve(context, profile.GetEntity("Curve")),
                                        Measures(context, profile).Length("Thickness"));
    if (!profile.IsA("IfcArbitraryClosedProfileDef")) return std::nullopt;
    Profile read{ToLoop(ReadCurve(context, profile.GetEntity("OuterCurve"))), {}};
    for (const Entity& inner : profile.GetEntities("InnerCurves"))
        read.voids.push_back(ToLoop(ReadCurve(context, inner)));
    return read;
}

void Read(const Context& context, const Entity& profile, const Transform& outer, int depth,
          std::vector<Profile>& profiles) {
    if (!context.MayEnter(depth)) return;
    if (profile.IsA("IfcMirroredProfileDef")) {
        const Transform mirror{{-1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, {}};
        return Read(context, profile.GetEntity("ParentProfile"), Combine(outer, mirror), depth + 1, profiles);
    }
    if (profile.IsA("IfcDerivedProfileDef"))
        return Read(context, profile.GetEntity("ParentProfile"),
                    Combine(outer, ReadOperator(context, profile.GetEntity("Operator"))), depth + 1, profiles);
    if (profile.IsA("IfcCompositeProfileDef")) {
        for (const Entity& part : profile.GetEntities("Profiles"))
            Read(context, part, outer, depth + 1, profiles);
        return;
    }
    std::optional<Profile> read = ReadParametric(context, profile);
    if (!read) read = ReadArbitrary(context, profile);
    if (read && read->outer.points.size() > 2) {
        profiles.push_back(Transformed(*read, outer));
    } else {
        RemarkNotComputed(context, profile);
    }
}

} // namespace

std::vector<Profile> ReadProfiles(const Context& context, const Entity& profile) {
    std::vector<Profile> profiles;
    Read(context, profile, {}, 0, profiles);
    return profiles;
}

} // namespace workbench::bodies
