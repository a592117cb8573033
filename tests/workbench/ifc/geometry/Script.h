// A calculator for bodies: numbers and words one after the other, each word takes what it needs from the stacks, as
// "1 2 3 block 0.5 move-x 1 1 1 block subtract volume". What answers write is the result.
#pragma once

#include <functional>
#include <iomanip>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "workbench/ifc/geometry/Extrusion.h"
#include "workbench/ifc/geometry/HalfSpace.h"
#include "workbench/ifc/geometry/ParametricProfile.h"
#include "workbench/ifc/geometry/Primitives.h"
#include "workbench/ifc/geometry/ShellCleaning.h"
#include "workbench/ifc/geometry/Spline.h"
#include "workbench/ifc/geometry/Subtraction.h"
#include "workbench/ifc/geometry/Sweep.h"
#include "workbench/ifc/geometry/Triangulation.h"

namespace geometrytest {

using namespace workbench::geometry;

constexpr const char* StatusNames[] = {"Empty", "Solid", "ClosedByCaps", "TwoSided", "OpenSurface", "GivenUp"};
constexpr const char* UseNames[] = {"Cut", "Apart", "NotSolid", "Deducted", "GivenUp"};

class Script {
public:
    /// The answers with blanks between them.
    std::string Run(const std::string& text) {
        std::istringstream words(text);
        for (std::string word; words >> word;) {
            char* end = nullptr;
            const double number = std::strtod(word.c_str(), &end);
            if (*end == '\0') {
                numbers.push_back(number);
            } else {
                Do(word);
            }
        }
        return answer.str();
    }

    [[nodiscard]] bool HasFiniteMeasures() const {
        return std::all_of(bodies.begin(), bodies.end(), [](const Body& body) {
            return std::isfinite(GetVolumeM3(body)) && std::isfinite(GetSurfaceM2(body)) &&
                   std::isfinite(GetPlanAreaM2(body)) && std::isfinite(body.capAreaM2);
        });
    }

    using Word = std::function<void(Script&)>;
    static const std::map<std::string, Word>& Words();

private:
    template <class T>
    static T Pop(std::vector<T>& stack) {
        if (stack.empty()) return {};
        T top = std::move(stack.back());
        stack.pop_back();
        return top;
    }
    template <class T>
    static T& Top(std::vector<T>& stack) {
        if (stack.empty()) stack.emplace_back();
        return stack.back();
    }
    double N() { return Pop(numbers); }
    /// A number from 0 to MOST.
    std::size_t Count(double most) { return static_cast<std::size_t>(std::min(most, std::max(0.0, N()))); }
    Vector3 Point() {
        const double z = N(), y = N(), x = N();
        return {x, y, z};
    }
    Vector2 FlatPoint() {
        const double y = N(), x = N();
        return {x, y};
    }
    std::vector<Vector3> Points(std::size_t coordinates) {
        std::vector<Vector3> points(Count(1e4));
        for (auto point = points.rbegin(); point != points.rend(); ++point)
            *point = coordinates == 3 ? Point() : Raised(FlatPoint());
        return points;
    }
    Flange PopFlange() {
        Flange flange;
        flange.slope = N(), flange.edgeRadius = N(), flange.filletRadius = N(), flange.thickness = N(),
        flange.width = N();
        return flange;
    }
    void Say(double number) { Say((std::ostringstream() << std::setprecision(6) << number + 0.0).str()); }
    void Say(const std::string& text) { answer << (answer.tellp() > 0 ? " " : "") << text; }
    void Move(const Transform& transform) { bodies.push_back(Transformed(Pop(bodies), transform)); }
    void Both(Operation operation) {
        const Body b = Pop(bodies), a = Pop(bodies);
        bodies.push_back(Combine(operation, a, b));
    }
    void BoxShell() {
        const Vector3 size = Point();
        shell = {};
        for (int i = 0; i < 8; ++i)
            shell.points.push_back({(i & 1) * size.x, (i >> 1 & 1) * size.y, (i >> 2 & 1) * size.z});
        shell.faces = {{{{0, 2, 3, 1}}}, {{{4, 5, 7, 6}}}, {{{0, 1, 5, 4}}},
                       {{{2, 6, 7, 3}}}, {{{0, 4, 6, 2}}}, {{{1, 3, 7, 5}}}};
    }
    std::vector<Index> Indices() {
        std::vector<Index> indices(Count(1e4));
        for (auto index = indices.rbegin(); index != indices.rend(); ++index)
            *index = static_cast<Index>(Count(1e9));
        return indices;
    }
    std::size_t FaceNumber() {
        Top(shell.faces);
        return std::min(Count(1e9), shell.faces.size() - 1);
    }
    [[nodiscard]] bool HasItsPoints() const {
        return std::all_of(shell.faces.begin(), shell.faces.end(), [&](const Face& face) {
            return !face.loops.empty() && std::all_of(face.loops.begin(), face.loops.end(), [&](const PointLoop& loop) {
                return !loop.empty() && *std::max_element(loop.begin(), loop.end()) < shell.points.size();
            });
        });
    }
    void SubtractAll() {
        Top(bodies);
        const std::vector<Body> cutters(bodies.begin() + 1, bodies.end());
        Subtraction result = SubtractOpenings(bodies.front(), cutters);
        bodies = {std::move(result.body)};
        for (const CutterUse use : result.uses)
            Say(UseNames[static_cast<int>(use)]);
    }

