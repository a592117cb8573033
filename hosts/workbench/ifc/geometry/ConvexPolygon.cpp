#include "workbench/ifc/geometry/ConvexPolygon.h"

#include <numbers>

#include "workbench/ifc/geometry/Triangulation.h"

namespace workbench::geometry {
namespace {

/// Twice the area below which a polygon is nothing, in m2.
constexpr double NoArea = 1e-14;

Vector3 DoubledArea(const std::vector<Vector3>& points) {
    Vector3 doubled;
    for (std::size_t i = 2; i < points.size(); ++i)
        doubled += Cross(points[i - 1] - points[0], points[i] - points[0]);
    return doubled;
}

void SetBox(ConvexPolygon& polygon) {
    polygon.box = {};
    for (const Vector3& point : polygon.points)
        polygon.box.Include(point);
}

/// Nothing where the points have no area.
std::optional<ConvexPolygon> MakePolygon(std::vector<Vector3> points) {
    const Vector3 doubled = DoubledArea(points);
    if (!(Length(doubled) > NoArea)) return std::nullopt;
    Vector3 middle;
    for (const Vector3& point : points)
        middle += point * (1.0 / static_cast<double>(points.size()));
    ConvexPolygon polygon{PlaneAt(middle, doubled), std::move(points), {}};
    SetBox(polygon);
    return polygon;
}

bool IsPlane(const ConvexPolygon& polygon) {
    return std::all_of(polygon.points.begin(), polygon.points.end(), [&](const Vector3& point) {
        return std::abs(polygon.plane.GetDistance(point)) <= OnPlaneM / 2.0;
    });
}

/// Left turns only, and once around: the way along one axis changes its direction twice.
bool IsConvex(const ConvexPolygon& polygon) {
    const Vector3 axis = AnyNormalTo(polygon.plane.normal);
    const std::size_t count = polygon.points.size();
    if (count < 3) return false;
    int changes = 0;
    double lastWay = 0.0;
    for (std::size_t i = 0; i < 2 * count; ++i) {
        const Vector3 in = polygon.points[(i + 1) % count] - polygon.points[i % count];
        const Vector3 out = polygon.points[(i + 2) % count] - polygon.points[(i + 1) % count];
        if (Dot(Cross(in, out), polygon.plane.normal) < -1e-9 * Length(in) * Length(out)) return false;
        if (Dot(in, out) < 0.0 && Length(Cross(in, out)) <= 1e-9 * Length(in) * Length(out)) return false;
        const double way = Dot(in, axis);
        if (std::abs(way) <= 1e-9 * Length(in)) continue;
        if (way * lastWay < 0.0 && i >= count) ++changes;
        lastWay = way;
    }
    return changes <= 2;
}

std::vector<Vector3> PointsOf(const Shell& shell, const PointLoop& loop) {
    std::vector<Vector3> points;
    for (const Index point : loop)
        points.push_back(shell.points[point]);
    return points;
}

bool AddTriangles(const Shell& shell, const Face& face, Polygons& polygons) {
    const std::vector<Triangle> triangles = Triangulate(shell, face);
    for (const Triangle& triangle : triangles) {
        auto polygon = MakePolygon({shell.points[triangle[0]], shell.points[triangle[1]], shell.points[triangle[2]]});
        if (polygon) polygons.push_back(std::move(*polygon));
    }
    return !triangles.empty() || Length(GetDoubledArea(shell.points, face)) <= NoArea;
}

/// The angle under which a point sees a triangle from itself to A, B and C, after van Oosterom and Strackee.
double SolidAngle(const Vector3& a, const Vector3& b, const Vector3& c) {
    const double la = Length(a);
    const double lb = Length(b);
    const double lc = Length(c);
    const double below = la * lb * lc + Dot(a, b) * lc + Dot(b, c) * la + Dot(c, a) * lb;
    return 2.0 * std::atan2(Dot(a, Cross(b, c)), below);
}

ConvexPolygon Part(const Plane& plane, std::vector<Vector3>&& points) {
    ConvexPolygon part{plane, std::move(points), {}};
    SetBox(part);
    return part;
}

} // namespace

double GetAreaM2(const ConvexPolygon& polygon) {
    return Length(DoubledArea(polygon.points)) / 2.0;
}

Box GetBox(const Polygons& polygons) {
    Box box;
    for (const ConvexPolygon& polygon : polygons)
        box.Include(polygon.box);
    return box;
}

double GetSignedVolumeM3(const Polygons& polygons) {
    if (polygons.empty()) return 0.0;
    const Vector3 origin = polygons.front().points.front();
    double sixfold = 0.0;
    for (const ConvexPolygon& polygon : polygons)
        sixfold += Dot(polygon.points.front() - origin, DoubledArea(polygon.points));
    return sixfold / 6.0;
}

ConvexPolygon Turned(const ConvexPolygon& polygon) {
    return {Turned(polygon.plane), {polygon.points.rbegin(), polygon.points.rend()}, polygon.box};
}

Side FindSide(const ConvexPolygon& polygon, const Plane& plane) {
    bool isInFront = false;
    bool isBehind = false;
    for (const Vector3& point : polygon.points) {
        const double distance = plane.GetDistance(point);
        isInFront = isInFront || distance > OnPlaneM;
        isBehind = isBehind || distance < -OnPlaneM;
    }
    if (isInFront) return isBehind ? Side::Across : Side::InFront;
    return isBehind ? Side::Behind : Side::OnPlane;
}

Side Split(const ConvexPolygon& polygon, const Plane& plane, ConvexPolygon& front, ConvexPolygon& back) {
    const Side side = FindSide(polygon, plane);
    if (side != Side::Across) return side;
    std::vector<Vector3> ahead;
    std::vector<Vector3> behind;
    for (std::size_t i = 0; i < polygon.points.size(); ++i) {
        const Vector3& a = polygon.points[i];
        const Vector3& b = polygon.points[i + 1 < polygon.points.size() ? i + 1 : 0];
        const double da = plane.GetDistance(a);
        const double db = plane.GetDistance(b);
        if (da >= -OnPlaneM) ahead.push_back(a);
        if (da <= OnPlaneM) behind.push_back(a);
        if ((da > OnPlaneM && db < -OnPlaneM) || (da < -OnPlaneM && db > OnPlaneM)) {
            const Vector3 on = a + (b - a) * (da / (da - db));
            ahead.push_back(on);
            behind.push_back(on);
        }
    }
    front = Part(polygon.plane, std::move(ahead));
    back = Part(polygon.plane, std::move(behind));
    return side;
}

std::optional<Polygons> ToPolygons(const Shell& shell) {
    Polygons polygons;
    for (const Face& face : shell.faces) {
        std::optional<ConvexPolygon> whole;
        if (face.loops.size() == 1) whole = MakePolygon(PointsOf(shell, face.loops[0]));
        if (whole && IsPlane(*whole) && (whole->points.size() == 3 || IsConvex(*whole))) {
            polygons.push_back(std::move(*whole));
        } else if (!AddTriangles(shell, face, polygons)) {
            return std::nullopt;
        }
    }
    return polygons;
}

Shell ToShell(const Polygons& polygons) {
    Shell shell;
    for (const ConvexPolygon& polygon : polygons) {
        PointLoop loop;
        for (const Vector3& point : polygon.points) {
            loop.push_back(static_cast<Index>(shell.points.size()));
            shell.points.push_back(point);
        }
        shell.faces.push_back({{std::move(loop)}});
    }
    return shell;
}

Polygons Clip(const Polygons& polygons, const Box& box) {
    const Plane sides[6] = {{{1, 0, 0}, box.high.x},  {{-1, 0, 0}, -box.low.x}, {{0, 1, 0}, box.high.y},
                            {{0, -1, 0}, -box.low.y}, {{0, 0, 1}, box.high.z},  {{0, 0, -1}, -box.low.z}};
    Polygons clipped;
    for (const ConvexPolygon& polygon : polygons) {
        if (!DoTouch(polygon.box, box)) continue;
        ConvexPolygon rest = polygon;
        bool isOut = false;
        for (const Plane& side : sides) {
            ConvexPolygon front;
            ConvexPolygon back;
            const Side where = Split(rest, side, front, back);
            isOut = isOut || where == Side::InFront;
            if (where == Side::Across) rest = std::move(back);
        }
        if (!isOut) clipped.push_back(std::move(rest));
    }
    return clipped;
}

bool IsInside(const Vector3& point, const Polygons& polygons) {
    double angle = 0.0;
    for (const ConvexPolygon& polygon : polygons)
        for (std::size_t i = 2; i < polygon.points.size(); ++i)
            angle += SolidAngle(polygon.points[0] - point, polygon.points[i - 1] - point, polygon.points[i] - point);
    return angle > 2.0 * std::numbers::pi;
}

} // namespace workbench::geometry