    void Do(const std::string& word) {
        const auto found = Words().find(word);
        if (found == Words().end()) return Say("?" + word);
        found->second(*this);
    }

    std::vector<double> numbers;
    std::vector<Profile> profiles;
    std::vector<Curve> curves;
    std::vector<Body> bodies;
    std::vector<Shell> cavities;
    Shell shell;
    std::ostringstream answer;
};

inline const std::map<std::string, Script::Word>& Script::Words() {
    using S = Script&;
    static const std::map<std::string, Word> All = {
        // Curves
        {"line",
         [](S s) {
             s.curves.push_back({s.Points(2), {}, 0.0});
         }},
        {"line3",
         [](S s) {
             s.curves.push_back({s.Points(3), {}, 0.0});
         }},
        {"arc", // centre x y, radius, start, sweep
         [](S s) {
             const double sweep = s.N(), start = s.N(), r = s.N();
             s.curves.push_back(ConicArc(Raised(s.FlatPoint()), {r, 0, 0}, {0, r, 0}, start, sweep));
         }},
        {"arc-through",
         [](S s) {
             const auto last = s.FlatPoint(), middle = s.FlatPoint(), first = s.FlatPoint();
             s.curves.push_back(ArcThrough(Raised(first), Raised(middle), Raised(last)));
         }},
        {"spline", // points, count, degree
         [](S s) {
             const int degree = static_cast<int>(s.Count(100));
             Spline spline{degree, s.Points(2), {}, {}};
             spline.knots = EvenKnots(spline.controlPoints.size(), degree);
             s.curves.push_back(ToCurve(spline));
         }},
        {"weighted", // three points, then the middle one's weight
         [](S s) {
             const double weight = s.N();
             s.curves.push_back(ToCurve(Spline{2, s.Points(2), {1.0, weight, 1.0}, {0, 0, 0, 1, 1, 1}}));
         }},
        {"reverse", [](S s) { s.curves.push_back(Reversed(Pop(s.curves))); }},
        {"trim",
         [](S s) {
             const double to = s.N(), from = s.N();
             s.curves.push_back(TrimPolyline(Pop(s.curves).points, from, to));
         }},
        {"join", [](S s) { s.curves = {Join(s.curves)}; }},
        {"length", [](S s) { s.Say(GetLengthM(Top(s.curves))); }},
        {"points", [](S s) { s.Say(static_cast<double>(Top(s.curves).points.size())); }},
        {"end",
         [](S s) {
             const Vector3 end = Top(Top(s.curves).points);
             s.Say(end.x), s.Say(end.y);
         }},
        // Profiles
        {"outline",
         [](S s) {
             s.profiles.push_back({ToLoop(Pop(s.curves)), {}});
         }},
        {"hole",
         [](S s) {
             const Profile hole = Pop(s.profiles);
             Top(s.profiles).voids.push_back(hole.outer);
         }},
        {"thicken", [](S s) { s.profiles.push_back(ThickenedCurve(Pop(s.curves), s.N())); }},
        {"rectangle",
         [](S s) {
             const double r = s.N(), h = s.N();
             s.profiles.push_back(Rectangle(s.N(), h, r));
         }},
        {"hollow-rectangle",
         [](S s) {
             const double inner = s.N(), outer = s.N(), wall = s.N(), h = s.N();
             s.profiles.push_back(HollowRectangle(s.N(), h, wall, outer, inner));
         }},
        {"circle", [](S s) { s.profiles.push_back(Circle(s.N())); }},
        {"hollow-circle",
         [](S s) {
             const double wall = s.N();
             s.profiles.push_back(HollowCircle(s.N(), wall));
         }},
        {"ellipse",
         [](S s) {
             const Vector2 axes = s.FlatPoint();
             s.profiles.push_back(Ellipse(axes.x, axes.y));
         }},
        {"trapezium",
         [](S s) {
             const double offset = s.N(), h = s.N(), top = s.N();
             s.profiles.push_back(Trapezium(s.N(), top, h, offset));
         }},
        {"i-shape",
         [](S s) {
             const Flange top = s.PopFlange(), bottom = s.PopFlange();
             const Vector2 depthAndWeb = s.FlatPoint();
             s.profiles.push_back(IShape(depthAndWeb.x, depthAndWeb.y, bottom, top));
         }},
        {"t-shape",
         [](S s) {
             const double slope = s.N(), edge = s.N();
             const Flange flange = s.PopFlange();
             const Vector2 depthAndWeb = s.FlatPoint();
             s.profiles.push_back(TShape(depthAndWeb.x, depthAndWeb.y, flange, edge, slope));
         }},
        {"u-shape",
         [](S s) {
             const Flange flange = s.PopFlange();
             const Vector2 depthAndWeb = s.FlatPoint();
             s.profiles.push_back(UShape(depthAndWeb.x, depthAndWeb.y, flange));
         }},
        {"z-shape",
         [](S s) {
             const Flange flange = s.PopFlange();
             const Vector2 depthAndWeb = s.FlatPoint();
             s.profiles.push_back(ZShape(depthAndWeb.x, depthAndWeb.y, flange));
         }},
        {"l-shape",
         [](S s) {
             const Flange leg = s.PopFlange();
             s.profiles.push_back(LShape(s.N(), leg));
         }},
        {"c-shape",
         [](S s) {
             const double inner = s.N(), girth = s.N(), wall = s.N(), width = s.N();
             s.profiles.push_back(CShape(s.N(), width, wall, girth, inner));
         }},
        {"stretch", // x and y factors, the first below 0 mirrors
         [](S s) {
             const Vector2 f = s.FlatPoint();
             s.profiles.push_back(Transformed(Pop(s.profiles), {{f.x, 0, 0}, {0, f.y, 0}, {0, 0, 1}, {}}));
         }},
        {"shift",
         [](S s) {
             const Vector2 by = s.FlatPoint();
             s.profiles.push_back(Transformed(Pop(s.profiles), MoveBy(Raised(by))));
         }},
        {"area", [](S s) { s.Say(GetAreaM2(Top(s.profiles))); }},
        {"polygon-area", [](S s) { s.Say(GetPolygonAreaM2(Top(s.profiles))); }},
        {"corners", [](S s) { s.Say(static_cast<double>(Top(s.profiles).outer.points.size())); }},
        // Bodies
        {"extrude",
         [](S s) {
             s.bodies.push_back(Extrude(Pop(s.profiles), {0, 0, 1}, s.N()));
         }},
        {"extrude-along", // direction, depth
         [](S s) {
             const double depth = s.N();
             s.bodies.push_back(Extrude(Pop(s.profiles), s.Point(), depth));
         }},
        {"taper",
         [](S s) {
             const Profile end = Pop(s.profiles), start = Pop(s.profiles);
             s.bodies.push_back(ExtrudeTapered(start, end, {0, 0, 1}, s.N()));
         }},
        {"revolve", // about the y axis
         [](S s) {
             s.bodies.push_back(Revolve(Pop(s.profiles), {{}, {0, 1}}, s.N()));
         }},
        {"sweep", // reference
         [](S s) {
             const Curve curve = Pop(s.curves);
             s.bodies.push_back(SweepAlong(Pop(s.profiles), curve, s.Point()));
         }},
        {"sweep-disk",
         [](S s) {
             const double inner = s.N(), radius = s.N();
             s.bodies.push_back(SweepDisk(Pop(s.curves), radius, inner));
         }},
        {"block",
         [](S s) {
             const Vector3 size = s.Point();
             s.bodies.push_back(Block(size.x, size.y, size.z));
         }},
        {"pyramid",
         [](S s) {
             const Vector3 size = s.Point();
             s.bodies.push_back(Pyramid(size.x, size.y, size.z));
         }},
        {"cylinder",
         [](S s) {
             const double h = s.N();
             s.bodies.push_back(Cylinder(s.N(), h));
         }},
        {"cone",
         [](S s) {
             const double h = s.N();
             s.bodies.push_back(Cone(s.N(), h));
         }},
        {"sphere", [](S s) { s.bodies.push_back(Sphere(s.N())); }},
        {"half-space", // point, normal out of the material; around the body before it
         [](S s) {
             const Vector3 normal = s.Point();
             s.bodies.push_back(HalfSpace(PlaneAt(s.Point(), normal), GetBox(Top(s.bodies))));
         }},
        {"bounded-half-space", // the same; within the outline of a profile along z
         [](S s) {
             const Vector3 normal = s.Point();
             const Plane plane = PlaneAt(s.Point(), normal);
             s.bodies.push_back(BoundedHalfSpace(plane, {}, Pop(s.profiles).outer, GetBox(Top(s.bodies))));
         }},
        {"move", [](S s) { s.Move(MoveBy(s.Point())); }},
        {"scale",
         [](S s) {
             const Vector3 f = s.Point();
             s.Move({{f.x, 0, 0}, {0, f.y, 0}, {0, 0, f.z}, {}});
         }},
        {"turn-z",
         [](S s) {
             const double angle = s.N(), c = std::cos(angle), d = std::sin(angle);
             s.Move({{c, d, 0}, {-d, c, 0}, {0, 0, 1}, {}});
         }},
        {"subtract", [](S s) { s.Both(Operation::Subtract); }},
        {"intersect", [](S s) { s.Both(Operation::Intersect); }},
        {"unite", [](S s) { s.Both(Operation::Unite); }},
        {"beside",
         [](S s) {
             Body b = Pop(s.bodies);
             s.bodies.push_back(Together(Pop(s.bodies), std::move(b)));
         }},
        {"open", [](S s) { s.SubtractAll(); }},
        {"volume", [](S s) { s.Say(GetVolumeM3(Top(s.bodies))); }},
        {"surface", [](S s) { s.Say(GetSurfaceM2(Top(s.bodies))); }},
        {"plan", [](S s) { s.Say(GetPlanAreaM2(Top(s.bodies))); }},
        {"caps", [](S s) { s.Say(Top(s.bodies).capAreaM2); }},
        {"solids", [](S s) { s.Say(static_cast<double>(Top(s.bodies).solids.size())); }},
        {"status", [](S s) { s.Say(StatusNames[static_cast<int>(Top(s.bodies).status)]); }},
        // Shells
        {"shell", [](S s) { s.BoxShell(); }},
        {"point", [](S s) { s.shell.points.push_back(s.Point()); }},
        {"face", [](S s) { s.shell.faces.push_back({{s.Indices()}}); }},
        {"inner-bound", [](S s) { Top(s.shell.faces).loops.push_back(s.Indices()); }},
        {"turn-face", [](S s) { TurnFace(s.shell.faces.at(s.FaceNumber())); }},
        {"drop-face",
         [](S s) {
             const std::size_t face = s.FaceNumber();
             s.shell.faces.erase(s.shell.faces.begin() + static_cast<std::ptrdiff_t>(face));
         }},
        {"loosen", // the faces get points of their own, off by x
         [](S s) {
             const double off = s.N();
             Shell loose;
             for (const Face& face : s.shell.faces) {
                 Shell one{s.shell.points, {face}};
                 for (Vector3& point : one.points)
                     point.x += off * static_cast<double>(loose.faces.size() % 2);
                 Append(loose, one);
             }
             s.shell = loose;
         }},
        {"move-shell", [](S s) { s.shell = Transformed(s.shell, MoveBy(s.Point())); }},
        {"cavity", [](S s) { s.cavities.push_back(s.shell); }},
        {"clean",
         [](S s) {
             s.bodies.push_back(s.cavities.empty() ? MakeBody(s.shell) : MakeBodyWithCavities(s.shell, s.cavities));
         }},
        {"triangles",
         [](S s) {
             if (!s.HasItsPoints()) return;
             Shell cut{s.shell.points, {}};
             for (const Triangle& triangle : Triangulate(s.shell))
                 cut.faces.push_back({{{triangle[0], triangle[1], triangle[2]}}});
             s.Say(static_cast<double>(cut.faces.size()));
             s.Say(GetSignedVolumeM3(cut));
         }},
    };
    return All;
}

} // namespace geometrytest
